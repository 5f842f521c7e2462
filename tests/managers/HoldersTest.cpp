#include "SampleValue.h"
#include "TavPluginHost.h"

#include "ITavAuthInfoMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavSystemConfigMgr.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

using SampleValue::content;
using SampleValue::sample;

// In this program new memory holds a pattern, so that it shows what a constructor leaves as it was.
constexpr unsigned char pattern = 0xa5;

void *operator new(std::size_t size)
{
    if (void *const place = std::malloc(size ? size : 1)) {
        return std::memset(place, pattern, size);
    }
    throw std::bad_alloc();
}

void operator delete(void *place) noexcept
{
    std::free(place);
}

void operator delete(void *place, std::size_t) noexcept
{
    std::free(place);
}

class Holders : public testing::Test
{
protected:
    TavPluginHost host{TAV_PLUGIN_FILE};
};

TEST_F(Holders, AFreshSystemConfigurationIsEmpty)
{
    auto *const mgr = host.manager<ITavSystemConfigMgr>();
    EXPECT_EQ(content(mgr->getServerInfo()), content(Tav::SystemConfig::SystemServerInfo()));
    EXPECT_EQ(content(mgr->getOnlineState()), content(Tav::SystemConfig::CommdOnlineState()));
}

TEST_F(Holders, AFreshLoginStateIsEmpty)
{
    auto *const mgr = host.manager<ITavAuthInfoMgr>();
    EXPECT_EQ(content(mgr->getLoginCheck()), content(Tav::SystemConfig::LoginCheckAsr()));
    EXPECT_EQ(content(mgr->getPwdChange()), content(Tav::SystemConfig::PasswdChangeAsr()));
}

TEST_F(Holders, AFreshDeviceControlIsEmpty)
{
    auto *const mgr = host.manager<ITavDevCtlMgr>();
    EXPECT_EQ(content(mgr->getUsbInfoList()), content(Tav::DevControl::DevUsbInfoList()));
    EXPECT_EQ(content(mgr->getFuncEnableInfo()), content(Tav::DevControl::DevFuncEnableInfo()));
}

TEST_F(Holders, AFreshKernelSignatureStateIsEmpty)
{
    auto *const mgr = host.manager<ITavHostInfoMgr>();
    EXPECT_EQ(content(mgr->getKernelSigState()), content(Tav::HostInfo::SystemFileStateAsr()));
}

TEST_F(Holders, AnEmptyMessageIsToldFromOneWithAFieldPresentAndZero)
{
    auto *const mgr = host.manager<ITavSystemConfigMgr>();
    Tav::SystemConfig::CommdOnlineState offline;
    offline.set_state(0);
    mgr->setOnlineState(offline);
    EXPECT_TRUE(mgr->getOnlineState().has_state());
    mgr->setOnlineState(Tav::SystemConfig::CommdOnlineState());
    EXPECT_FALSE(mgr->getOnlineState().has_state());
}

TEST_F(Holders, TheResourceRecordIsCopiedToItsLastByte)
{
    auto *const mgr = host.manager<ITavHostInfoMgr>();
    auto info = sample<STResourceInfoAsr>(1);
    info.hostName[sizeof(info.hostName) - 1] = 'z';
    mgr->setResourceInfo(info);
    EXPECT_EQ(content(mgr->getResourceInfo()), content(info));
}

TEST_F(Holders, TheResourceRecordIsLeftAsTheMemoryWasUntilItIsSet)
{
    const STResourceInfoAsr info = host.manager<ITavHostInfoMgr>()->getResourceInfo();
    EXPECT_EQ(content(info), std::string(sizeof(info), static_cast<char>(pattern)));
}

TEST_F(Holders, EachClientRunStartsWithFreshHolders)
{
    host.manager<ITavSystemConfigMgr>()->setServerInfo(sample<Tav::SystemConfig::SystemServerInfo>(1));
    TavPluginHost second{TAV_PLUGIN_FILE};
    EXPECT_EQ(second.manager<ITavSystemConfigMgr>()->getServerInfo().ByteSizeLong(), 0u);
}

TEST_F(Holders, TheSystemLogManagerIsNotRegistered)
{
    EXPECT_EQ(host.managerObject("ITavSystemLogMgr"), nullptr);
    EXPECT_EQ(host.managerObject("TavSystemLogMgr"), nullptr);
    for (const STObjectKey &key : TavGlobalInfoMgr::getObjectMgr()->getObjectKeys()) {
        const QObject *const manager = TavGlobalInfoMgr::getObjectMgr()->getObject(key);
        EXPECT_NE(std::string(manager->metaObject()->className()), "TavSystemLogMgr");
    }
}
