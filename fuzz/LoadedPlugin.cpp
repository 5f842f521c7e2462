#include "LoadedPlugin.h"

#include "ITavDataPlugin.h"

#include <QPluginLoader>

namespace
{
void logNothing(QtMsgType, const QMessageLogContext &, const QString &)
{
}

ITavDataPlugin *load()
{
    qInstallMessageHandler(logNothing);
    QPluginLoader loader(QStringLiteral(TAV_PLUGIN_FILE));
    auto *const plugin = qobject_cast<ITavDataPlugin *>(loader.instance());
    require(plugin, qPrintable(loader.errorString()));
    return plugin;
}

ITavDataPlugin &loadedPlugin()
{
    static ITavDataPlugin *const plugin = load();
    return *plugin;
}
}

/// Called by the fuzzing library, where there is one, before it looks which libraries it can see into.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    loadedPlugin();
    return 0;
}

LoadedPlugin::LoadedPlugin()
{
    TavGlobalInfoMgr::setObjectMgr(&m_registry);
    loadedPlugin().registerObj();
}

LoadedPlugin::~LoadedPlugin()
{
    TavGlobalInfoMgr::setObjectMgr(nullptr);
}
