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
    if (locale.language() != QLocale::Chinese) {
        return; // Qt's texts in another language would stand among ours in English
    }
    const QLocale china(QLocale::Chinese, QLocale::China); // whose catalogue is the only one
    install(china, QStringLiteral("tavdesk"), QStringLiteral(":/i18n"));
    const QString ofQt = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    if (!install(locale, QStringLiteral("qtbase"), ofQt)) {
        install(china, QStringLiteral("qtbase"), ofQt);
    }
}
