#pragma once

#include "Require.h"
#include "TavObjectMgr.h"

#include <QObject>

/**
 * @brief Fresh managers of the plugin, which is loaded from its built file, for as long as this object lives.
 *
 * The file is loaded once in the process. What Qt and the managers log goes nowhere.
 */
class LoadedPlugin
{
public:
    LoadedPlugin();
    Q_DISABLE_COPY(LoadedPlugin)
    ~LoadedPlugin();

    template<class Interface>
    Interface &manager()
    {
        auto *const found = tavObject<Interface>(qobject_interface_iid<Interface *>());
        require(found, "the plugin registers every manager");
        return *found;
    }

private:
    TavObjectMgr m_registry;
};
