// The client in small: loads the data plugin and a page plugin, plays the backend, and shows the page in a window.
//
//   page-preview PAGE_PLUGIN [PICTURE]    with PICTURE, saves what the window shows to that file and ends

#include "ITavPage.h"
#include "NetControl.pb.h"
#include "TavPluginHost.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace
{
/// An answer as a backend would give it: this machine's network devices, all allowed.
QByteArray answer()
{
    Tav::NetControl::NetDeviceInfos devices;
    const QStringList names = QDir(QStringLiteral("/sys/class/net")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        auto &device = *devices.add_devices();
        device.set_name(name.toStdString());
        device.set_state(1);
    }
    return QByteArray::fromStdString(devices.SerializeAsString());
}

int show(QApplication &application, const QStringList &arguments)
{
    TavPluginHost host(QStringLiteral(TAV_PLUGIN_FILE));
    host.loadPages(arguments[1]);
    QObject *const controller = host.managerObject("ITavHostInfoController");
    auto *const pages = qobject_cast<ITavPage *>(controller);
    if (!pages) {
        qCritical("%s: has no page for ITavHostInfoController", qPrintable(arguments[1]));
        return 1;
    }
    const std::unique_ptr<QWidget> page(pages->createPage(nullptr)); // ends before the host, which ends the controller
    page->resize(480, 240);
    page->show();
    QMetaObject::invokeMethod(controller, "receiveAnswer", Q_ARG(QByteArray, answer()));
    if (arguments.size() > 2) {
        QTimer::singleShot(500, page.get(), [&] { application.exit(page->grab().save(arguments[2]) ? 0 : 1); });
    }
    return application.exec();
}
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 2) {
        qCritical("usage: page-preview PAGE_PLUGIN [PICTURE]");
        return 2;
    }
    try {
        return show(application, arguments);
    } catch (const TavPluginError &error) {
        qCritical("%s", error.what());
        return 1;
    }
}
