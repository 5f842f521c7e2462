#include "TavAuthInfoMgr.h"

#include "TavHeldValue.h"

TavAuthInfoMgr::TavAuthInfoMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavAuthInfoMgr::getObject()
{
    return this;
}

void TavAuthInfoMgr::setLoginCheck(const Tav::SystemConfig::LoginCheckAsr &value)
{
    TavHeldValue::set(mutex, loginCheck, value);
}

Tav::SystemConfig::LoginCheckAsr TavAuthInfoMgr::getLoginCheck()
{
    return TavHeldValue::get(mutex, loginCheck);
}

void TavAuthInfoMgr::setPwdChange(const Tav::SystemConfig::PasswdChangeAsr &value)
{
    TavHeldValue::set(mutex, pwdChange, value);
}

Tav::SystemConfig::PasswdChangeAsr TavAuthInfoMgr::getPwdChange()
{
    return TavHeldValue::get(mutex, pwdChange);
}
