#include "CommandLine.h"
#include "Desk.h"
#include "DeskApplication.h"
#include "InterfaceLanguage.h"

#include <QIcon>

// What escapes is a lack of memory, which nothing here could report.
int main(int argc, char **argv) // NOLINT(bugprone-exception-escape)
{
    DeskOptions options;
    if (const std::optional<int> code = readCommandLine(argc, argv, options)) {
        return *code;
    }
    if (!options.pictures.isEmpty() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // nothing is shown
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    DeskApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("tavsec"));
    QApplication::setApplicationName(QStringLiteral("tavdesk"));
    QApplication::setApplicationVersion(QStringLiteral(TAV_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.tavsec.tavdesk"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.tavsec.tavdesk")));
    setInterfaceLanguage(QLocale());
    Desk desk(options);
    QObject::connect(&application, &DeskApplication::threw, &application,
                     [&desk](const QString &problem) { desk.showFailure(problem); });
    if (!options.pictures.isEmpty()) {
        return desk.savePictures();
    }
    desk.show();
    return QApplication::exec();
}
