#include "ValueModel.h"

#include "PrintQString.h"
#include "ShownToolTip.h"
#include "StateLines.h"
#include "STFileProtectContentAsr.h"
#include "STSystemScanStateAsr.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <random>

namespace
{
class ValueModelChecks : public testing::Test
{
protected:
    void show(const ValueTablePointer &table)
    {
        if (const auto change = changeOf(model.rows(), table, model.arrangement(), ValueModel::now())) {
            model.apply(*change);
        }
    }

    QString text(const QModelIndex &index)
    {
        return index.data().toString();
    }

    ValueModel model{true};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

/// A list that has changed in every way at once.
QVector<STStateInfo> disturbed(QVector<STStateInfo> lines, std::mt19937 &random)
{
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    for (int i = below(4); i > 0 && !lines.isEmpty(); --i) {
        lines.removeAt(below(lines.size()));
    }
    for (int i = below(4); i > 0; --i) {
        lines.insert(below(lines.size() + 1), {QString::number(below(1000)), QString::number(below(10))});
    }
    for (int i = below(4); i > 0 && !lines.isEmpty(); --i) {
        lines[below(lines.size())].stateText = QString::number(below(10));
    }
    if (below(3) == 0) {
        std::shuffle(lines.begin(), lines.end(), random);
    }
    return lines;
}
}

TEST_F(ValueModelChecks, EndsAtTheNewRowsWhateverHasChanged)
{
    std::mt19937 random(20261121); // the same lists each time
    QVector<STStateInfo> lines;
    for (int round = 0; round < 2000; ++round) {
        lines = disturbed(lines, random);
        if (random() % 4 == 0) {
            model.sort(int(random() % 3) - 1, random() % 2 ? Qt::AscendingOrder : Qt::DescendingOrder);
        }
        if (random() % 4 == 0) {
            model.setFilter(random() % 2 ? QString() : QString::number(random() % 10));
        }
        const ValueTablePointer table = stateLines(lines);
        show(table);
        const ShownRows fresh = changeOf({}, table, model.arrangement(), 0)->rows;
        ASSERT_EQ(model.rows().order, fresh.order) << round;
        ASSERT_EQ(model.rowCount(), fresh.order.size());
        for (int row = 0; row < model.rowCount(); ++row) {
            ASSERT_EQ(text(model.index(row, 1)), fresh.table->cell(fresh.order[row], 1).toString()) << round;
        }
    }
}

TEST_F(ValueModelChecks, SelectionAndCurrentCellStayWithTheirRows)
{
    std::mt19937 random(7);
    QVector<STStateInfo> lines;
    for (int i = 0; i < 100; ++i) {
        lines.append({QString("item %1").arg(i), "1"});
    }
    show(stateLines(lines));
    QItemSelectionModel selection(&model);
    selection.select(model.index(40, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    selection.setCurrentIndex(model.index(60, 1), QItemSelectionModel::NoUpdate);
    for (int round = 0; round < 50; ++round) {
        std::shuffle(lines.begin(), lines.end(), random);
        lines.insert(int(random() % 100), {QString("new %1").arg(round), "2"});
        model.sort(round % 3 - 1);
        show(stateLines(lines));
        ASSERT_EQ(selection.selectedRows().size(), 1);
        EXPECT_EQ(text(selection.selectedRows().first()), "item 40");
        EXPECT_EQ(text(selection.currentIndex().siblingAtColumn(0)), "item 60");
    }
    lines.erase(std::remove_if(lines.begin(), lines.end(), [](const auto &line) { return line.itemText == "item 40"; }),
                lines.end());
    show(stateLines(lines));
    EXPECT_TRUE(selection.selectedRows().isEmpty());
}

TEST_F(ValueModelChecks, AnnouncesAnyDifferenceInAFewSteps)
{
    QVector<STStateInfo> lines;
    for (int i = 0; i < 3000; ++i) {
        lines.append({QString::number(i), QString::number(i)});
    }
    show(stateLines(lines));
    for (int i = 2999; i >= 0; i -= 3) {
        lines.removeAt(i);
        lines.insert(i / 2, {"new", QString::number(i)});
    }
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    int moved = 0;
    QObject::connect(&model, &QAbstractItemModel::layoutChanged, &model, [&moved] { ++moved; });
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    show(stateLines(lines));
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(removed.size(), 1);
    EXPECT_EQ(moved, 2);
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(ValueModelChecks, MarksChangedCellsForAMoment)
{
    show(stateLines({{"a", "1"}, {"b", "2"}}));
    EXPECT_FALSE(model.index(0, 1).data(Qt::BackgroundRole).isValid());
    show(stateLines({{"a", "5"}, {"b", "2"}}));
    EXPECT_TRUE(model.index(0, 1).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(model.index(0, 0).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(model.index(1, 1).data(Qt::BackgroundRole).isValid());
}

TEST_F(ValueModelChecks, TellsTheRawValueAndItsUnit)
{
    STFileProtectContentAsr file{};
    file.size = 1536;
    const auto table = std::make_shared<RecordTable<STFileProtectContentAsr>>(QVector<STFileProtectContentAsr>{file});
    show(table);
    const QModelIndex size = model.index(0, table->column("size"));
    EXPECT_EQ(text(size), "1.50 KiB");
    EXPECT_EQ(shownToolTip(size.data(Qt::ToolTipRole).toString()), "size: 1536 bytes");
    EXPECT_EQ(size.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight, Qt::AlignRight);
    EXPECT_EQ(model.headerData(table->column("modifyTime"), Qt::Horizontal), "modify time");
}

TEST_F(ValueModelChecks, TellsARawTextAsItIs)
{
    const QString hostile[]{"<b>not bold</b> &amp; so on", "one & \"two\",\n  indented"};
    show(stateLines({{hostile[0], "1"}, {hostile[1], "2"}}));
    for (int row = 0; row < 2; ++row) {
        EXPECT_EQ(shownToolTip(model.index(row, 0).data(Qt::ToolTipRole).toString()), "itemText: " + hostile[row]);
    }
}

TEST_F(ValueModelChecks, ShowsTheBeginningOfALongTextAndFindsItByItsEnd)
{
    const QString smiley = QString::fromUtf8("\xf0\x9f\x99\x82");
    const QString text = 'x' + smiley.repeated(3000) + "the end";
    show(stateLines({{text, "1"}, {"short", "2"}}));
    const QString shown = model.index(0, 0).data().toString();
    EXPECT_LE(shown.size(), 1001);
    EXPECT_EQ(shown, 'x' + smiley.repeated(shown.size() / 2 - 1) + QChar(u'\u2026')) << "no character is cut in two";
    const QString toolTip = shownToolTip(model.index(0, 0).data(Qt::ToolTipRole).toString());
    EXPECT_GT(toolTip.size(), shown.size());
    EXPECT_LE(toolTip.size(), 4001);
    EXPECT_TRUE(toolTip.endsWith(smiley + QChar(u'\u2026')));
    model.setFilter("the end");
    show(stateLines({{text, "1"}, {"short", "2"}}));
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(ValueModelChecks, TellsWhatACodeMeansAndFindsItByThat)
{
    STSystemScanStateAsr running{};
    running.state = 1;
    STSystemScanStateAsr finished{};
    finished.state = 2;
    const auto table = std::make_shared<RecordTable<STSystemScanStateAsr>>(QVector{running, finished});
    const int state = table->column("state");
    show(table);
    EXPECT_EQ(text(model.index(0, state)), "1 (running)");
    EXPECT_EQ(shownToolTip(model.index(0, state).data(Qt::ToolTipRole).toString()), "state: 1");
    model.setFilter("Finished");
    show(table);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(text(model.index(0, state)), "2 (finished)");
}
