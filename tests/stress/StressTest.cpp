// Every operation of every manager from eight threads at once, with plain threads only. What needs event loops is in
// LoopStressTest.cpp: a race checker that does not see into Qt's event queue cannot follow it.

#include "Contests.h"
#include "TwoSystemRoots.h"

#include "GlobalStateGuard.h"
#include "ITavNetControlMgr.h"
#include "LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::IsEmpty;

namespace
{
class ManagerStress : public testing::Test
{
protected:
    void runEach(const std::vector<Contest> &contests, int turns = turnsOfEachCall())
    {
        for (const Contest &contest : contests) {
            EXPECT_THAT(runContest(contest, turns), IsEmpty());
        }
    }

    GlobalStateGuard guard;
    TavPluginHost host{TAV_PLUGIN_FILE};
    TwoSystemRoots roots;
};
}

TEST_F(ManagerStress, HeldValuesAreNeverReadHalfCopied)
{
    runEach(Contests::heldValues(host));
}

TEST_F(ManagerStress, EditedRowsStayWholeAndTheirListsAsLong)
{
    runEach(Contests::rows(host));
}

TEST_F(ManagerStress, TheListsAndTablesOfAccessControlStayWhole)
{
    runEach(Contests::accessControl(host, Contests::Clearing::No));
}

TEST_F(ManagerStress, ClearingTheCacheLeavesTheListsOfAccessControlWholeOrEmpty)
{
    runEach(Contests::accessControl(host, Contests::Clearing::Yes));
}

TEST_F(ManagerStress, DevicesStayWholeWhileTheirStatesAreReversed)
{
    runEach(Contests::devices(host));
}

TEST_F(ManagerStress, NoReversalOfADeviceIsLost)
{
    auto *const manager = host.manager<ITavNetControlMgr>();
    Tav::NetControl::NetDeviceInfos devices;
    devices.add_devices()->set_state(0);
    devices.add_devices()->set_state(0);
    manager->setDeviceInfo(devices);
    const Operation reverseFirst{"reverse the first", [manager](int) {
                                     manager->reverseDeviceState(0);
                                     return true;
                                 }};
    const Operation reverseBoth{"reverse both", [manager](int) {
                                    manager->reverseDevicesState();
                                    return true;
                                }};
    // Odd numbers, so that the states after it are not those before.
    const int turns = turnsOfEachCall() | 1;
    const Contest reversals{
        "reversals",
        {reverseFirst, reverseFirst, reverseFirst, reverseFirst, reverseFirst, reverseBoth, reverseBoth, reverseBoth}};
    EXPECT_THAT(runContest(reversals, turns), IsEmpty());
    const Tav::NetControl::NetDeviceInfos after = manager->getDeviceInfo();
    EXPECT_EQ(after.devices(0).state(), 8 * turns % 2);
    EXPECT_EQ(after.devices(1).state(), 3 * turns % 2);
}

TEST_F(ManagerStress, ConfigurationsAreSeenWholeOnly)
{
    const LogCapture log;
    // Fewer turns, for the catalogue grows with every load.
    runEach(Contests::configurations(host, roots), 2 + turnsOfEachCall() / 4);
    const auto messages = log.messages("tav.TavFuncTypeMgr");
    EXPECT_FALSE(messages.isEmpty());
    for (const LogCapture::Message &message : messages) {
        EXPECT_EQ(message.text, QStringLiteral("parse json file error！"));
    }
}

TEST_F(ManagerStress, TheSelectionIsNeverReadHalfWritten)
{
    runEach(Contests::selection(host));
}

TEST_F(ManagerStress, ImagesAreLookedUpByAllThreads)
{
    runEach(Contests::pictures(host));
}

TEST_F(ManagerStress, ManagersAreLookedUpByAllThreads)
{
    runEach(Contests::objects(host));
}

TEST_F(ManagerStress, EveryOperationOfEveryManagerAtOnce)
{
    const LogCapture log;
    std::vector<Contest> all;
    for (const auto &contests :
         {Contests::heldValues(host), Contests::rows(host), Contests::accessControl(host, Contests::Clearing::Yes),
          Contests::devices(host), Contests::configurations(host, roots), Contests::selection(host),
          Contests::pictures(host), Contests::objects(host)}) {
        all.insert(all.end(), contests.begin(), contests.end());
    }
    EXPECT_THAT(runAllAtOnce(all, 1 + turnsOfEachCall() / 20), IsEmpty());
}
