// The managers' classes: their own virtual operations and their members, in the order in which they are declared. Each
// list here is the golden one. Members are private; this file is compiled without access control.

#include "Slots.h"

#include "TavAccessControlMgr.h"
#include "TavAuditMgr.h"
#include "TavAuthInfoMgr.h"
#include "TavCompleteProtectMgr.h"
#include "TavDataPlugin.h"
#include "TavDevCtlMgr.h"
#include "TavFuncTypeMgr.h"
#include "TavHostInfoMgr.h"
#include "TavLineScanMgr.h"
#include "TavNetControlMgr.h"
#include "TavOneReinforceMgr.h"
#include "TavOperations.h"
#include "TavPicResourceMgr.h"
#include "TavProExceptionMgr.h"
#include "TavProtectMgr.h"
#include "TavSelectFuncMgr.h"
#include "TavSystemConfigMgr.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

using TavOperations::overload;

namespace
{
/// Expects these operations behind those of QObject, in this order and no other.
template<class Class, class... Operations>
void expectOperations(Operations... operations)
{
    const int first = slotCount<QObject>();
    const std::vector<int> indices{slotIndex(operations)...};
    for (int number = 0; number < int(indices.size()); ++number) {
        EXPECT_EQ(indices[number], first + number) << "operation " << number + 1;
    }
    EXPECT_EQ(slotCount<Class>(), first + int(indices.size())) << "operations that are not listed";
}

std::size_t roundedUp(std::size_t offset, std::size_t alignment)
{
    return (offset + alignment - 1) / alignment * alignment;
}

template<class Member, class Class>
std::size_t offsetOf(Member Class::*member)
{
    std::ptrdiff_t offset; // what a pointer to a data member is
    static_assert(sizeof(member) == sizeof(offset));
    std::memcpy(&offset, &member, sizeof(offset));
    return static_cast<std::size_t>(offset);
}

/// Expects these members, in this order and no other, behind the two bases of @p Class.
template<class Class, class... Members>
void expectMembers(Members Class::*...members)
{
    struct Bases : QObject {
        void *interface;
    };
    struct Place {
        std::size_t offset, size, alignment;
    };
    const std::vector<Place> places{{offsetOf(members), sizeof(Members), alignof(Members)}...};
    std::size_t end = sizeof(Bases);
    for (const Place &place : places) {
        EXPECT_EQ(place.offset, roundedUp(end, place.alignment)) << "member " << &place - places.data() + 1;
        end = place.offset + place.size;
    }
    EXPECT_EQ(sizeof(Class), roundedUp(end, alignof(Class))) << "members that are not listed";
}
}

TEST(ClassLayout, OfThePlugin)
{
    using C = TavDataPlugin;
    expectOperations<C>(&C::registerObj);
    expectMembers<C>();
}

TEST(ClassLayout, OfTheCatalogue)
{
    using C = TavFuncTypeMgr;
    expectOperations<C>(
        &C::getObject, &C::loadConfig, &C::loadIniConfig, &C::getFuncInfoData, &C::getFuncInfos,
        overload<QVector<TavSubFuncTypeData_>(const CTavFuncTypeHeader::TavFuncTypeHeader_ &)>(&C::getSubFuncInfo),
        overload<TavSubFuncTypeData_(const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &)>(&C::getSubFuncInfo),
        overload<QVector<TavSubFuncTypeData_>()>(&C::getSubFuncInfo), &C::getFirstSubFuncType);
    expectMembers<C>(&C::funcList, &C::subFuncList, &C::mutex);
}

TEST(ClassLayout, OfThePictures)
{
    using C = TavPicResourceMgr;
    expectOperations<C>(&C::getObject, &C::getImageRef, &C::appendPicResourcePath);
    expectMembers<C>(&C::images);
}

TEST(ClassLayout, OfTheSelection)
{
    using C = TavSelectFuncMgr;
    expectOperations<C>(&C::getObject, &C::setCurSelFuncType, &C::getCurSelFuncType, &C::setCurSelSubFuncType,
                        &C::getCurSelSubFuncType, &C::setCurSelType);
    expectMembers<C>(&C::curSelFuncType, &C::curSelSubFuncType, &C::mutex);
}

TEST(ClassLayout, OfAccessControl)
{
    using C = TavAccessControlMgr;
    expectOperations<C>(&C::getObject, &C::updateSystemUsers, &C::getSystemUsers, &C::updateUIUsers, &C::getUIUsers,
                        &C::updateUIUser, &C::uncheckAllUIUsers, &C::getCheckObjectLevel, &C::updateUserDetail,
                        overload<QVector<STPriDetailAsr>(int)>(&C::getUserDetail),
                        overload<QVector<STPriDetailAsr>()>(&C::getUserDetail), &C::getCheckPriLevel, &C::hasUserDetail,
                        overload<void(const QVector<STAccessSetUIData> &)>(&C::updateUIPriData),
                        overload<void(const STAccessSetUIData &)>(&C::updateUIPriData), &C::getUIPriData,
                        &C::updateObjectDetail, overload<QVector<STObjectDetailAsr>(int, bool)>(&C::getObjectDetail),
                        overload<QVector<STObjectDetailAsr>()>(&C::getObjectDetail),
                        overload<void(const QVector<STAccessSetUIData> &)>(&C::updateUIObjectData),
                        overload<void(const STAccessSetUIData &)>(&C::updateUIObjectData), &C::getUIObjectData,
                        &C::updateUIFiles, &C::getUIFiles, &C::updateUIFile, &C::setObjectCount, &C::getObjectCount,
                        &C::setModeConfig, &C::getModeConfig, &C::setState, &C::getState, &C::clearCacheData);
    expectMembers<C>(&C::systemUsers, &C::userDetails, &C::uiUsers, &C::uiPriData, &C::objectDetailsOn,
                     &C::objectDetailsOff, &C::uiObjectData, &C::uiFiles, &C::objectCountsOff, &C::objectCountsOn,
                     &C::modeConfig, &C::mutex, &C::state);
}

TEST(ClassLayout, OfIntegrityMeasurement)
{
    using C = TavCompleteProtectMgr;
    expectOperations<C>(&C::getObject, &C::setCurPathState, &C::getCurPathState, &C::setSystemScanState,
                        &C::getSystemScanState, &C::setImaCount, &C::getImaCount, &C::setImaState, &C::getImaState,
                        &C::setImaList, &C::getImaList, &C::setImaInitState, &C::getImaInitState, &C::setSingleScanId,
                        &C::getSingleScanId, &C::setDySCanState, &C::getDySCanState, &C::setDyTimeInterval,
                        &C::getDyTimeInterval, &C::setCompleteMeasure, &C::getCompleteMeasure, &C::setCredibleList,
                        &C::getCredibleList, &C::setCredibleCount, &C::getCredibleCount, &C::setCredibleMode,
                        &C::getCredibleMode, &C::setCredibleVecUI, &C::getCredibleVecUI, &C::setCredibleImteUI);
    expectMembers<C>(&C::mutex, &C::curPathState, &C::systemScanState, &C::imaCount, &C::imaState, &C::imaInitState,
                     &C::imaList, &C::singleScanId, &C::credibleList, &C::credibleCount, &C::credibleMode,
                     &C::credibleVecUI, &C::dyScanState, &C::dyTimeInterval, &C::completeMeasure);
}

TEST(ClassLayout, OfProtection)
{
    using C = TavProtectMgr;
    expectOperations<C>(
        &C::getObject, &C::setSelfState, &C::getSelfState, &C::setKernelCount, &C::getKernelCount, &C::setKernelContent,
        &C::getKernelContent, &C::setProCount, &C::getProCount, &C::setProContentList, &C::getProContentList,
        &C::setDirCount, &C::getDirCount, &C::setDirContent, &C::getDirContent, &C::setFileCount, &C::getFileCount,
        &C::setFileContent, &C::getFileContent, &C::setProtectUIData, &C::getProtectUIData, &C::setKernelState,
        &C::getKernelState, &C::setProState, &C::getProState, &C::setDirState, &C::getDirState, &C::setProtoCount,
        &C::getProtoCount, &C::setKernelBlkContent, &C::getKernelBlkContent, &C::setKernelBlkMode, &C::getKernelBlkMode,
        &C::setSoftUnloadCount, &C::getSoftUnloadCount, &C::setSoftUnloadContent, &C::getSoftUnloadContent,
        &C::setSoftUnloadMode, &C::getSoftUnloadMode, &C::setFileState, &C::getFileState, &C::setFileSmash,
        &C::getFileSmash, &C::updateUIItem, &C::setUIAllCheck);
    expectMembers<C>(&C::mutex, &C::selfState, &C::kernelState, &C::kernelCount, &C::kernelContent, &C::proState,
                     &C::proCount, &C::proContentList, &C::dirState, &C::dirCount, &C::dirContent, &C::fileSmash,
                     &C::fileState, &C::fileCount, &C::fileContent, &C::kernelBlkMode, &C::protoCount,
                     &C::kernelBlkContent, &C::softUnloadMode, &C::softUnloadCount, &C::softUnloadContent,
                     &C::protectUIData);
}

TEST(ClassLayout, OfTheAudit)
{
    using C = TavAuditMgr;
    expectOperations<C>(&C::getObject, &C::setAuditCount, &C::getAuditCount, &C::setAuditTypeCount,
                        &C::getAuditTypeCount, &C::setAuditMonthCount, &C::getAuditMonthCount, &C::setAuditContent,
                        &C::getAuditContent, &C::setAuditMonthFailCount, &C::getAuditMonthFailCount);
    expectMembers<C>(&C::mutex, &C::auditCount, &C::auditContent, &C::auditTypeCount, &C::auditMonthCount,
                     &C::auditMonthFailCount);
}

TEST(ClassLayout, OfTheHost)
{
    using C = TavHostInfoMgr;
    expectOperations<C>(&C::getObject, &C::setResourceInfo, &C::getResourceInfo, &C::setKernelSigState,
                        &C::getKernelSigState);
    expectMembers<C>(&C::mutex, &C::resourceInfo, &C::kernelSigState);
}

TEST(ClassLayout, OfHardening)
{
    using C = TavOneReinforceMgr;
    expectOperations<C>(&C::getObject, &C::setreinforceMode, &C::getreinforceMode, &C::setthreeConfig,
                        &C::getthreeConfig, &C::setreforcePolicy, &C::getreforcePolicy, &C::setStateInfo,
                        &C::getStateInfo, &C::setSecswitchContent, &C::getSecswitchContent, &C::setReforceFinishState,
                        &C::getReforceFinishState);
    expectMembers<C>(&C::mutex, &C::reinforceMode, &C::threeConfig, &C::reforcePolicy, &C::reforceFinishState,
                     &C::stateInfo, &C::secswitchContent);
}

TEST(ClassLayout, OfTheBaselineScan)
{
    using C = TavLineScanMgr;
    expectOperations<C>(&C::getObject, &C::setLineScanContent, &C::getLineScanContent, &C::setLineCount,
                        &C::getLineCount, &C::setscanState, &C::getscanState, &C::setScanItemConfigErr,
                        &C::getScanItemConfigErr, &C::setLineLevel, &C::getLineLevel, &C::loadJsonConfig,
                        &C::getItemConfig);
    expectMembers<C>(&C::mutex, &C::lineScanContent, &C::lineCount, &C::scanState, &C::scanItemConfigErr, &C::lineLevel,
                     &C::itemConfig);
}

TEST(ClassLayout, OfNetworkControl)
{
    using C = TavNetControlMgr;
    expectOperations<C>(&C::getObject, &C::setNetCount, &C::getNetCount, &C::setUIData, &C::getUIData, &C::setState,
                        &C::getState, &C::setDeviceInfo, &C::getDeviceInfo, &C::setRuleInfo, &C::getRuleInfo,
                        &C::updateUIItem, &C::setAllCheck, &C::reverseDeviceState, &C::reverseDevicesState);
    expectMembers<C>(&C::mutex, &C::netCount, &C::uiData, &C::state, &C::deviceInfo, &C::ruleInfo);
}

TEST(ClassLayout, OfTheLogIn)
{
    using C = TavAuthInfoMgr;
    expectOperations<C>(&C::getObject, &C::setLoginCheck, &C::getLoginCheck, &C::setPwdChange, &C::getPwdChange);
    expectMembers<C>(&C::mutex, &C::loginCheck, &C::pwdChange);
}

TEST(ClassLayout, OfTheSystemConfiguration)
{
    using C = TavSystemConfigMgr;
    expectOperations<C>(&C::getObject, &C::setServerInfo, &C::getServerInfo, &C::setOnlineState, &C::getOnlineState);
    expectMembers<C>(&C::mutex, &C::serverInfo, &C::onlineState);
}

TEST(ClassLayout, OfTheDevices)
{
    using C = TavDevCtlMgr;
    expectOperations<C>(&C::getObject, &C::setUsbInfoList, &C::getUsbInfoList, &C::setFuncEnableInfo,
                        &C::getFuncEnableInfo);
    expectMembers<C>(&C::mutex, &C::usbInfoList, &C::funcEnableInfo);
}

TEST(ClassLayout, OfProcessExceptions)
{
    using C = TavProExceptionMgr;
    expectOperations<C>(&C::getObject, &C::setPriException, &C::getPriException,
                        overload<void(const QVector<STProtoDataContainer> &)>(&C::setUIData), &C::getUIData,
                        overload<void(const STProtoDataContainer &)>(&C::setUIData));
    expectMembers<C>(&C::mutex, &C::priException, &C::uiData);
}
