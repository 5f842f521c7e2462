#include "abi/Golden.h"

#include "STAccessSetUIData.h"
#include "STAuditContentAsr.h"
#include "STAuditCountAsr.h"
#include "STAuditMonthCountAsr.h"
#include "STAuditTypeCountAsr.h"
#include "STBLEnableConfig.h"
#include "STDirProtectContentAsr.h"
#include "STFileProtectContentAsr.h"
#include "STImaContentAsr.h"
#include "STImaCountAsr.h"
#include "STImaInitStateAsr.h"
#include "STImaStateAsr.h"
#include "STKernelContentAsr.h"
#include "STLookUsersAsr.h"
#include "STObjectAddUIData.h"
#include "STObjectDetailAsr.h"
#include "STPriAddUIData.h"
#include "STPriDetailAsr.h"
#include "STProProtectContentAsr.h"
#include "STProtectCountAsr.h"
#include "STProtoDataContainer.h"
#include "STResourceInfoAsr.h"
#include "STSingleScanAsr.h"
#include "STStateAsr.h"
#include "STStateInfo.h"
#include "STStaticCurPathAsr.h"
#include "STSystemProUIData.h"
#include "STSystemScanStateAsr.h"
#include "TavFuncTypeData_.h"
#include "TavSubFuncTypeData_.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace
{
template<class Record, class Type>
FieldLayout field(const char *name, std::size_t offset, Type Record::*)
{
    return {name, offset, sizeof(Type), alignof(Type)};
}

const std::vector<RecordLayout> records = {
    {"STAccessSetUIData",
     sizeof(STAccessSetUIData),
     alignof(STAccessSetUIData),
     {
         field("level", offsetof(STAccessSetUIData, level), &STAccessSetUIData::level),
         field("labels", offsetof(STAccessSetUIData, labels), &STAccessSetUIData::labels),
         field("extraFlag", offsetof(STAccessSetUIData, extraFlag), &STAccessSetUIData::extraFlag),
         field("checked", offsetof(STAccessSetUIData, checked), &STAccessSetUIData::checked),
     }},
    {"STAuditContentAsr",
     sizeof(STAuditContentAsr),
     alignof(STAuditContentAsr),
     {
         field("time", offsetof(STAuditContentAsr, time), &STAuditContentAsr::time),
         field("type", offsetof(STAuditContentAsr, type), &STAuditContentAsr::type),
         field("result", offsetof(STAuditContentAsr, result), &STAuditContentAsr::result),
         field("pid", offsetof(STAuditContentAsr, pid), &STAuditContentAsr::pid),
         field("uid", offsetof(STAuditContentAsr, uid), &STAuditContentAsr::uid),
         field("userName", offsetof(STAuditContentAsr, userName), &STAuditContentAsr::userName),
         field("processName", offsetof(STAuditContentAsr, processName), &STAuditContentAsr::processName),
         field("object", offsetof(STAuditContentAsr, object), &STAuditContentAsr::object),
         field("detail", offsetof(STAuditContentAsr, detail), &STAuditContentAsr::detail),
     }},
    {"STAuditCountAsr",
     sizeof(STAuditCountAsr),
     alignof(STAuditCountAsr),
     {
         field("count", offsetof(STAuditCountAsr, count), &STAuditCountAsr::count),
     }},
    {"STAuditMonthCountAsr",
     sizeof(STAuditMonthCountAsr),
     alignof(STAuditMonthCountAsr),
     {
         field("year", offsetof(STAuditMonthCountAsr, year), &STAuditMonthCountAsr::year),
         field("month", offsetof(STAuditMonthCountAsr, month), &STAuditMonthCountAsr::month),
         field("count", offsetof(STAuditMonthCountAsr, count), &STAuditMonthCountAsr::count),
     }},
    {"STAuditTypeCountAsr",
     sizeof(STAuditTypeCountAsr),
     alignof(STAuditTypeCountAsr),
     {
         field("type", offsetof(STAuditTypeCountAsr, type), &STAuditTypeCountAsr::type),
         field("count", offsetof(STAuditTypeCountAsr, count), &STAuditTypeCountAsr::count),
     }},
    {"STBLEnableConfig",
     sizeof(STBLEnableConfig),
     alignof(STBLEnableConfig),
     {
         field("name", offsetof(STBLEnableConfig, name), &STBLEnableConfig::name),
         field("itemId", offsetof(STBLEnableConfig, itemId), &STBLEnableConfig::itemId),
         field("standardValue", offsetof(STBLEnableConfig, standardValue), &STBLEnableConfig::standardValue),
         field("extraText", offsetof(STBLEnableConfig, extraText), &STBLEnableConfig::extraText),
         field("desc", offsetof(STBLEnableConfig, desc), &STBLEnableConfig::desc),
         field("checkValueScript", offsetof(STBLEnableConfig, checkValueScript), &STBLEnableConfig::checkValueScript),
         field("btntext", offsetof(STBLEnableConfig, btntext), &STBLEnableConfig::btntext),
         field("type", offsetof(STBLEnableConfig, type), &STBLEnableConfig::type),
     }},
    {"STDirProtectContentAsr",
     sizeof(STDirProtectContentAsr),
     alignof(STDirProtectContentAsr),
     {
         field("updateTime", offsetof(STDirProtectContentAsr, updateTime), &STDirProtectContentAsr::updateTime),
         field("id", offsetof(STDirProtectContentAsr, id), &STDirProtectContentAsr::id),
         field("state", offsetof(STDirProtectContentAsr, state), &STDirProtectContentAsr::state),
         field("recursive", offsetof(STDirProtectContentAsr, recursive), &STDirProtectContentAsr::recursive),
         field("fileCount", offsetof(STDirProtectContentAsr, fileCount), &STDirProtectContentAsr::fileCount),
         field("path", offsetof(STDirProtectContentAsr, path), &STDirProtectContentAsr::path),
     }},
    {"STFileProtectContentAsr",
     sizeof(STFileProtectContentAsr),
     alignof(STFileProtectContentAsr),
     {
         field("size", offsetof(STFileProtectContentAsr, size), &STFileProtectContentAsr::size),
         field("modifyTime", offsetof(STFileProtectContentAsr, modifyTime), &STFileProtectContentAsr::modifyTime),
         field("id", offsetof(STFileProtectContentAsr, id), &STFileProtectContentAsr::id),
         field("state", offsetof(STFileProtectContentAsr, state), &STFileProtectContentAsr::state),
         field("uid", offsetof(STFileProtectContentAsr, uid), &STFileProtectContentAsr::uid),
         field("gid", offsetof(STFileProtectContentAsr, gid), &STFileProtectContentAsr::gid),
         field("mode", offsetof(STFileProtectContentAsr, mode), &STFileProtectContentAsr::mode),
         field("path", offsetof(STFileProtectContentAsr, path), &STFileProtectContentAsr::path),
         field("algorithm", offsetof(STFileProtectContentAsr, algorithm), &STFileProtectContentAsr::algorithm),
         field("digest", offsetof(STFileProtectContentAsr, digest), &STFileProtectContentAsr::digest),
     }},
    {"STImaContentAsr",
     sizeof(STImaContentAsr),
     alignof(STImaContentAsr),
     {
         field("pcr", offsetof(STImaContentAsr, pcr), &STImaContentAsr::pcr),
         field("state", offsetof(STImaContentAsr, state), &STImaContentAsr::state),
         field("templateHash", offsetof(STImaContentAsr, templateHash), &STImaContentAsr::templateHash),
         field("templateName", offsetof(STImaContentAsr, templateName), &STImaContentAsr::templateName),
         field("algorithm", offsetof(STImaContentAsr, algorithm), &STImaContentAsr::algorithm),
         field("fileDigest", offsetof(STImaContentAsr, fileDigest), &STImaContentAsr::fileDigest),
         field("path", offsetof(STImaContentAsr, path), &STImaContentAsr::path),
     }},
    {"STImaCountAsr",
     sizeof(STImaCountAsr),
     alignof(STImaCountAsr),
     {
         field("count", offsetof(STImaCountAsr, count), &STImaCountAsr::count),
     }},
    {"STImaInitStateAsr",
     sizeof(STImaInitStateAsr),
     alignof(STImaInitStateAsr),
     {
         field("initState", offsetof(STImaInitStateAsr, initState), &STImaInitStateAsr::initState),
     }},
    {"STImaStateAsr",
     sizeof(STImaStateAsr),
     alignof(STImaStateAsr),
     {
         field("mode", offsetof(STImaStateAsr, mode), &STImaStateAsr::mode),
         field("state", offsetof(STImaStateAsr, state), &STImaStateAsr::state),
         field("violations", offsetof(STImaStateAsr, violations), &STImaStateAsr::violations),
         field("hasTpm", offsetof(STImaStateAsr, hasTpm), &STImaStateAsr::hasTpm),
     }},
    {"STKernelContentAsr",
     sizeof(STKernelContentAsr),
     alignof(STKernelContentAsr),
     {
         field("size", offsetof(STKernelContentAsr, size), &STKernelContentAsr::size),
         field("id", offsetof(STKernelContentAsr, id), &STKernelContentAsr::id),
         field("state", offsetof(STKernelContentAsr, state), &STKernelContentAsr::state),
         field("loaded", offsetof(STKernelContentAsr, loaded), &STKernelContentAsr::loaded),
         field("refCount", offsetof(STKernelContentAsr, refCount), &STKernelContentAsr::refCount),
         field("name", offsetof(STKernelContentAsr, name), &STKernelContentAsr::name),
         field("path", offsetof(STKernelContentAsr, path), &STKernelContentAsr::path),
         field("algorithm", offsetof(STKernelContentAsr, algorithm), &STKernelContentAsr::algorithm),
         field("digest", offsetof(STKernelContentAsr, digest), &STKernelContentAsr::digest),
     }},
    {"STLookUsersAsr",
     sizeof(STLookUsersAsr),
     alignof(STLookUsersAsr),
     {
         field("uid", offsetof(STLookUsersAsr, uid), &STLookUsersAsr::uid),
         field("gid", offsetof(STLookUsersAsr, gid), &STLookUsersAsr::gid),
         field("locked", offsetof(STLookUsersAsr, locked), &STLookUsersAsr::locked),
         field("canLogin", offsetof(STLookUsersAsr, canLogin), &STLookUsersAsr::canLogin),
         field("name", offsetof(STLookUsersAsr, name), &STLookUsersAsr::name),
         field("fullName", offsetof(STLookUsersAsr, fullName), &STLookUsersAsr::fullName),
         field("home", offsetof(STLookUsersAsr, home), &STLookUsersAsr::home),
         field("shell", offsetof(STLookUsersAsr, shell), &STLookUsersAsr::shell),
     }},
    {"STObjectAddUIData",
     sizeof(STObjectAddUIData),
     alignof(STObjectAddUIData),
     {
         field("checked", offsetof(STObjectAddUIData, checked), &STObjectAddUIData::checked),
         field("fileName", offsetof(STObjectAddUIData, fileName), &STObjectAddUIData::fileName),
         field("filePath", offsetof(STObjectAddUIData, filePath), &STObjectAddUIData::filePath),
     }},
    {"STObjectDetailAsr",
     sizeof(STObjectDetailAsr),
     alignof(STObjectDetailAsr),
     {
         field("size", offsetof(STObjectDetailAsr, size), &STObjectDetailAsr::size),
         field("updateTime", offsetof(STObjectDetailAsr, updateTime), &STObjectDetailAsr::updateTime),
         field("level", offsetof(STObjectDetailAsr, level), &STObjectDetailAsr::level),
         field("permission", offsetof(STObjectDetailAsr, permission), &STObjectDetailAsr::permission),
         field("type", offsetof(STObjectDetailAsr, type), &STObjectDetailAsr::type),
         field("state", offsetof(STObjectDetailAsr, state), &STObjectDetailAsr::state),
         field("uid", offsetof(STObjectDetailAsr, uid), &STObjectDetailAsr::uid),
         field("userName", offsetof(STObjectDetailAsr, userName), &STObjectDetailAsr::userName),
         field("fileName", offsetof(STObjectDetailAsr, fileName), &STObjectDetailAsr::fileName),
         field("filePath", offsetof(STObjectDetailAsr, filePath), &STObjectDetailAsr::filePath),
     }},
    {"STPriAddUIData",
     sizeof(STPriAddUIData),
     alignof(STPriAddUIData),
     {
         field("checked", offsetof(STPriAddUIData, checked), &STPriAddUIData::checked),
         field("userName", offsetof(STPriAddUIData, userName), &STPriAddUIData::userName),
         field("userNumber", offsetof(STPriAddUIData, userNumber), &STPriAddUIData::userNumber),
         field("userText", offsetof(STPriAddUIData, userText), &STPriAddUIData::userText),
     }},
    {"STPriDetailAsr",
     sizeof(STPriDetailAsr),
     alignof(STPriDetailAsr),
     {
         field("userName", offsetof(STPriDetailAsr, userName), &STPriDetailAsr::userName),
         field("uid", offsetof(STPriDetailAsr, uid), &STPriDetailAsr::uid),
         field("level", offsetof(STPriDetailAsr, level), &STPriDetailAsr::level),
         field("permission", offsetof(STPriDetailAsr, permission), &STPriDetailAsr::permission),
         field("state", offsetof(STPriDetailAsr, state), &STPriDetailAsr::state),
         field("updateTime", offsetof(STPriDetailAsr, updateTime), &STPriDetailAsr::updateTime),
         field("processPath", offsetof(STPriDetailAsr, processPath), &STPriDetailAsr::processPath),
     }},
    {"STProProtectContentAsr",
     sizeof(STProProtectContentAsr),
     alignof(STProProtectContentAsr),
     {
         field("startTime", offsetof(STProProtectContentAsr, startTime), &STProProtectContentAsr::startTime),
         field("id", offsetof(STProProtectContentAsr, id), &STProProtectContentAsr::id),
         field("state", offsetof(STProProtectContentAsr, state), &STProProtectContentAsr::state),
         field("pid", offsetof(STProProtectContentAsr, pid), &STProProtectContentAsr::pid),
         field("uid", offsetof(STProProtectContentAsr, uid), &STProProtectContentAsr::uid),
         field("userName", offsetof(STProProtectContentAsr, userName), &STProProtectContentAsr::userName),
         field("name", offsetof(STProProtectContentAsr, name), &STProProtectContentAsr::name),
         field("path", offsetof(STProProtectContentAsr, path), &STProProtectContentAsr::path),
     }},
    {"STProtectCountAsr",
     sizeof(STProtectCountAsr),
     alignof(STProtectCountAsr),
     {
         field("count", offsetof(STProtectCountAsr, count), &STProtectCountAsr::count),
     }},
    {"STProtoDataContainer",
     sizeof(STProtoDataContainer),
     alignof(STProtoDataContainer),
     {
         field("isChecked", offsetof(STProtoDataContainer, isChecked), &STProtoDataContainer::isChecked),
         field("index", offsetof(STProtoDataContainer, index), &STProtoDataContainer::index),
         field("protoData", offsetof(STProtoDataContainer, protoData), &STProtoDataContainer::protoData),
     }},
    {"STResourceInfoAsr",
     sizeof(STResourceInfoAsr),
     alignof(STResourceInfoAsr),
     {
         field("memoryTotal", offsetof(STResourceInfoAsr, memoryTotal), &STResourceInfoAsr::memoryTotal),
         field("memoryAvailable", offsetof(STResourceInfoAsr, memoryAvailable), &STResourceInfoAsr::memoryAvailable),
         field("swapTotal", offsetof(STResourceInfoAsr, swapTotal), &STResourceInfoAsr::swapTotal),
         field("swapFree", offsetof(STResourceInfoAsr, swapFree), &STResourceInfoAsr::swapFree),
         field("rootDiskTotal", offsetof(STResourceInfoAsr, rootDiskTotal), &STResourceInfoAsr::rootDiskTotal),
         field("rootDiskFree", offsetof(STResourceInfoAsr, rootDiskFree), &STResourceInfoAsr::rootDiskFree),
         field("diskTotal", offsetof(STResourceInfoAsr, diskTotal), &STResourceInfoAsr::diskTotal),
         field("diskFree", offsetof(STResourceInfoAsr, diskFree), &STResourceInfoAsr::diskFree),
         field("uptime", offsetof(STResourceInfoAsr, uptime), &STResourceInfoAsr::uptime),
         field("sampleTime", offsetof(STResourceInfoAsr, sampleTime), &STResourceInfoAsr::sampleTime),
         field("cpuCores", offsetof(STResourceInfoAsr, cpuCores), &STResourceInfoAsr::cpuCores),
         field("cpuUsage", offsetof(STResourceInfoAsr, cpuUsage), &STResourceInfoAsr::cpuUsage),
         field("loadAverage1", offsetof(STResourceInfoAsr, loadAverage1), &STResourceInfoAsr::loadAverage1),
         field("loadAverage5", offsetof(STResourceInfoAsr, loadAverage5), &STResourceInfoAsr::loadAverage5),
         field("loadAverage15", offsetof(STResourceInfoAsr, loadAverage15), &STResourceInfoAsr::loadAverage15),
         field("processCount", offsetof(STResourceInfoAsr, processCount), &STResourceInfoAsr::processCount),
         field("cpuModel", offsetof(STResourceInfoAsr, cpuModel), &STResourceInfoAsr::cpuModel),
         field("kernelRelease", offsetof(STResourceInfoAsr, kernelRelease), &STResourceInfoAsr::kernelRelease),
         field("machine", offsetof(STResourceInfoAsr, machine), &STResourceInfoAsr::machine),
         field("osName", offsetof(STResourceInfoAsr, osName), &STResourceInfoAsr::osName),
         field("hostName", offsetof(STResourceInfoAsr, hostName), &STResourceInfoAsr::hostName),
     }},
    {"STSingleScanAsr",
     sizeof(STSingleScanAsr),
     alignof(STSingleScanAsr),
     {
         field("scanId", offsetof(STSingleScanAsr, scanId), &STSingleScanAsr::scanId),
     }},
    {"STStateAsr",
     sizeof(STStateAsr),
     alignof(STStateAsr),
     {
         field("stateValue", offsetof(STStateAsr, stateValue), &STStateAsr::stateValue),
         field("stateExtra", offsetof(STStateAsr, stateExtra), &STStateAsr::stateExtra),
     }},
    {"STStateInfo",
     sizeof(STStateInfo),
     alignof(STStateInfo),
     {
         field("itemText", offsetof(STStateInfo, itemText), &STStateInfo::itemText),
         field("stateText", offsetof(STStateInfo, stateText), &STStateInfo::stateText),
     }},
    {"STStaticCurPathAsr",
     sizeof(STStaticCurPathAsr),
     alignof(STStaticCurPathAsr),
     {
         field("path", offsetof(STStaticCurPathAsr, path), &STStaticCurPathAsr::path),
     }},
    {"STSystemProUIData",
     sizeof(STSystemProUIData),
     alignof(STSystemProUIData),
     {
         field("isChecked", offsetof(STSystemProUIData, isChecked), &STSystemProUIData::isChecked),
         field("title", offsetof(STSystemProUIData, title), &STSystemProUIData::title),
         field("itemKey", offsetof(STSystemProUIData, itemKey), &STSystemProUIData::itemKey),
         field("detail", offsetof(STSystemProUIData, detail), &STSystemProUIData::detail),
         field("status", offsetof(STSystemProUIData, status), &STSystemProUIData::status),
     }},
    {"STSystemScanStateAsr",
     sizeof(STSystemScanStateAsr),
     alignof(STSystemScanStateAsr),
     {
         field("scanId", offsetof(STSystemScanStateAsr, scanId), &STSystemScanStateAsr::scanId),
         field("state", offsetof(STSystemScanStateAsr, state), &STSystemScanStateAsr::state),
         field("progress", offsetof(STSystemScanStateAsr, progress), &STSystemScanStateAsr::progress),
         field("scannedCount", offsetof(STSystemScanStateAsr, scannedCount), &STSystemScanStateAsr::scannedCount),
         field("totalCount", offsetof(STSystemScanStateAsr, totalCount), &STSystemScanStateAsr::totalCount),
         field("abnormalCount", offsetof(STSystemScanStateAsr, abnormalCount), &STSystemScanStateAsr::abnormalCount),
         field("startTime", offsetof(STSystemScanStateAsr, startTime), &STSystemScanStateAsr::startTime),
         field("endTime", offsetof(STSystemScanStateAsr, endTime), &STSystemScanStateAsr::endTime),
     }},
    {"TavFuncTypeData_",
     sizeof(TavFuncTypeData_),
     alignof(TavFuncTypeData_),
     {
         field("funcTitle", offsetof(TavFuncTypeData_, funcTitle), &TavFuncTypeData_::funcTitle),
         field("funcIcon", offsetof(TavFuncTypeData_, funcIcon), &TavFuncTypeData_::funcIcon),
         field("funcType", offsetof(TavFuncTypeData_, funcType), &TavFuncTypeData_::funcType),
         field("parentFuncType", offsetof(TavFuncTypeData_, parentFuncType), &TavFuncTypeData_::parentFuncType),
         field("funcEnabled", offsetof(TavFuncTypeData_, funcEnabled), &TavFuncTypeData_::funcEnabled),
         field("usrList", offsetof(TavFuncTypeData_, usrList), &TavFuncTypeData_::usrList),
     }},
    {"TavSubFuncTypeData_",
     sizeof(TavSubFuncTypeData_),
     alignof(TavSubFuncTypeData_),
     {
         field("subFuncTitle", offsetof(TavSubFuncTypeData_, subFuncTitle), &TavSubFuncTypeData_::subFuncTitle),
         field("funcType", offsetof(TavSubFuncTypeData_, funcType), &TavSubFuncTypeData_::funcType),
         field("subFuncType", offsetof(TavSubFuncTypeData_, subFuncType), &TavSubFuncTypeData_::subFuncType),
         field("realParentType", offsetof(TavSubFuncTypeData_, realParentType), &TavSubFuncTypeData_::realParentType),
         field("subFuncClassName", offsetof(TavSubFuncTypeData_, subFuncClassName),
               &TavSubFuncTypeData_::subFuncClassName),
         field("subFuncHelp", offsetof(TavSubFuncTypeData_, subFuncHelp), &TavSubFuncTypeData_::subFuncHelp),
         field("subFuncHasParent", offsetof(TavSubFuncTypeData_, subFuncHasParent),
               &TavSubFuncTypeData_::subFuncHasParent),
         field("subFuncEnabled", offsetof(TavSubFuncTypeData_, subFuncEnabled), &TavSubFuncTypeData_::subFuncEnabled),
     }},
};

/// Whether a field may have been left out of the list: a hole that alignment does not explain.
bool hasHole(const RecordLayout &record)
{
    std::size_t end = 0;
    for (const FieldLayout &field : record.fields) {
        const std::size_t alignment = std::min(field.alignment, record.alignment);
        if (field.offset < end || field.offset - end >= alignment) {
            return true;
        }
        end = field.offset + field.size;
    }
    return record.size < end || record.size - end >= record.alignment;
}
}

TEST(RecordLayout, IsTheOneThatPagesWereCompiledWith)
{
    EXPECT_EQ(described(records), golden("records.txt"));
}

TEST(RecordLayout, ListsEveryField)
{
    for (const RecordLayout &record : records) {
        EXPECT_FALSE(hasHole(record)) << record.name.toStdString();
    }
}
