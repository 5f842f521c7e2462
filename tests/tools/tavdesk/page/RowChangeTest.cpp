#include "RowChange.h"

#include "MessageTable.h"
#include "PrintQString.h"
#include "StateLines.h"
#include "STStateAsr.h"

#include "NetControl.pb.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{
ShownRows shown(const ValueTablePointer &table, const Arrangement &arrangement = {})
{
    return changeOf({}, table, arrangement, 0)->rows;
}

Arrangement sortedBy(int column, Qt::SortOrder order = Qt::AscendingOrder)
{
    return {{}, column, order};
}

const QVector<STStateInfo> threeLines{{"a", "1"}, {"b", "2"}, {"c", "3"}};
}

TEST(RowChange, IsNoneWhereNothingHasChanged)
{
    QVector<STStateInfo> lines = threeLines;
    const ShownRows before = shown(stateLines(lines));
    EXPECT_FALSE(changeOf(before, stateLines(lines), {}, 0));
    EXPECT_TRUE(changeOf(before, stateLines(lines), sortedBy(0), 0));
}

TEST(RowChange, MovesNothingWhereAnEqualListHasComeInItsPlace)
{
    QVector<STStateInfo> lines = threeLines;
    const ShownRows before = shown(stateLines(lines));
    lines.detach();
    const auto change = changeOf(before, stateLines(lines), {}, 0);
    ASSERT_TRUE(change);
    EXPECT_FALSE(change->hasChangedCells);
    EXPECT_TRUE(change->toStaying.isEmpty() && change->toOrder.isEmpty());
    EXPECT_EQ(change->gone + change->added, 0);
}

TEST(RowChange, KeepsARowWithAChangedCellAndMarksTheCell)
{
    const ShownRows before = shown(stateLines(threeLines));
    const auto change = changeOf(before, stateLines({{"a", "1"}, {"b", "x"}, {"c", "3"}}), {}, 1000);
    ASSERT_TRUE(change);
    EXPECT_EQ(change->gone + change->added, 0);
    ASSERT_EQ(change->rows.marks.size(), 3);
    EXPECT_EQ(change->rows.marks[0].cells, 0U);
    EXPECT_EQ(change->rows.marks[1].cells, 2U);
    EXPECT_EQ(change->rows.marks[1].until, 1000 + CellMarks::duration);
}

TEST(RowChange, TakesARowThatDiffersInMostCellsForAnother)
{
    const ShownRows before = shown(stateLines(threeLines));
    const auto change = changeOf(before, stateLines({{"a", "1"}, {"x", "y"}, {"c", "3"}}), {}, 0);
    EXPECT_EQ(change->gone, 1);
    EXPECT_EQ(change->added, 1);
    EXPECT_EQ(change->toStaying, QVector<int>({0, 2, 1}));
    EXPECT_EQ(change->toOrder, QVector<int>({0, 2, 1}));
}

TEST(RowChange, FindsRowsThatHaveMoved)
{
    const ShownRows before = shown(stateLines(threeLines));
    const auto change = changeOf(before, stateLines({{"c", "3"}, {"new", "0"}, {"a", "1"}, {"b", "2"}}), {}, 0);
    EXPECT_EQ(change->gone, 0);
    EXPECT_EQ(change->added, 1);
    EXPECT_EQ(change->toStaying, QVector<int>({1, 2, 0}));
}

TEST(RowChange, FindsAChangedRowBehindItsNeighbour)
{
    const ShownRows before = shown(stateLines(threeLines));
    const auto change = changeOf(before, stateLines({{"new", "0"}, {"a", "1"}, {"b", "x"}, {"c", "3"}}), {}, 0);
    EXPECT_EQ(change->gone, 0);
    EXPECT_EQ(change->added, 1);
    EXPECT_EQ(change->rows.marks[2].cells, 2U);
}

TEST(RowChange, SortsNumbersByTheirValue)
{
    const auto table = std::make_shared<RecordTable<STStateAsr>>(
        QVector<STStateAsr>{{10, 0}, {9, 1}, {-1, 2}, {std::numeric_limits<qint32>::min(), 3}});
    EXPECT_EQ(shown(table, sortedBy(0)).order, QVector<int>({3, 2, 1, 0}));
    EXPECT_EQ(shown(table, sortedBy(0, Qt::DescendingOrder)).order, QVector<int>({0, 1, 2, 3}));
}

TEST(RowChange, SortsTextsWhateverTheirCaseAndEqualOnesAsTheyStand)
{
    const ValueTablePointer table = stateLines({{"b", ""}, {"C", ""}, {"a", "second"}, {"A", "first"}});
    EXPECT_EQ(shownItems(shown(table, sortedBy(0))), QStringList({"a", "A", "b", "C"}));
    EXPECT_EQ(shownItems(shown(table, sortedBy(0, Qt::DescendingOrder))), QStringList({"C", "b", "a", "A"}));
}

TEST(RowChange, SortsTextsThatAreNullAsEmptyOnes)
{
    QVector<STStateInfo> lines;
    for (int i = 0; i < 40; ++i) {
        const QString item = QString::number(i);
        lines.append({item, i % 3 != 0 ? QString() : i % 2 != 0 ? QString("") : QString("text %1").arg(100 + i)});
    }
    std::mt19937 random(20261122); // the same orders each time
    for (int round = 0; round < 20; ++round) {
        std::shuffle(lines.begin(), lines.end(), random);
        QVector<STStateInfo> ascending = lines;
        std::stable_sort(ascending.begin(), ascending.end(), [](const STStateInfo &left, const STStateInfo &right) {
            return left.stateText.compare(right.stateText) < 0;
        });
        QVector<STStateInfo> descending = lines;
        std::stable_sort(descending.begin(), descending.end(), [](const STStateInfo &left, const STStateInfo &right) {
            return left.stateText.compare(right.stateText) > 0;
        });
        const ValueTablePointer table = stateLines(lines);
        EXPECT_EQ(shownItems(shown(table, sortedBy(1))), shownItems(shown(stateLines(ascending)))) << round;
        EXPECT_EQ(shownItems(shown(table, sortedBy(1, Qt::DescendingOrder))), shownItems(shown(stateLines(descending))))
            << round;
    }
}

TEST(RowChange, SortsListsByTheirTexts)
{
    QVector<STAccessSetUIData> levels(3);
    levels[0].labels = {"b", "a"};
    levels[1].labels = {"C"};
    levels[2].labels = {"b"};
    const auto records = std::make_shared<RecordTable<STAccessSetUIData>>(levels);
    EXPECT_EQ(shown(records, sortedBy(records->column("labels"))).order, QVector<int>({2, 0, 1}));

    Tav::NetControl::NetDeviceInfos devices;
    for (const char *const address : {"10.0.0.3", "10.0.0.1", "10.0.0.2"}) {
        devices.add_devices()->add_addresses(address);
    }
    const auto message = std::make_shared<const Tav::NetControl::NetDeviceInfos>(devices);
    const auto messages = std::make_shared<MessageTable>(message, MessageTable::listsIn(*message).front());
    EXPECT_EQ(shown(messages, sortedBy(messages->column("addresses"))).order, QVector<int>({1, 2, 0}));
}

TEST(RowChange, FiltersByWhatACellShows)
{
    const ValueTablePointer table = stateLines({{"alpha", "x"}, {"beta", "ALPHABET"}, {"gamma", ""}});
    EXPECT_EQ(shownItems(shown(table, {"lpha", -1, {}})), QStringList({"alpha", "beta"}));
}

TEST(RowChange, FiltersByAllDigitsOfADigest)
{
    STImaContentAsr measured{};
    qstrncpy(measured.fileDigest, QByteArray(32, 'a') + "beef", sizeof measured.fileDigest);
    const auto table = std::make_shared<RecordTable<STImaContentAsr>>(QVector<STImaContentAsr>{{}, measured});
    EXPECT_EQ(shown(table, {"BEEF", -1, {}}).order, QVector<int>{1});
}

TEST(RowChange, AsksTheFilterAgainForChangedRows)
{
    const Arrangement filter{"1", -1, {}};
    const ShownRows before = shown(stateLines(threeLines), filter);
    EXPECT_EQ(shownItems(before), QStringList({"a"}));
    const auto change = changeOf(before, stateLines({{"a", "5"}, {"b", "1"}, {"c", "3"}}), filter, 0);
    EXPECT_EQ(shownItems(change->rows), QStringList({"b"}));
    EXPECT_EQ(change->gone, 1);
    EXPECT_EQ(change->added, 1);
}

TEST(RowChange, LetsMarksFade)
{
    const auto changed = changeOf(shown(stateLines(threeLines)), stateLines({{"a", "x"}, {"b", "2"}}), {}, 0);
    const auto soon = changeOf(changed->rows, stateLines({{"a", "x"}, {"b", "2"}, {"c", "3"}}), {}, 100);
    EXPECT_EQ(soon->rows.marks[0].cells, 2U) << "still marked, since the last change";
    const auto late = changeOf(soon->rows, soon->rows.table, sortedBy(0), 100 + CellMarks::duration);
    EXPECT_TRUE(late->rows.marks.isEmpty());
}

TEST(RowChange, ShowsARecordAlwaysInItsOneRow)
{
    const auto before = std::make_shared<RecordTable<STStateAsr>>(STStateAsr{28, 0});
    const auto after = std::make_shared<RecordTable<STStateAsr>>(STStateAsr{1, 2});
    const auto change = changeOf(shown(before), after, {}, 0);
    EXPECT_EQ(change->gone + change->added, 0);
    EXPECT_EQ(change->rows.marks[0].cells, 3U);
}
