#include "TavDevCtlMgr.h"

#include "TavHeldValue.h"

TavDevCtlMgr::TavDevCtlMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavDevCtlMgr::getObject()
{
    return this;
}

void TavDevCtlMgr::setUsbInfoList(const Tav::DevControl::DevUsbInfoList &value)
{
    TavHeldValue::set(mutex, usbInfoList, value);
}

Tav::DevControl::DevUsbInfoList TavDevCtlMgr::getUsbInfoList()
{
    return TavHeldValue::get(mutex, usbInfoList);
}

void TavDevCtlMgr::setFuncEnableInfo(const Tav::DevControl::DevFuncEnableInfo &value)
{
    TavHeldValue::set(mutex, funcEnableInfo, value);
}

Tav::DevControl::DevFuncEnableInfo TavDevCtlMgr::getFuncEnableInfo()
{
    return TavHeldValue::get(mutex, funcEnableInfo);
}
