#pragma once

#include "SystemConfig.pb.h"

#include <QObject>

/**
 * @brief Holds the answers to the last login and to the last change of password.
 *
 * Any thread may call any operation. Getters return copies, empty messages before the first set. Nothing is
 * signalled on a set: readers ask again.
 */
class ITavAuthInfoMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the answer to the last login.
    virtual void setLoginCheck(const Tav::SystemConfig::LoginCheckAsr &answer) = 0;
    /// Copy of the answer to the last login.
    [[nodiscard]] virtual Tav::SystemConfig::LoginCheckAsr getLoginCheck() = 0;

    /// Replaces the answer to the last change of password.
    virtual void setPwdChange(const Tav::SystemConfig::PasswdChangeAsr &answer) = 0;
    /// Copy of the answer to the last change of password.
    [[nodiscard]] virtual Tav::SystemConfig::PasswdChangeAsr getPwdChange() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavAuthInfoMgr() = default;
};

Q_DECLARE_INTERFACE(ITavAuthInfoMgr, "ITavAuthInfoMgr")
