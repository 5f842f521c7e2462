#include "TavCompleteProtectMgr.h"

#include "TavHeldValue.h"

#include <algorithm>

TavCompleteProtectMgr::TavCompleteProtectMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavCompleteProtectMgr::getObject()
{
    return this;
}

void TavCompleteProtectMgr::setCurPathState(const STStaticCurPathAsr &value)
{
    TavHeldValue::set(mutex, curPathState, value);
}

STStaticCurPathAsr TavCompleteProtectMgr::getCurPathState()
{
    return TavHeldValue::get(mutex, curPathState);
}

void TavCompleteProtectMgr::setSystemScanState(const STSystemScanStateAsr &value)
{
    TavHeldValue::set(mutex, systemScanState, value);
}

STSystemScanStateAsr TavCompleteProtectMgr::getSystemScanState()
{
    return TavHeldValue::get(mutex, systemScanState);
}

void TavCompleteProtectMgr::setImaCount(const STImaCountAsr &value)
{
    TavHeldValue::set(mutex, imaCount, value);
}

STImaCountAsr TavCompleteProtectMgr::getImaCount()
{
    return TavHeldValue::get(mutex, imaCount);
}

void TavCompleteProtectMgr::setImaState(const STImaStateAsr &value)
{
    TavHeldValue::set(mutex, imaState, value);
}

STImaStateAsr TavCompleteProtectMgr::getImaState()
{
    return TavHeldValue::get(mutex, imaState);
}

void TavCompleteProtectMgr::setImaList(const QVector<STImaContentAsr> &value)
{
    TavHeldValue::set(mutex, imaList, value);
}

QVector<STImaContentAsr> TavCompleteProtectMgr::getImaList()
{
    return TavHeldValue::get(mutex, imaList);
}

void TavCompleteProtectMgr::setImaInitState(const STImaInitStateAsr &value)
{
    TavHeldValue::set(mutex, imaInitState, value);
}

STImaInitStateAsr TavCompleteProtectMgr::getImaInitState()
{
    return TavHeldValue::get(mutex, imaInitState);
}

void TavCompleteProtectMgr::setSingleScanId(const STSingleScanAsr &value)
{
    TavHeldValue::set(mutex, singleScanId, value);
}

STSingleScanAsr TavCompleteProtectMgr::getSingleScanId()
{
    return TavHeldValue::get(mutex, singleScanId);
}

void TavCompleteProtectMgr::setDySCanState(const Tav::Measure::DyGetScanStateAsr &value)
{
    TavHeldValue::set(mutex, dyScanState, value);
}

Tav::Measure::DyGetScanStateAsr TavCompleteProtectMgr::getDySCanState()
{
    return TavHeldValue::get(mutex, dyScanState);
}

void TavCompleteProtectMgr::setDyTimeInterval(const Tav::Measure::DyTimeInterval &value)
{
    TavHeldValue::set(mutex, dyTimeInterval, value);
}

Tav::Measure::DyTimeInterval TavCompleteProtectMgr::getDyTimeInterval()
{
    return TavHeldValue::get(mutex, dyTimeInterval);
}

void TavCompleteProtectMgr::setCompleteMeasure(const Tav::Measure::CompleteMeasureAsr &value)
{
    TavHeldValue::set(mutex, completeMeasure, value);
}

Tav::Measure::CompleteMeasureAsr TavCompleteProtectMgr::getCompleteMeasure()
{
    return TavHeldValue::get(mutex, completeMeasure);
}

void TavCompleteProtectMgr::setCredibleList(const Tav::Measure::ImaContentAsr &value)
{
    TavHeldValue::set(mutex, credibleList, value);
}

Tav::Measure::ImaContentAsr TavCompleteProtectMgr::getCredibleList()
{
    return TavHeldValue::get(mutex, credibleList);
}

void TavCompleteProtectMgr::setCredibleCount(const Tav::Measure::ImaCountAsr &value)
{
    TavHeldValue::set(mutex, credibleCount, value);
}

Tav::Measure::ImaCountAsr TavCompleteProtectMgr::getCredibleCount()
{
    return TavHeldValue::get(mutex, credibleCount);
}

void TavCompleteProtectMgr::setCredibleMode(const Tav::Measure::CredibleMode &value)
{
    TavHeldValue::set(mutex, credibleMode, value);
}

Tav::Measure::CredibleMode TavCompleteProtectMgr::getCredibleMode()
{
    return TavHeldValue::get(mutex, credibleMode);
}

void TavCompleteProtectMgr::setCredibleVecUI(const QVector<STProtoDataContainer> &value)
{
    TavHeldValue::set(mutex, credibleVecUI, value);
}

QVector<STProtoDataContainer> TavCompleteProtectMgr::getCredibleVecUI()
{
    return TavHeldValue::get(mutex, credibleVecUI);
}

void TavCompleteProtectMgr::setCredibleImteUI(const STProtoDataContainer &item)
{
    QMutexLocker lock(&mutex);
    // By the stored index: the row need not stand at that position.
    const auto sameIndex = [&item](const STProtoDataContainer &row) { return row.index == item.index; };
    const auto row = std::find_if(credibleVecUI.begin(), credibleVecUI.end(), sameIndex);
    if (row != credibleVecUI.end()) {
        *row = item;
    }
}
