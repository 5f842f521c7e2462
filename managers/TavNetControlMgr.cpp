#include "TavNetControlMgr.h"

#include "TavHeldValue.h"

namespace
{
void reverseState(Tav::NetControl::NetDeviceInfo &device)
{
    device.set_state(device.state() == 1 ? 0 : 1);
}
}

TavNetControlMgr::TavNetControlMgr(QObject *parent) : QObject(parent)
{
    // Present from birth, so that a page reads "0" and not "no answer".
    state.set_state(0);
}

QObject *TavNetControlMgr::getObject()
{
    return this;
}

void TavNetControlMgr::setNetCount(const Tav::NetControl::NetControlCountAsr &value)
{
    TavHeldValue::set(mutex, netCount, value);
}

Tav::NetControl::NetControlCountAsr TavNetControlMgr::getNetCount()
{
    return TavHeldValue::get(mutex, netCount);
}

void TavNetControlMgr::setUIData(const QVector<STProtoDataContainer> &value)
{
    TavHeldValue::set(mutex, uiData, value);
}

QVector<STProtoDataContainer> TavNetControlMgr::getUIData()
{
    return TavHeldValue::get(mutex, uiData);
}

void TavNetControlMgr::setState(const Tav::Base::CommandStateAsr &value)
{
    TavHeldValue::set(mutex, state, value);
}

Tav::Base::CommandStateAsr TavNetControlMgr::getState()
{
    return TavHeldValue::get(mutex, state);
}

void TavNetControlMgr::setDeviceInfo(const Tav::NetControl::NetDeviceInfos &value)
{
    TavHeldValue::set(mutex, deviceInfo, value);
}

Tav::NetControl::NetDeviceInfos TavNetControlMgr::getDeviceInfo()
{
    return TavHeldValue::get(mutex, deviceInfo);
}

void TavNetControlMgr::setRuleInfo(const Tav::NetControl::NetRuleInfoAsr &value)
{
    TavHeldValue::set(mutex, ruleInfo, value);
}

Tav::NetControl::NetRuleInfoAsr TavNetControlMgr::getRuleInfo()
{
    return TavHeldValue::get(mutex, ruleInfo);
}

void TavNetControlMgr::updateUIItem(const STProtoDataContainer &item)
{
    QMutexLocker lock(&mutex);
    // The index is the position itself here; what the row stored as its index does not matter.
    if (item.index >= 0 && item.index < uiData.size()) {
        uiData[item.index] = item;
    }
}

void TavNetControlMgr::setAllCheck(bool check)
{
    QMutexLocker lock(&mutex);
    for (STProtoDataContainer &row : uiData) {
        row.isChecked = check;
    }
}

void TavNetControlMgr::reverseDeviceState(int index)
{
    QMutexLocker lock(&mutex);
    // No check of our own: an index out of range fails the message library's, which is fatal.
    reverseState(*deviceInfo.mutable_devices(index));
}

void TavNetControlMgr::reverseDevicesState()
{
    QMutexLocker lock(&mutex);
    for (Tav::NetControl::NetDeviceInfo &device : *deviceInfo.mutable_devices()) {
        reverseState(device);
    }
}
