#include "SampleValue.h"
#include "SideBySide.h"
#include "TavPluginHost.h"

#include "ITavProExceptionMgr.h"

#include <gtest/gtest.h>

#include <string>

using SampleValue::content;

namespace
{
using Rows = QVector<STProtoDataContainer>;

STProtoDataContainer row(int index, const char *data, bool checked = false)
{
    return {checked, index, data};
}
}

class ProExceptionMgr : public testing::Test
{
protected:
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavProExceptionMgr *const mgr = host.manager<ITavProExceptionMgr>();
};

TEST_F(ProExceptionMgr, ARowIsFoundByItsStoredIndexAndNotByItsPosition)
{
    mgr->setUIData(Rows{row(4, "four"), row(2, "two")});
    mgr->setUIData(row(2, "new", true));
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(4, "four"), row(2, "new", true)}));
}

TEST_F(ProExceptionMgr, UpdatingARowDetachesTheListAlsoWhenNoneIsFound)
{
    mgr->setUIData(Rows{row(0, "zero")});
    const Rows copy = mgr->getUIData();
    EXPECT_EQ(mgr->getUIData().constData(), copy.constData());
    mgr->setUIData(row(1, "new"));
    EXPECT_NE(mgr->getUIData().constData(), copy.constData());
}

TEST_F(ProExceptionMgr, AnIndexThatIsOnlyAPositionChangesNothing)
{
    const Rows rows = {row(4, "four"), row(2, "two")};
    mgr->setUIData(rows);
    mgr->setUIData(row(1, "new", true));
    EXPECT_EQ(content(mgr->getUIData()), content(rows));
}

TEST_F(ProExceptionMgr, AnUnknownIndexAddsNoRow)
{
    const Rows rows = {row(0, "a"), row(1, "b")};
    mgr->setUIData(rows);
    mgr->setUIData(row(2, "c", true));
    EXPECT_EQ(content(mgr->getUIData()), content(rows));
}

TEST_F(ProExceptionMgr, ASingleRowInAnEmptyListIsNotAdded)
{
    mgr->setUIData(row(0, "a"));
    EXPECT_EQ(mgr->getUIData().size(), 0);
}

TEST_F(ProExceptionMgr, OfTwoRowsOfOneIndexOnlyTheFirstIsChanged)
{
    mgr->setUIData(Rows{row(1, "a"), row(3, "b"), row(3, "c")});
    mgr->setUIData(row(3, "c", true));
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(1, "a"), row(3, "c", true), row(3, "c")}));
}

TEST_F(ProExceptionMgr, ASingleRowTakesTheTickOffToo)
{
    mgr->setUIData(Rows{row(3, "a", true)});
    mgr->setUIData(row(3, "a", false));
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(3, "a", false)}));
}

TEST_F(ProExceptionMgr, TheDataOfARowMayHoldZeroBytes)
{
    const STProtoDataContainer zeros = {false, 3, std::string("\0a\0\0b\0", 6)};
    mgr->setUIData(Rows{row(3, "longer than the new one")});
    mgr->setUIData(zeros);
    const Rows rows = mgr->getUIData();
    EXPECT_EQ(rows[0].protoData, zeros.protoData);
    EXPECT_EQ(rows[0].protoData.size(), 6u);
}

TEST_F(ProExceptionMgr, AWholeListReplacesTheRowsWhateverTheirIndexes)
{
    mgr->setUIData(Rows{row(4, "four"), row(2, "two")});
    mgr->setUIData(Rows{row(2, "new")});
    EXPECT_EQ(content(mgr->getUIData()), content(Rows{row(2, "new")}));
}

TEST_F(ProExceptionMgr, ChangingARowLeavesACopyTakenEarlier)
{
    mgr->setUIData(Rows{row(3, "a")});
    const Rows copy = mgr->getUIData();
    mgr->setUIData(row(3, "b", true));
    EXPECT_EQ(content(copy), content(Rows{row(3, "a")}));
}

TEST_F(ProExceptionMgr, ARowIsNeverReadHalfChanged)
{
    const Rows rows[] = {{row(3, "the first text, too long for a short string", true)}, {row(3, "b")}};
    mgr->setUIData(rows[1]);
    const auto seen = readWhileWriting([&](int call) { mgr->setUIData(rows[call % 2][0]); },
                                       [&] { return content(mgr->getUIData()); });
    EXPECT_EQ(seen, std::set<std::string>({content(rows[0]), content(rows[1])}));
}
