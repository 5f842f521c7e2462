#pragma once

#include "ITavAuthInfoMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The answers to log-in and password change.
class TavAuthInfoMgr : public QObject, public ITavAuthInfoMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavAuthInfoMgr)
public:
    explicit TavAuthInfoMgr(QObject *parent);

    QObject *getObject() override;
    void setLoginCheck(const Tav::SystemConfig::LoginCheckAsr &value) override;
    Tav::SystemConfig::LoginCheckAsr getLoginCheck() override;
    void setPwdChange(const Tav::SystemConfig::PasswdChangeAsr &value) override;
    Tav::SystemConfig::PasswdChangeAsr getPwdChange() override;

private:
    QMutex mutex;
    Tav::SystemConfig::LoginCheckAsr loginCheck;
    Tav::SystemConfig::PasswdChangeAsr pwdChange;
};
