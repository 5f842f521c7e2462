#include "TavSelectFuncMgr.h"

#include "TavEvents.h"
#include "TavHeldValue.h"

TavSelectFuncMgr::TavSelectFuncMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavSelectFuncMgr::getObject()
{
    return this;
}

void TavSelectFuncMgr::setCurSelFuncType(const CTavFuncTypeHeader::TavFuncTypeHeader_ &value)
{
    TavHeldValue::set(mutex, curSelFuncType, value);
}

CTavFuncTypeHeader::TavFuncTypeHeader_ TavSelectFuncMgr::getCurSelFuncType()
{
    return TavHeldValue::get(mutex, curSelFuncType);
}

void TavSelectFuncMgr::setCurSelSubFuncType(const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &value)
{
    TavHeldValue::set(mutex, curSelSubFuncType, value);
}

CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ TavSelectFuncMgr::getCurSelSubFuncType()
{
    return TavHeldValue::get(mutex, curSelSubFuncType);
}

void TavSelectFuncMgr::setCurSelType(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType,
                                     const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &subFuncType)
{
    // Emitted under the lock, so that announcements stand in the order of the selections. It only posts: no callback
    // can run here and find the lock taken.
    QMutexLocker lock(&mutex);
    curSelFuncType = funcType;
    curSelSubFuncType = subFuncType;
    eventFuncPageUpdate.Emit(subFuncType);
}
