#include "TavSystemConfigMgr.h"

#include "TavHeldValue.h"

TavSystemConfigMgr::TavSystemConfigMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavSystemConfigMgr::getObject()
{
    return this;
}

void TavSystemConfigMgr::setServerInfo(const Tav::SystemConfig::SystemServerInfo &value)
{
    TavHeldValue::set(mutex, serverInfo, value);
}

Tav::SystemConfig::SystemServerInfo TavSystemConfigMgr::getServerInfo()
{
    return TavHeldValue::get(mutex, serverInfo);
}

void TavSystemConfigMgr::setOnlineState(const Tav::SystemConfig::CommdOnlineState &value)
{
    TavHeldValue::set(mutex, onlineState, value);
}

Tav::SystemConfig::CommdOnlineState TavSystemConfigMgr::getOnlineState()
{
    return TavHeldValue::get(mutex, onlineState);
}
