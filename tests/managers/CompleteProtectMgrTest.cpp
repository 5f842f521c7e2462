#include "SampleValue.h"
#include "SideBySide.h"
#include "TavPluginHost.h"

#include "ITavCompleteProtectMgr.h"

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

class CompleteProtectMgr : public testing::Test
{
protected:
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavCompleteProtectMgr *const mgr = host.manager<ITavCompleteProtectMgr>();
};

TEST_F(CompleteProtectMgr, EveryPlainRecordIsZeroBeforeTheFirstSet)
{
    EXPECT_EQ(content(mgr->getCurPathState()), std::string(sizeof(STStaticCurPathAsr), '\0'));
    EXPECT_EQ(content(mgr->getSystemScanState()), std::string(sizeof(STSystemScanStateAsr), '\0'));
    EXPECT_EQ(content(mgr->getImaCount()), std::string(sizeof(STImaCountAsr), '\0'));
    EXPECT_EQ(content(mgr->getImaState()), std::string(sizeof(STImaStateAsr), '\0'));
    EXPECT_EQ(content(mgr->getImaInitState()), std::string(sizeof(STImaInitStateAsr), '\0'));
    EXPECT_EQ(content(mgr->getSingleScanId()), std::string(sizeof(STSingleScanAsr), '\0'));
}

TEST_F(CompleteProtectMgr, ARowIsFoundByItsStoredIndexAndNotByItsPosition)
{
    mgr->setCredibleVecUI({row(2, "two"), row(0, "zero"), row(1, "one")});
    mgr->setCredibleImteUI(row(0, "new", true));
    EXPECT_EQ(content(mgr->getCredibleVecUI()), content(Rows{row(2, "two"), row(0, "new", true), row(1, "one")}));
}

TEST_F(CompleteProtectMgr, UpdatingARowDetachesTheListAlsoWhenNoneIsFound)
{
    mgr->setCredibleVecUI({row(0, "zero")});
    const Rows copy = mgr->getCredibleVecUI();
    EXPECT_EQ(mgr->getCredibleVecUI().constData(), copy.constData());
    mgr->setCredibleImteUI(row(1, "new"));
    EXPECT_NE(mgr->getCredibleVecUI().constData(), copy.constData());
}

TEST_F(CompleteProtectMgr, OfTwoRowsOfOneIndexOnlyTheFirstIsChanged)
{
    mgr->setCredibleVecUI({row(5, "a"), row(3, "b"), row(5, "c")});
    mgr->setCredibleImteUI(row(5, "c", true));
    EXPECT_EQ(content(mgr->getCredibleVecUI()), content(Rows{row(5, "c", true), row(3, "b"), row(5, "c")}));
}

TEST_F(CompleteProtectMgr, AnIndexThatIsOnlyAPositionChangesNothing)
{
    const Rows rows = {row(5, "a"), row(3, "b"), row(5, "c")};
    mgr->setCredibleVecUI(rows);
    mgr->setCredibleImteUI(row(1, "b", true));
    EXPECT_EQ(content(mgr->getCredibleVecUI()), content(rows));
}

TEST_F(CompleteProtectMgr, AnUnknownIndexAddsNoRow)
{
    const Rows rows = {row(0, "a"), row(1, "b")};
    mgr->setCredibleVecUI(rows);
    mgr->setCredibleImteUI(row(2, "c"));
    EXPECT_EQ(content(mgr->getCredibleVecUI()), content(rows));
}

TEST_F(CompleteProtectMgr, NegativeIndexesAreOrdinaryKeys)
{
    mgr->setCredibleVecUI({row(0, "a"), row(-1, "b")});
    mgr->setCredibleImteUI(row(-1, "c", true));
    EXPECT_EQ(content(mgr->getCredibleVecUI()), content(Rows{row(0, "a"), row(-1, "c", true)}));
}

TEST_F(CompleteProtectMgr, ChangingARowTakesItsTickOffToo)
{
    mgr->setCredibleVecUI({row(0, "a", true)});
    mgr->setCredibleImteUI(row(0, "a", false));
    EXPECT_EQ(content(mgr->getCredibleVecUI()), content(Rows{row(0, "a", false)}));
}

TEST_F(CompleteProtectMgr, TheDataOfARowMayHoldZeroBytes)
{
    const STProtoDataContainer zeros = {true, 1, std::string("\0a\0\0b\0", 6)};
    mgr->setCredibleVecUI({row(0, "a"), row(1, "longer than the new one")});
    mgr->setCredibleImteUI(zeros);
    const Rows rows = mgr->getCredibleVecUI();
    EXPECT_EQ(rows[1].protoData, zeros.protoData);
    EXPECT_EQ(rows[1].protoData.size(), 6u);
}

TEST_F(CompleteProtectMgr, ChangingARowLeavesACopyTakenEarlier)
{
    mgr->setCredibleVecUI({row(0, "a")});
    const Rows copy = mgr->getCredibleVecUI();
    mgr->setCredibleImteUI(row(0, "b", true));
    EXPECT_EQ(content(copy), content(Rows{row(0, "a")}));
}

TEST_F(CompleteProtectMgr, ChangingTheItemAfterwardsLeavesTheRow)
{
    mgr->setCredibleVecUI({row(0, "a")});
    STProtoDataContainer item = row(0, "b");
    mgr->setCredibleImteUI(item);
    item.protoData[0] = 'c';
    EXPECT_EQ(content(mgr->getCredibleVecUI()), content(Rows{row(0, "b")}));
}

TEST_F(CompleteProtectMgr, ARowIsNeverReadHalfChanged)
{
    const Rows rows[] = {{row(3, "the first text, too long for a short string", true)}, {row(3, "b")}};
    mgr->setCredibleVecUI(rows[1]);
    const auto seen = readWhileWriting([&](int call) { mgr->setCredibleImteUI(rows[call % 2][0]); },
                                       [&] { return content(mgr->getCredibleVecUI()); });
    EXPECT_EQ(seen, std::set<std::string>({content(rows[0]), content(rows[1])}));
}
