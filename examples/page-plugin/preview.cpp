// The client in small: loads the data plugin and a page plugin, plays the backend, and shows the page in a window.
//
//   page-preview PAGE_PLUGIN [PICTURE]    with PICTURE, saves what the window shows to that file and ends

#include "IPage.h"
#include "ITavDataPlugin.h"
#include "ITavSelectFuncMgr.h"
#include "NetControl.pb.h"
#include "TavObjectMgr.h"

#include <QApplication>
#include <QDir>
#include <QPluginLoader>
#include <QTimer>

#include <memory>

namespace
{
template<class Interface>
Interface *load(const QString &file)
{
    QPluginLoader loader(file);
    auto *const plugin = qobject_cast<Interface *>(loader.instance());
    if (!plugin) {
        qCritical("%s: %s", qPrintable(file), qPrintable(loader.errorString()));
    }
    return plugin;
}

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
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 2) {
        qCritical("usage: page-preview PAGE_PLUGIN [PICTURE]");
        return 2;
    }
    auto *const dataPlugin = load<ITavDataPlugin>(QStringLiteral(TAV_PLUGIN_FILE));
    auto *const pagePlugin = load<IPagePlugin>(arguments[1]);
    if (!dataPlugin || !pagePlugin) {
        return 1;
    }
    TavObjectMgr registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    dataPlugin->registerObj();
    int result = 0;
    { // the page ends before the registry, which ends the managers
        const std::unique_ptr<QWidget> page(pagePlugin->createPage(nullptr));
        page->resize(480, 240);
        page->show();
        qobject_cast<IPage *>(page.get())->receiveAnswer(answer());
        tavObject<ITavSelectFuncMgr>()->setCurSelType(CTavFuncTypeHeader::Func_HostInfo,
                                                      CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
        if (arguments.size() > 2) {
            QTimer::singleShot(500, page.get(), [&] { application.exit(page->grab().save(arguments[2]) ? 0 : 1); });
        }
        result = application.exec();
    }
    TavGlobalInfoMgr::setObjectMgr(nullptr);
    return result;
}
