#pragma once

#include "TavJson.h"
#include "TavOperations.h"

#include <QElapsedTimer>
#include <QJsonArray>

#include <functional>

/// @brief A call that the agent has just made on a manager.
struct AgentCall {
    QString manager; ///< name of the interface
    QString operation;
    std::function<QJsonArray()> arguments; ///< JSON of them by position; holds them, and makes it whenever it is wanted
    qint64 nanoseconds; ///< that the call took
};

/// Is told each call on the thread that has made it, which waits meanwhile. Must not throw.
using AgentObserver = std::function<void(const AgentCall &)>;

/// @brief Makes the agent's calls on one manager and tells them to the observer, if there is one.
template<class Manager>
class AgentCalls
{
public:
    AgentCalls(Manager &manager, const AgentObserver &observer) : m_manager(manager), m_observer(observer)
    {
    }

    /// Makes the call of an operation: `calls.make<&ITavNetControlMgr::setNetCount>(count)`.
    template<auto Member, class... Arguments>
    typename TavOperations::Operation<Member>::Result make(Arguments &&...arguments) const
    {
        if (!m_observer) {
            return (m_manager.*Member)(arguments...);
        }
        // Taken before, since an operation may change what it is given by reference.
        const typename TavOperations::Operation<Member>::Values values(arguments...);
        QElapsedTimer timer;
        timer.start();
        if constexpr (std::is_void_v<typename TavOperations::Operation<Member>::Result>) {
            (m_manager.*Member)(arguments...);
            tell<Member>(values, timer.nsecsElapsed());
        } else {
            auto result = (m_manager.*Member)(arguments...);
            tell<Member>(values, timer.nsecsElapsed());
            return result;
        }
    }

private:
    template<auto Member, class Values>
    void tell(const Values &values, qint64 nanoseconds) const
    {
        const auto &operation = std::get<TavOperations::Operation<Member>>(TavOperations::Table<Manager>::list);
        m_observer({qobject_interface_iid<Manager *>(), operation.name.data(),
                    [values] { return TavJson::arrayOf(values); }, nanoseconds});
    }

    Manager &m_manager;
    const AgentObserver &m_observer;
};
