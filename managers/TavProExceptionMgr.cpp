#include "TavProExceptionMgr.h"

#include "TavHeldValue.h"

#include <algorithm>

TavProExceptionMgr::TavProExceptionMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavProExceptionMgr::getObject()
{
    return this;
}

void TavProExceptionMgr::setPriException(const Tav::Base::PriExceptionAsr &value)
{
    TavHeldValue::set(mutex, priException, value);
}

Tav::Base::PriExceptionAsr TavProExceptionMgr::getPriException()
{
    return TavHeldValue::get(mutex, priException);
}

void TavProExceptionMgr::setUIData(const QVector<STProtoDataContainer> &value)
{
    TavHeldValue::set(mutex, uiData, value);
}

QVector<STProtoDataContainer> TavProExceptionMgr::getUIData()
{
    return TavHeldValue::get(mutex, uiData);
}

void TavProExceptionMgr::setUIData(const STProtoDataContainer &item)
{
    QMutexLocker lock(&mutex);
    const auto row = std::find_if(uiData.begin(), uiData.end(), [&item](const STProtoDataContainer &candidate) {
        return candidate.index == item.index;
    });
    if (row != uiData.end()) {
        row->isChecked = item.isChecked;
        row->protoData = item.protoData;
    }
}
