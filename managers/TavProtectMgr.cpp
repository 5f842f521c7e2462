#include "TavProtectMgr.h"

#include "TavHeldValue.h"

#include <algorithm>

TavProtectMgr::TavProtectMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavProtectMgr::getObject()
{
    return this;
}

void TavProtectMgr::setSelfState(const STStateAsr &value)
{
    TavHeldValue::set(mutex, selfState, value);
}

STStateAsr TavProtectMgr::getSelfState()
{
    return TavHeldValue::get(mutex, selfState);
}

void TavProtectMgr::setKernelCount(const STProtectCountAsr &value)
{
    TavHeldValue::set(mutex, kernelCount, value);
}

STProtectCountAsr TavProtectMgr::getKernelCount()
{
    return TavHeldValue::get(mutex, kernelCount);
}

void TavProtectMgr::setKernelContent(const QVector<STKernelContentAsr> &value)
{
    TavHeldValue::set(mutex, kernelContent, value);
}

QVector<STKernelContentAsr> TavProtectMgr::getKernelContent()
{
    return TavHeldValue::get(mutex, kernelContent);
}

void TavProtectMgr::setProCount(const STProtectCountAsr &value)
{
    TavHeldValue::set(mutex, proCount, value);
}

STProtectCountAsr TavProtectMgr::getProCount()
{
    return TavHeldValue::get(mutex, proCount);
}

void TavProtectMgr::setProContentList(const QVector<STProProtectContentAsr> &value)
{
    TavHeldValue::set(mutex, proContentList, value);
}

QVector<STProProtectContentAsr> TavProtectMgr::getProContentList()
{
    return TavHeldValue::get(mutex, proContentList);
}

void TavProtectMgr::setDirCount(const STProtectCountAsr &value)
{
    TavHeldValue::set(mutex, dirCount, value);
}

STProtectCountAsr TavProtectMgr::getDirCount()
{
    return TavHeldValue::get(mutex, dirCount);
}

void TavProtectMgr::setDirContent(const QVector<STDirProtectContentAsr> &value)
{
    TavHeldValue::set(mutex, dirContent, value);
}

QVector<STDirProtectContentAsr> TavProtectMgr::getDirContent()
{
    return TavHeldValue::get(mutex, dirContent);
}

void TavProtectMgr::setFileCount(const STProtectCountAsr &value)
{
    TavHeldValue::set(mutex, fileCount, value);
}

STProtectCountAsr TavProtectMgr::getFileCount()
{
    return TavHeldValue::get(mutex, fileCount);
}

void TavProtectMgr::setFileContent(const QVector<STFileProtectContentAsr> &value)
{
    TavHeldValue::set(mutex, fileContent, value);
}

QVector<STFileProtectContentAsr> TavProtectMgr::getFileContent()
{
    return TavHeldValue::get(mutex, fileContent);
}

void TavProtectMgr::setProtectUIData(const QVector<STSystemProUIData> &value)
{
    TavHeldValue::set(mutex, protectUIData, value);
}

QVector<STSystemProUIData> TavProtectMgr::getProtectUIData()
{
    return TavHeldValue::get(mutex, protectUIData);
}

void TavProtectMgr::setKernelState(const STStateAsr &value)
{
    TavHeldValue::set(mutex, kernelState, value);
}

STStateAsr TavProtectMgr::getKernelState()
{
    return TavHeldValue::get(mutex, kernelState);
}

void TavProtectMgr::setProState(const STStateAsr &value)
{
    TavHeldValue::set(mutex, proState, value);
}

STStateAsr TavProtectMgr::getProState()
{
    return TavHeldValue::get(mutex, proState);
}

void TavProtectMgr::setDirState(const STStateAsr &value)
{
    TavHeldValue::set(mutex, dirState, value);
}

STStateAsr TavProtectMgr::getDirState()
{
    return TavHeldValue::get(mutex, dirState);
}

void TavProtectMgr::setProtoCount(const Tav::SystemProtect::ContentCountAsr &value)
{
    TavHeldValue::set(mutex, protoCount, value);
}

Tav::SystemProtect::ContentCountAsr TavProtectMgr::getProtoCount()
{
    return TavHeldValue::get(mutex, protoCount);
}

void TavProtectMgr::setKernelBlkContent(const Tav::SystemProtect::KernelBlkProtectContentAsr &value)
{
    TavHeldValue::set(mutex, kernelBlkContent, value);
}

Tav::SystemProtect::KernelBlkProtectContentAsr TavProtectMgr::getKernelBlkContent()
{
    return TavHeldValue::get(mutex, kernelBlkContent);
}

void TavProtectMgr::setKernelBlkMode(const STStateAsr &value)
{
    TavHeldValue::set(mutex, kernelBlkMode, value);
}

STStateAsr TavProtectMgr::getKernelBlkMode()
{
    return TavHeldValue::get(mutex, kernelBlkMode);
}

void TavProtectMgr::setSoftUnloadCount(const Tav::SystemProtect::ContentCountAsr &value)
{
    TavHeldValue::set(mutex, softUnloadCount, value);
}

Tav::SystemProtect::ContentCountAsr TavProtectMgr::getSoftUnloadCount()
{
    return TavHeldValue::get(mutex, softUnloadCount);
}

void TavProtectMgr::setSoftUnloadContent(const Tav::SystemProtect::SoftUnloadProtectContentAsr &value)
{
    TavHeldValue::set(mutex, softUnloadContent, value);
}

Tav::SystemProtect::SoftUnloadProtectContentAsr TavProtectMgr::getSoftUnloadContent()
{
    return TavHeldValue::get(mutex, softUnloadContent);
}

void TavProtectMgr::setSoftUnloadMode(const STStateAsr &value)
{
    TavHeldValue::set(mutex, softUnloadMode, value);
}

STStateAsr TavProtectMgr::getSoftUnloadMode()
{
    return TavHeldValue::get(mutex, softUnloadMode);
}

void TavProtectMgr::setFileState(const STStateAsr &value)
{
    TavHeldValue::set(mutex, fileState, value);
}

STStateAsr TavProtectMgr::getFileState()
{
    return TavHeldValue::get(mutex, fileState);
}

void TavProtectMgr::setFileSmash(const Tav::SystemProtect::FileSmashAsr &value)
{
    TavHeldValue::set(mutex, fileSmash, value);
}

Tav::SystemProtect::FileSmashAsr TavProtectMgr::getFileSmash()
{
    return TavHeldValue::get(mutex, fileSmash);
}

void TavProtectMgr::updateUIItem(const STSystemProUIData &item)
{
    QMutexLocker lock(&mutex);
    // By the key alone, and only the first such row.
    const auto sameKey = [&item](const STSystemProUIData &row) { return row.itemKey == item.itemKey; };
    const auto row = std::find_if(protectUIData.begin(), protectUIData.end(), sameKey);
    if (row != protectUIData.end()) {
        *row = item;
    }
}

void TavProtectMgr::setUIAllCheck(bool check)
{
    QMutexLocker lock(&mutex);
    for (STSystemProUIData &row : protectUIData) {
        row.isChecked = check;
    }
}
