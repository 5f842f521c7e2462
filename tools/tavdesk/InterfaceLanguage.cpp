#include "InterfaceLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace
{
/// Whether there is such a catalogue for the language.
bool install(const QLocale &locale, const QString &catalogue, const QString &directory)
{
    auto *const translator = new QTranslator(qApp);
    return translator->load(locale, catalogue, QStringLiteral("_"), directory)
        && QCoreApplication::installTranslator(translator);
}
}

void setInterfaceLanguage(const QLocale &locale)
{
    Q_INIT_RESOURCE(translations); // the linker leaves out what nothing names
    install(QLocale::English, QStringLiteral("tavdesk"), QStringLiteral(":/i18n")); // its plurals
    if (install(locale, QStringLiteral("tavdesk"), QStringLiteral(":/i18n"))) { // or its dialogs would mix languages
        install(locale, QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    }
}
