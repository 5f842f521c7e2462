#include "SampleValue.h"
#include "SideBySide.h"
#include "TavPluginHost.h"

#include "ITavProtectMgr.h"

#include <gtest/gtest.h>

using SampleValue::content;

namespace
{
using Rows = QVector<STSystemProUIData>;

STSystemProUIData row(bool checked, const char *title, const char *key, const char *detail = "", bool status = false)
{
    return {checked, QString::fromUtf8(title), QString::fromUtf8(key), QString::fromUtf8(detail), status};
}
}

class ProtectMgr : public testing::Test
{
protected:
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavProtectMgr *const mgr = host.manager<ITavProtectMgr>();
};

TEST_F(ProtectMgr, EveryStateIs28And0BeforeTheFirstAnswer)
{
    for (const STStateAsr &state : {mgr->getSelfState(), mgr->getKernelState(), mgr->getProState(), mgr->getDirState(),
                                    mgr->getFileState(), mgr->getKernelBlkMode(), mgr->getSoftUnloadMode()}) {
        EXPECT_EQ(state.stateValue, 28);
        EXPECT_EQ(state.stateExtra, 0);
    }
}

TEST_F(ProtectMgr, EveryCountIs0BeforeTheFirstAnswer)
{
    for (const STProtectCountAsr &count :
         {mgr->getKernelCount(), mgr->getProCount(), mgr->getDirCount(), mgr->getFileCount()}) {
        EXPECT_EQ(count.count, 0);
    }
}

TEST_F(ProtectMgr, UpdatingARowOverwritesAllItsFields)
{
    mgr->setProtectUIData({row(false, "A", "a"), row(false, "B", "b", "old", false)});
    mgr->updateUIItem(row(true, "C", "b", "new", true));
    EXPECT_EQ(content(mgr->getProtectUIData()), content(Rows{row(false, "A", "a"), row(true, "C", "b", "new", true)}));
}

TEST_F(ProtectMgr, UpdatingARowClearsItsFlagsToo)
{
    mgr->setProtectUIData({row(true, "A", "a", "detail", true)});
    mgr->updateUIItem(row(false, "A", "a", "", false));
    EXPECT_EQ(content(mgr->getProtectUIData()), content(Rows{row(false, "A", "a", "", false)}));
}

TEST_F(ProtectMgr, UpdatingARowDetachesTheListAlsoWhenNoneIsFound)
{
    mgr->setProtectUIData({row(false, "A", "a")});
    const Rows copy = mgr->getProtectUIData();
    EXPECT_EQ(mgr->getProtectUIData().constData(), copy.constData());
    mgr->updateUIItem(row(true, "X", "x"));
    EXPECT_NE(mgr->getProtectUIData().constData(), copy.constData());
}

TEST_F(ProtectMgr, UpdatingAnUnknownKeyChangesNothing)
{
    const Rows rows = {row(false, "A", "a", "detail"), row(true, "B", "b", "detail", true)};
    mgr->setProtectUIData(rows);
    mgr->updateUIItem(row(true, "A", "c", "detail"));
    EXPECT_EQ(content(mgr->getProtectUIData()), content(rows));
}

TEST_F(ProtectMgr, UpdatingInAnEmptyListAddsNoRow)
{
    mgr->updateUIItem(row(true, "A", "a"));
    EXPECT_EQ(mgr->getProtectUIData().size(), 0);
}

TEST_F(ProtectMgr, OfTwoRowsOfOneKeyOnlyTheFirstIsUpdatedWhateverTheirTitles)
{
    mgr->setProtectUIData({row(false, "other", "b"), row(false, "first", "a"), row(false, "title", "a")});
    mgr->updateUIItem(row(true, "title", "a"));
    EXPECT_EQ(content(mgr->getProtectUIData()),
              content(Rows{row(false, "other", "b"), row(true, "title", "a"), row(false, "title", "a")}));
}

TEST_F(ProtectMgr, ARowWithAChangedTitleIsFoundAgainByItsKey)
{
    mgr->setProtectUIData({row(false, "A", "a")});
    mgr->updateUIItem(row(true, "B", "a"));
    mgr->updateUIItem(row(false, "C", "a"));
    EXPECT_EQ(content(mgr->getProtectUIData()), content(Rows{row(false, "C", "a")}));
}

TEST_F(ProtectMgr, RowsAreFoundByTheCaseOfTheirKeys)
{
    mgr->setProtectUIData({row(false, "A", "Key")});
    mgr->updateUIItem(row(true, "A", "key"));
    EXPECT_EQ(content(mgr->getProtectUIData()), content(Rows{row(false, "A", "Key")}));
}

TEST_F(ProtectMgr, AnEmptyAndANullKeyFindTheSameRow)
{
    mgr->setProtectUIData({row(false, "A", "a"), row(false, "B", "")});
    STSystemProUIData item = row(true, "C", "");
    item.itemKey = QString();
    mgr->updateUIItem(item);
    EXPECT_EQ(content(mgr->getProtectUIData()), content(Rows{row(false, "A", "a"), row(true, "C", "")}));
}

TEST_F(ProtectMgr, CheckingAllRowsLeavesTheirOtherFields)
{
    mgr->setProtectUIData({row(false, "A", "a", "x", true), row(true, "B", "b", "y", false), row(false, "C", "a")});
    mgr->setUIAllCheck(true);
    EXPECT_EQ(content(mgr->getProtectUIData()),
              content(Rows{row(true, "A", "a", "x", true), row(true, "B", "b", "y", false), row(true, "C", "a")}));
}

TEST_F(ProtectMgr, UncheckingAllRowsLeavesTheirOtherFields)
{
    mgr->setProtectUIData({row(false, "A", "a", "x", true), row(true, "B", "b", "y", false), row(true, "C", "a")});
    mgr->setUIAllCheck(false);
    EXPECT_EQ(content(mgr->getProtectUIData()),
              content(Rows{row(false, "A", "a", "x", true), row(false, "B", "b", "y", false), row(false, "C", "a")}));
}

TEST_F(ProtectMgr, CheckingAllRowsOfAnEmptyListAddsNone)
{
    mgr->setUIAllCheck(true);
    EXPECT_EQ(mgr->getProtectUIData().size(), 0);
}

TEST_F(ProtectMgr, EditingRowsLeavesACopyTakenEarlier)
{
    const Rows rows = {row(false, "A", "a")};
    mgr->setProtectUIData(rows);
    const Rows copy = mgr->getProtectUIData();
    mgr->updateUIItem(row(false, "B", "a"));
    const Rows second = mgr->getProtectUIData();
    mgr->setUIAllCheck(true);
    EXPECT_EQ(content(copy), content(rows));
    EXPECT_EQ(content(second), content(Rows{row(false, "B", "a")}));
}

TEST_F(ProtectMgr, EditingRowsLeavesTheListThatWasSet)
{
    const Rows rows = {row(false, "A", "a")};
    mgr->setProtectUIData(rows);
    mgr->setUIAllCheck(true);
    EXPECT_EQ(content(rows), content(Rows{row(false, "A", "a")}));
}

TEST_F(ProtectMgr, ARowIsNeverReadHalfUpdated)
{
    const Rows rows[] = {{row(true, "A", "key", "a", true)}, {row(false, "B", "key", "b", false)}};
    mgr->setProtectUIData(rows[1]);
    const auto seen = readWhileWriting([&](int call) { mgr->updateUIItem(rows[call % 2][0]); },
                                       [&] { return content(mgr->getProtectUIData()); });
    EXPECT_EQ(seen, std::set<std::string>({content(rows[0]), content(rows[1])}));
}

TEST_F(ProtectMgr, RowsAreNeverReadHalfChecked)
{
    const Rows unchecked(50, row(false, "A", "a"));
    const Rows checked(50, row(true, "A", "a"));
    mgr->setProtectUIData(unchecked);
    const auto seen = readWhileWriting([&](int call) { mgr->setUIAllCheck(call % 2 == 0); },
                                       [&] { return content(mgr->getProtectUIData()); });
    EXPECT_EQ(seen, std::set<std::string>({content(checked), content(unchecked)}));
}
