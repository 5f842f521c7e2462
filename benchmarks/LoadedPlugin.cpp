#include "LoadedPlugin.h"

#include "ITavDataPlugin.h"

#include <QPluginLoader>

LoadedPlugin::LoadedPlugin()
{
    QPluginLoader loader(QStringLiteral(TAV_PLUGIN_FILE));
    auto *const plugin = qobject_cast<ITavDataPlugin *>(loader.instance());
    if (!plugin) {
        qFatal("%s", qPrintable(loader.errorString()));
    }
    TavGlobalInfoMgr::setObjectMgr(&m_registry);
    plugin->registerObj();
    TavGlobalInfoMgr::setObjectMgr(nullptr);
}

LoadedPlugin::~LoadedPlugin() = default;
