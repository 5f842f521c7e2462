#include "PluginHost.h"

#include <gtest/gtest.h>

PluginHost::PluginHost()
{
    TavGlobalInfoMgr::setObjectMgr(&m_registry);
    loadPlugin()->registerObj();
}

PluginHost::~PluginHost()
{
    TavGlobalInfoMgr::setObjectMgr(nullptr);
}

QObject *PluginHost::managerObject(const char *interfaceName)
{
    return m_registry.getObject(tavManagerKey(interfaceName));
}

ITavDataPlugin *loadPlugin()
{
    QPluginLoader loader(QStringLiteral(TAV_PLUGIN_FILE));
    auto *const plugin = qobject_cast<ITavDataPlugin *>(loader.instance());
    EXPECT_NE(plugin, nullptr) << qPrintable(loader.errorString());
    return plugin;
}
