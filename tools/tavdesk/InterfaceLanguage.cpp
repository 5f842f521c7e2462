#include "InterfaceLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace
{
void install(const QLocale &locale, const QString &catalogue, const QString &directory)
{
    auto *const translator = new QTranslator(qApp);
    if (translator->load(locale, catalogue, QStringLiteral("_"), directory)) {
        QCoreApplication::installTranslator(translator);
    }
}
}

void setInterfaceLanguage(const QLocale &locale)
{
    Q_INIT_RESOURCE(translations); // the linker leaves out what nothing names
    install(QLocale::English, QStringLiteral("tavdesk"), QStringLiteral(":/i18n")); // its plurals
    install(locale, QStringLiteral("tavdesk"), QStringLiteral(":/i18n"));
    install(locale, QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
}
