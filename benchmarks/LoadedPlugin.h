#pragma once

#include "TavObjectMgr.h"

/// @brief The client in small: the plugin loaded from its file, and a fresh set of its managers, which ends with this
/// object.
class LoadedPlugin
{
public:
    /// Ends the program when the plugin cannot be loaded.
    LoadedPlugin();
    ~LoadedPlugin();
    Q_DISABLE_COPY(LoadedPlugin)

    template<class Interface>
    Interface *manager()
    {
        return qobject_cast<Interface *>(m_registry.getObject(tavManagerKey(qobject_interface_iid<Interface *>())));
    }

private:
    TavObjectMgr m_registry;
};
