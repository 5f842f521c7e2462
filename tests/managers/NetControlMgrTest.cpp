#include "SampleValue.h"
#include "SideBySide.h"
#include "TavPluginHost.h"

#include "ITavNetControlMgr.h"

#include <gmock/gmock.h>
#include <google/protobuf/stubs/common.h>
#include <gtest/gtest.h>

#include <climits>
#include <csignal>
#include <vector>

using SampleValue::content;

namespace
{
using Rows = QVector<STProtoDataContainer>;
using Tav::NetControl::NetDeviceInfo;
using Tav::NetControl::NetDeviceInfos;

STProtoDataContainer row(int index, const char *data, bool checked = false)
{
    return {checked, index, data};
}
}

class NetControlMgr : public testing::Test
{
protected:
    /// Gives the manager one device per state.
    void setDevices(const std::vector<int> &states)
    {
        NetDeviceInfos infos;
        for (int state : states) {
            infos.add_devices()->set_state(state);
        }
        mgr->setDeviceInfo(infos);
    }

    std::vector<int> deviceStates()
    {
        std::vector<int> states;
        const NetDeviceInfos infos = mgr->getDeviceInfo();
        for (const NetDeviceInfo &device : infos.devices()) {
            states.push_back(device.state());
        }
        return states;
    }

    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavNetControlMgr *const mgr = host.manager<ITavNetControlMgr>();
};

using States = std::vector<int>;

TEST_F(NetControlMgr, AFreshCommandStateHasItsSecondFieldPresentAndZero)
{
    const Tav::Base::CommandStateAsr state = mgr->getState();
    EXPECT_TRUE(state.has_state());
    EXPECT_EQ(state.state(), 0);
    EXPECT_FALSE(state.has_command());
    EXPECT_FALSE(state.has_message());
}

TEST_F(NetControlMgr, ASetCommandStateMayLackItsSecondField)
{
    mgr->setState(Tav::Base::CommandStateAsr());
    EXPECT_FALSE(mgr->getState().has_state());
}

// ---- rows of the page's list

TEST_F(NetControlMgr, ARowIsOverwrittenByPositionAndThenCarriesThatIndex)
{
    mgr->setUIData({row(7, "a"), row(8, "b")});
    mgr->updateUIItem(row(1, "c", true));
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(7, "a"), row(1, "c", true)}));
}

TEST_F(NetControlMgr, AStoredIndexFindsNoRow)
{
    const Rows rows = {row(7, "a"), row(8, "b")};
    mgr->setUIData(rows);
    mgr->updateUIItem(row(7, "c", true));
    EXPECT_EQ(content(mgr->getUIData()), content(rows));
}

TEST_F(NetControlMgr, ThePositionGoesBeforeAStoredIndex)
{
    mgr->setUIData({row(1, "a"), row(0, "b")});
    mgr->updateUIItem(row(0, "c"));
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(0, "c"), row(0, "b")}));
}

TEST_F(NetControlMgr, OverwritingARowTakesItsTickOffToo)
{
    mgr->setUIData({row(0, "a", true)});
    mgr->updateUIItem(row(0, "a", false));
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(0, "a", false)}));
}

TEST_F(NetControlMgr, APositionAtOrBeyondTheEndChangesNothing)
{
    const Rows rows = {row(0, "a"), row(1, "b")};
    mgr->setUIData(rows);
    for (int position : {2, 3, INT_MAX}) {
        mgr->updateUIItem(row(position, "c", true));
        EXPECT_EQ(content(mgr->getUIData()), content(rows)) << position;
    }
}

TEST_F(NetControlMgr, TheListStaysSharedWhenNoRowIsOverwritten)
{
    mgr->setUIData({STProtoDataContainer{false, 0, "zero"}});
    const auto copy = mgr->getUIData();
    mgr->updateUIItem({true, 1, "new"});
    EXPECT_EQ(mgr->getUIData().constData(), copy.constData());
    mgr->setAllCheck(true);
    EXPECT_NE(mgr->getUIData().constData(), copy.constData());
}

TEST_F(NetControlMgr, ANegativePositionChangesNothing)
{
    const Rows rows = {row(-1, "a"), row(1, "b")};
    mgr->setUIData(rows);
    for (int position : {-1, INT_MIN}) {
        mgr->updateUIItem(row(position, "c", true));
        EXPECT_EQ(content(mgr->getUIData()), content(rows)) << position;
    }
}

TEST_F(NetControlMgr, OverwritingInAnEmptyListAddsNoRow)
{
    mgr->updateUIItem(row(0, "a"));
    EXPECT_EQ(mgr->getUIData().size(), 0);
}

TEST_F(NetControlMgr, CheckingAllRowsLeavesTheirOtherFields)
{
    mgr->setUIData({row(7, "a"), row(8, "b", true), row(7, "")});
    mgr->setAllCheck(true);
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(7, "a", true), row(8, "b", true), row(7, "", true)}));
}

TEST_F(NetControlMgr, UncheckingAllRowsLeavesTheirOtherFields)
{
    mgr->setUIData({row(7, "a"), row(8, "b", true), row(7, "", true)});
    mgr->setAllCheck(false);
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(7, "a"), row(8, "b"), row(7, "")}));
}

TEST_F(NetControlMgr, CheckingAllRowsOfAnEmptyListAddsNone)
{
    mgr->setAllCheck(true);
    EXPECT_EQ(mgr->getUIData().size(), 0);
}

TEST_F(NetControlMgr, EditingRowsLeavesACopyTakenEarlier)
{
    mgr->setUIData({row(0, "a")});
    const Rows first = mgr->getUIData();
    mgr->updateUIItem(row(0, "b"));
    const Rows second = mgr->getUIData();
    mgr->setAllCheck(true);
    EXPECT_EQ(content(first), content(Rows{row(0, "a")}));
    EXPECT_EQ(content(second), content(Rows{row(0, "b")}));
}

TEST_F(NetControlMgr, ARowIsNeverReadHalfOverwritten)
{
    const Rows rows[] = {{row(0, "the first text, too long for a short string", true)}, {row(0, "b")}};
    mgr->setUIData(rows[1]);
    const auto seen = readWhileWriting([&](int call) { mgr->updateUIItem(rows[call % 2][0]); },
                                       [&] { return content(mgr->getUIData()); });
    EXPECT_EQ(seen, std::set<std::string>({content(rows[0]), content(rows[1])}));
}

TEST_F(NetControlMgr, RowsAreNeverReadHalfChecked)
{
    const Rows unchecked(50, row(0, "a"));
    const Rows checked(50, row(0, "a", true));
    mgr->setUIData(unchecked);
    const auto seen = readWhileWriting([&](int call) { mgr->setAllCheck(call % 2 == 0); },
                                       [&] { return content(mgr->getUIData()); });
    EXPECT_EQ(seen, std::set<std::string>({content(checked), content(unchecked)}));
}

// ---- states of the devices

TEST_F(NetControlMgr, ReversingADeviceTurnsOneIntoZeroAndAllElseIntoOne)
{
    const States before = {1, 0, 2, -1, INT_MAX, INT_MIN};
    setDevices(before);
    for (int position = 0; position < int(before.size()); ++position) {
        mgr->reverseDeviceState(position);
    }
    EXPECT_EQ(deviceStates(), States({0, 1, 1, 1, 1, 1}));
}

TEST_F(NetControlMgr, ReversingADeviceOfState2TwiceLeavesItAtZero)
{
    setDevices({2});
    mgr->reverseDeviceState(0);
    mgr->reverseDeviceState(0);
    EXPECT_EQ(deviceStates(), States({0}));
}

TEST_F(NetControlMgr, ReversingADeviceLeavesTheOthers)
{
    setDevices({5, 5, 5});
    mgr->reverseDeviceState(1);
    EXPECT_EQ(deviceStates(), States({5, 1, 5}));
}

TEST_F(NetControlMgr, ADeviceIsReversedByPositionAndNotByItsInterfaceIndex)
{
    NetDeviceInfos infos;
    infos.add_devices()->set_index(1);
    infos.add_devices()->set_index(0);
    mgr->setDeviceInfo(infos);
    mgr->reverseDeviceState(0);
    EXPECT_EQ(deviceStates(), States({1, 0}));
}

TEST_F(NetControlMgr, ReversingMakesAnAbsentStatePresent)
{
    NetDeviceInfos infos;
    infos.add_devices();
    infos.add_devices();
    mgr->setDeviceInfo(infos);
    mgr->reverseDeviceState(0);
    EXPECT_TRUE(mgr->getDeviceInfo().devices(0).has_state());
    EXPECT_FALSE(mgr->getDeviceInfo().devices(1).has_state());
    mgr->reverseDevicesState();
    EXPECT_TRUE(mgr->getDeviceInfo().devices(1).has_state());
    EXPECT_EQ(deviceStates(), States({0, 1}));
}

TEST_F(NetControlMgr, AReversedZeroStaysPresent)
{
    setDevices({1});
    mgr->reverseDeviceState(0);
    EXPECT_TRUE(mgr->getDeviceInfo().devices(0).has_state());
}

TEST_F(NetControlMgr, ReversingLeavesTheOtherFieldsOfADevice)
{
    auto infos = SampleValue::sample<NetDeviceInfos>(1);
    mgr->setDeviceInfo(infos);
    mgr->reverseDeviceState(0);
    mgr->reverseDevicesState();
    infos.mutable_devices(0)->set_state(0);
    infos.mutable_devices(1)->set_state(1);
    EXPECT_EQ(content(mgr->getDeviceInfo()), content(infos));
}

TEST_F(NetControlMgr, ReversingAllDevicesReversesEachByTheSameRule)
{
    setDevices({1, 0, 5});
    mgr->reverseDevicesState();
    EXPECT_EQ(deviceStates(), States({0, 1, 1}));
}

TEST_F(NetControlMgr, ReversingAllOfNoDevicesLeavesNone)
{
    mgr->reverseDevicesState();
    EXPECT_EQ(content(mgr->getDeviceInfo()), content(NetDeviceInfos()));
}

TEST_F(NetControlMgr, ReversingLeavesACopyTakenEarlier)
{
    setDevices({1});
    const NetDeviceInfos copy = mgr->getDeviceInfo();
    mgr->reverseDeviceState(0);
    mgr->reverseDevicesState();
    mgr->reverseDevicesState();
    EXPECT_EQ(copy.devices(0).state(), 1);
}

TEST_F(NetControlMgr, DevicesAreNeverReadHalfReversed)
{
    setDevices(States(50, 0));
    const auto seen = readWhileWriting([&](int) { mgr->reverseDevicesState(); },
                                       [&] { return testing::PrintToString(deviceStates()); });
    EXPECT_EQ(seen,
              std::set<std::string>({testing::PrintToString(States(50, 0)), testing::PrintToString(States(50, 1))}));
}

TEST_F(NetControlMgr, ADeviceMayBeReversedWhileTheListIsReplaced)
{
    setDevices({0, 7, 0});
    const auto seen = readWhileWriting(
        [&](int) {
            setDevices({0, 7, 0});
        },
        [&] {
            mgr->reverseDeviceState(0);
            return testing::PrintToString(deviceStates());
        });
    EXPECT_EQ(
        seen,
        std::set<std::string>({testing::PrintToString(States({0, 7, 0})), testing::PrintToString(States({1, 7, 0}))}));
}

// ---- positions that no device has: the message library's own check, on in every build type

namespace
{
void expectFailedCheck(ITavNetControlMgr *mgr, int position)
{
    SCOPED_TRACE(position);
    try {
        mgr->reverseDeviceState(position);
        ADD_FAILURE() << "no check has failed";
    } catch (const google::protobuf::FatalException &failure) {
        EXPECT_THAT(failure.what(), testing::HasSubstr("CHECK failed"));
    }
}
}

TEST_F(NetControlMgr, ReversingAPositionBeyondTheEndFailsTheMessageLibrarysCheck)
{
    setDevices({1, 1});
    expectFailedCheck(mgr, 2);
    expectFailedCheck(mgr, 99);
    expectFailedCheck(mgr, INT_MAX);
}

TEST_F(NetControlMgr, ReversingANegativePositionFailsTheMessageLibrarysCheck)
{
    setDevices({1, 1});
    expectFailedCheck(mgr, -1);
    expectFailedCheck(mgr, INT_MIN);
}

TEST_F(NetControlMgr, ReversingOneOfNoDevicesFailsTheMessageLibrarysCheck)
{
    expectFailedCheck(mgr, 0);
}

TEST_F(NetControlMgr, AFailedCheckLeavesTheDevicesAndTheManagerUsable)
{
    setDevices({1, 1});
    expectFailedCheck(mgr, 2);
    EXPECT_EQ(deviceStates(), States({1, 1}));
    mgr->reverseDeviceState(1);
    EXPECT_EQ(deviceStates(), States({1, 0}));
}

using NetControlMgrDeathTest = NetControlMgr;

TEST_F(NetControlMgrDeathTest, AFailedCheckThatNobodyCatchesEndsTheProcess)
{
    setDevices({1, 1});
    const auto reverse = [this](int position) noexcept { mgr->reverseDeviceState(position); };
    EXPECT_EXIT(reverse(2), testing::KilledBySignal(SIGABRT), "CHECK failed");
    EXPECT_EXIT(reverse(-1), testing::KilledBySignal(SIGABRT), "CHECK failed");
}
