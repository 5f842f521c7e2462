// The members of the managers, in the order in which they are declared: the reverse of the order in which they end. They
// are private; this file is compiled without access control.

#include "TavAccessControlMgr.h"
#include "TavAuditMgr.h"
#include "TavAuthInfoMgr.h"
#include "TavCompleteProtectMgr.h"
#include "TavDevCtlMgr.h"
#include "TavFuncTypeMgr.h"
#include "TavHostInfoMgr.h"
#include "TavLineScanMgr.h"
#include "TavNetControlMgr.h"
#include "TavOneReinforceMgr.h"
#include "TavPicResourceMgr.h"
#include "TavProExceptionMgr.h"
#include "TavProtectMgr.h"
#include "TavSelectFuncMgr.h"
#include "TavSystemConfigMgr.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace
{
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
    std::size_t end = sizeof(Bases);
    std::size_t number = 0;
    const auto expectNext = [&](auto member, std::size_t size, std::size_t alignment) {
        ++number;
        const std::size_t offset = offsetOf(member);
        EXPECT_EQ(offset, roundedUp(end, alignment)) << "member " << number;
        end = offset + size;
    };
    (expectNext(members, sizeof(Members), alignof(Members)), ...);
    EXPECT_EQ(sizeof(Class), roundedUp(end, alignof(Class))) << "members that are not listed";
}
}

TEST(ClassMembers, OfTheCatalogue)
{
    using Mgr = TavFuncTypeMgr;
    expectMembers(&Mgr::funcList, &Mgr::subFuncList, &Mgr::mutex);
}

TEST(ClassMembers, OfThePicturesAreTheCacheAlone)
{
    expectMembers(&TavPicResourceMgr::images);
}

TEST(ClassMembers, OfTheSelection)
{
    using Mgr = TavSelectFuncMgr;
    expectMembers(&Mgr::curSelFuncType, &Mgr::curSelSubFuncType, &Mgr::mutex);
}

TEST(ClassMembers, OfAccessControl)
{
    using Mgr = TavAccessControlMgr;
    expectMembers(&Mgr::systemUsers, &Mgr::userDetails, &Mgr::uiUsers, &Mgr::uiPriData, &Mgr::objectDetailsOn,
                  &Mgr::objectDetailsOff, &Mgr::uiObjectData, &Mgr::uiFiles, &Mgr::objectCountsOff,
                  &Mgr::objectCountsOn, &Mgr::modeConfig, &Mgr::mutex, &Mgr::state);
}

TEST(ClassMembers, OfIntegrityMeasurement)
{
    using Mgr = TavCompleteProtectMgr;
    expectMembers(&Mgr::mutex, &Mgr::curPathState, &Mgr::systemScanState, &Mgr::imaCount, &Mgr::imaState,
                  &Mgr::imaInitState, &Mgr::imaList, &Mgr::singleScanId, &Mgr::credibleList, &Mgr::credibleCount,
                  &Mgr::credibleMode, &Mgr::credibleVecUI, &Mgr::dyScanState, &Mgr::dyTimeInterval,
                  &Mgr::completeMeasure);
}

TEST(ClassMembers, OfProtection)
{
    using Mgr = TavProtectMgr;
    expectMembers(&Mgr::mutex, &Mgr::selfState, &Mgr::kernelState, &Mgr::kernelCount, &Mgr::kernelContent,
                  &Mgr::proState, &Mgr::proCount, &Mgr::proContentList, &Mgr::dirState, &Mgr::dirCount,
                  &Mgr::dirContent, &Mgr::fileSmash, &Mgr::fileState, &Mgr::fileCount, &Mgr::fileContent,
                  &Mgr::kernelBlkMode, &Mgr::protoCount, &Mgr::kernelBlkContent, &Mgr::softUnloadMode,
                  &Mgr::softUnloadCount, &Mgr::softUnloadContent, &Mgr::protectUIData);
}

TEST(ClassMembers, OfTheAudit)
{
    using Mgr = TavAuditMgr;
    expectMembers(&Mgr::mutex, &Mgr::auditCount, &Mgr::auditContent, &Mgr::auditTypeCount, &Mgr::auditMonthCount,
                  &Mgr::auditMonthFailCount);
}

TEST(ClassMembers, OfTheHost)
{
    using Mgr = TavHostInfoMgr;
    expectMembers(&Mgr::mutex, &Mgr::resourceInfo, &Mgr::kernelSigState);
}

TEST(ClassMembers, OfHardening)
{
    using Mgr = TavOneReinforceMgr;
    expectMembers(&Mgr::mutex, &Mgr::reinforceMode, &Mgr::threeConfig, &Mgr::reforcePolicy, &Mgr::reforceFinishState,
                  &Mgr::stateInfo, &Mgr::secswitchContent);
}

TEST(ClassMembers, OfTheBaselineScan)
{
    using Mgr = TavLineScanMgr;
    expectMembers(&Mgr::mutex, &Mgr::lineScanContent, &Mgr::lineCount, &Mgr::scanState, &Mgr::scanItemConfigErr,
                  &Mgr::lineLevel, &Mgr::itemConfig);
}

TEST(ClassMembers, OfNetworkControl)
{
    using Mgr = TavNetControlMgr;
    expectMembers(&Mgr::mutex, &Mgr::netCount, &Mgr::uiData, &Mgr::state, &Mgr::deviceInfo, &Mgr::ruleInfo);
}

TEST(ClassMembers, OfTheLogIn)
{
    using Mgr = TavAuthInfoMgr;
    expectMembers(&Mgr::mutex, &Mgr::loginCheck, &Mgr::pwdChange);
}

TEST(ClassMembers, OfTheSystemConfiguration)
{
    using Mgr = TavSystemConfigMgr;
    expectMembers(&Mgr::mutex, &Mgr::serverInfo, &Mgr::onlineState);
}

TEST(ClassMembers, OfTheDevices)
{
    using Mgr = TavDevCtlMgr;
    expectMembers(&Mgr::mutex, &Mgr::usbInfoList, &Mgr::funcEnableInfo);
}

TEST(ClassMembers, OfProcessExceptions)
{
    using Mgr = TavProExceptionMgr;
    expectMembers(&Mgr::mutex, &Mgr::priException, &Mgr::uiData);
}
