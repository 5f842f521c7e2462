#pragma once

#include "SystemConfig.pb.h"

#include <QObject>

/**
 * @brief Holds the server information and the online state last pushed.
 *
 * Any thread may call any operation. Getters return copies, empty messages before the first set. Nothing is
 * signalled on a set: readers ask again.
 */
class ITavSystemConfigMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the information on the management server.
    virtual void setServerInfo(const Tav::SystemConfig::SystemServerInfo &info) = 0;
    /// Copy of the information on the management server.
    [[nodiscard]] virtual Tav::SystemConfig::SystemServerInfo getServerInfo() = 0;

    /// Replaces the state of the connection to the management server.
    virtual void setOnlineState(const Tav::SystemConfig::CommdOnlineState &state) = 0;
    /// Copy of the state of the connection to the management server.
    [[nodiscard]] virtual Tav::SystemConfig::CommdOnlineState getOnlineState() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavSystemConfigMgr() = default;
};

Q_DECLARE_INTERFACE(ITavSystemConfigMgr, "ITavSystemConfigMgr")
