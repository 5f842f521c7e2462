#pragma once

#include "ITavDataPlugin.h"
#include "TavObjectMgr.h"

#include <QPluginLoader>

/**
 * @brief The client in small: loads the built plugin from its file and has it register its managers in a registry
 * that ends with this object. Every test that makes one starts with fresh managers.
 */
class PluginHost
{
public:
    PluginHost();
    ~PluginHost();

    /// The manager behind @p Interface; null when there is none.
    template<class Interface>
    Interface *manager()
    {
        return qobject_cast<Interface *>(managerObject(qobject_interface_iid<Interface *>()));
    }

    /// The manager registered for the interface with this name; null when there is none.
    QObject *managerObject(const char *interfaceName);

private:
    TavObjectMgr m_registry;
};

/// The plugin's root object, loaded from the built file; fails the test and returns null when that does not work.
ITavDataPlugin *loadPlugin();
