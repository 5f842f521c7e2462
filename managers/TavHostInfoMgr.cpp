#include "TavHostInfoMgr.h"

#include "TavHeldValue.h"

TavHostInfoMgr::TavHostInfoMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavHostInfoMgr::getObject()
{
    return this;
}

void TavHostInfoMgr::setResourceInfo(const STResourceInfoAsr &value)
{
    TavHeldValue::set(mutex, resourceInfo, value);
}

STResourceInfoAsr TavHostInfoMgr::getResourceInfo()
{
    return TavHeldValue::get(mutex, resourceInfo);
}

void TavHostInfoMgr::setKernelSigState(const Tav::HostInfo::SystemFileStateAsr &value)
{
    TavHeldValue::set(mutex, kernelSigState, value);
}

Tav::HostInfo::SystemFileStateAsr TavHostInfoMgr::getKernelSigState()
{
    return TavHeldValue::get(mutex, kernelSigState);
}
