#include "SampleValue.h"
#include "TavPluginHost.h"

#include "ITavOneReinforceMgr.h"

#include <gtest/gtest.h>

using SampleValue::content;

namespace
{
using Lines = QVector<STStateInfo>;

STStateInfo line(const char *item, const char *state)
{
    return {QString::fromUtf8(item), QString::fromUtf8(state)};
}
}

class OneReinforceMgr : public testing::Test
{
protected:
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavOneReinforceMgr *const mgr = host.manager<ITavOneReinforceMgr>();
};

TEST_F(OneReinforceMgr, EveryMessageIsEmptyAndTheListToo)
{
    EXPECT_EQ(mgr->getreinforceMode().ByteSizeLong(), 0u);
    EXPECT_EQ(mgr->getthreeConfig().ByteSizeLong(), 0u);
    EXPECT_EQ(mgr->getreforcePolicy().ByteSizeLong(), 0u);
    EXPECT_EQ(mgr->getSecswitchContent().ByteSizeLong(), 0u);
    EXPECT_EQ(mgr->getReforceFinishState().ByteSizeLong(), 0u);
    EXPECT_EQ(mgr->getStateInfo().size(), 0);
}

TEST_F(OneReinforceMgr, TheListStaysAsItWasSetWhenTheCallersListChanges)
{
    Lines lines = {line("a", "on"), line("b", "off")};
    mgr->setStateInfo(lines);
    lines[0].stateText = QStringLiteral("off");
    lines.removeLast();
    EXPECT_EQ(content(mgr->getStateInfo()), content(Lines{line("a", "on"), line("b", "off")}));
}

TEST_F(OneReinforceMgr, SettingTheHeldListsOwnCopyLeavesIt)
{
    mgr->setStateInfo({line("a", "on"), line("b", "off")});
    mgr->setStateInfo(mgr->getStateInfo());
    EXPECT_EQ(content(mgr->getStateInfo()), content(Lines{line("a", "on"), line("b", "off")}));
}

TEST_F(OneReinforceMgr, AnEmptyListEmptiesTheHeldOne)
{
    mgr->setStateInfo({line("a", "on")});
    mgr->setStateInfo({});
    EXPECT_EQ(mgr->getStateInfo().size(), 0);
}

TEST_F(OneReinforceMgr, AListReplacesTheOneBeforeAndIsNotMerged)
{
    mgr->setStateInfo({line("a", "on"), line("b", "on")});
    mgr->setStateInfo({line("b", "off")});
    EXPECT_EQ(content(mgr->getStateInfo()), content(Lines{line("b", "off")}));
}
