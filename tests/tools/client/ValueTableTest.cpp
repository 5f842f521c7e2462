#include "ValueTable.h"

#include "Base.pb.h"
#include "MessageTable.h"
#include "PrintQString.h"
#include "RecordTable.h"
#include "Reinforce.pb.h"
#include "STFileProtectContentAsr.h"
#include "STProtoDataContainer.h"
#include "SystemProtect.pb.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

using TavFields::Kind;

namespace
{
QStringList namesOf(const ValueTable &table)
{
    QStringList names;
    for (const ValueColumn &column : table.columns()) {
        names.append(column.name);
    }
    return names;
}

QVariant cell(const ValueTable &table, int row, const char *column)
{
    return table.cell(row, table.column(column));
}

quint64 fingerprintOf(const STStateInfo &line)
{
    return RecordTable<STStateInfo>(line).fingerprint(0);
}
}

TEST(ValueTable, OfARecordIsOneRowOfItsFields)
{
    const RecordTable<STStateAsr> table(STStateAsr{28, -1});
    EXPECT_FALSE(table.isList());
    EXPECT_EQ(table.rowCount(), 1);
    EXPECT_EQ(namesOf(table), QStringList({"stateValue", "stateExtra"}));
    EXPECT_EQ(table.cell(0, 1), QVariant(-1));
}

TEST(ValueTable, OfAListIsARowForEachElement)
{
    STFileProtectContentAsr file{};
    file.size = Q_UINT64_C(18446744073709551615);
    std::fill(std::begin(file.path), std::end(file.path), 'x'); // without NUL
    const RecordTable<STFileProtectContentAsr> table(QVector<STFileProtectContentAsr>{{}, file});
    EXPECT_TRUE(table.isList());
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(cell(table, 1, "size"), QVariant(file.size));
    EXPECT_EQ(cell(table, 1, "path"), QString(sizeof file.path, 'x'));
    EXPECT_EQ(table.columns()[table.column("mode")].kind, Kind::FileMode);
    EXPECT_EQ(table.column("modus"), -1);
}

TEST(ValueTable, OfAMessageLeavesAbsentFieldsWithoutValue)
{
    auto message = std::make_shared<Tav::Reinforce::OneThreeConfig>();
    message->set_enabled(false);
    message->mutable_system()->set_uid(4000000000);
    const MessageTable table(message);
    EXPECT_EQ(cell(table, 0, "enabled"), QVariant(false));
    EXPECT_EQ(cell(table, 0, "system.uid"), QVariant(4000000000U));
    EXPECT_FALSE(cell(table, 0, "system.user_name").isValid());
    EXPECT_FALSE(cell(table, 0, "audit.uid").isValid());
}

TEST(ValueTable, OfAListInAMessageKnowsWhatItsFieldsMean)
{
    auto message = std::make_shared<Tav::SystemProtect::SoftUnloadProtectContentAsr>();
    message->add_entries()->set_package("one");
    message->add_entries()->set_size(5);
    const auto lists = MessageTable::listsIn(*message);
    ASSERT_EQ(lists.size(), 1U);
    const MessageTable table(message, lists.front());
    EXPECT_TRUE(table.isList());
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(cell(table, 0, "package"), QVariant("one"));
    EXPECT_EQ(cell(table, 1, "size"), QVariant(quint64(5)));
    EXPECT_EQ(table.columns()[table.column("size")].kind, Kind::Size);
    EXPECT_EQ(table.columns()[table.column("install_time")].kind, Kind::Time);
    EXPECT_EQ(table.columns()[table.column("enabled")].kind, Kind::Flag);
}

TEST(ValueTable, TellsColumnsInWords)
{
    EXPECT_EQ((ValueColumn{"memoryTotal", Kind::Size}.title()), "memory total");
    EXPECT_EQ((ValueColumn{"system.user_name", Kind::Text}.title()), "system: user name");
    EXPECT_EQ((ValueColumn{"pid", Kind::Number}.title()), "pid");
    EXPECT_TRUE((ValueColumn{"mode", Kind::FileMode}.isNumber()));
    EXPECT_FALSE((ValueColumn{"time", Kind::Time}.isNumber()));
}

TEST(ValueTable, TellsRowsApartByEachOfTheirCells)
{
    EXPECT_EQ(fingerprintOf({"ab", "c"}), fingerprintOf({"ab", "c"}));
    EXPECT_NE(fingerprintOf({"ab", "c"}), fingerprintOf({"a", "bc"}));
    EXPECT_NE(RecordTable<STStateAsr>(STStateAsr{0, 1}).fingerprint(0),
              RecordTable<STStateAsr>(STStateAsr{1, 0}).fingerprint(0));
    EXPECT_NE(RecordTable<STProtoDataContainer>(STProtoDataContainer{false, 1, std::string("\0", 1)}).fingerprint(0),
              RecordTable<STProtoDataContainer>(STProtoDataContainer{false, 1, {}}).fingerprint(0));
}

TEST(ValueTable, DoesNotLookBehindTheEndOfAText)
{
    STStaticCurPathAsr one{"/etc"};
    STStaticCurPathAsr other{"/etc"};
    other.path[100] = 'x';
    EXPECT_EQ(RecordTable<STStaticCurPathAsr>(one).fingerprint(0),
              RecordTable<STStaticCurPathAsr>(other).fingerprint(0));
}

TEST(ValueTable, SharesAListUntilItIsChanged)
{
    QVector<STStateInfo> lines{{"item", "state"}};
    const RecordTable<STStateInfo> table(lines);
    EXPECT_TRUE(table.sharesRowsWith(RecordTable<STStateInfo>(lines)));
    lines.first().stateText = "other";
    EXPECT_FALSE(table.sharesRowsWith(RecordTable<STStateInfo>(lines)));
    EXPECT_EQ(cell(table, 0, "stateText"), QVariant("state"));
}

TEST(ValueTable, GivesARowAsOperationsTakeIt)
{
    const RecordTable<STProtoDataContainer> table(
        QVector<STProtoDataContainer>{STProtoDataContainer{true, 7, "payload"}});
    EXPECT_EQ(TavJson::fromJson<STProtoDataContainer>(table.argument(0)).protoData, "payload");
}

TEST(ValueTable, TellsTextsApartThatAreNotUtf8WithoutAWord)
{
    const auto fingerprintOf = [](const std::string &text) {
        const auto message = std::make_shared<Tav::Base::CommandStateAsr>();
        message->set_message(text);
        return MessageTable(message).fingerprint(0);
    };
    testing::internal::CaptureStderr();
    EXPECT_NE(fingerprintOf("\xff"), fingerprintOf("\xfe"));
    EXPECT_NE(fingerprintOf(""), MessageTable(std::make_shared<Tav::Base::CommandStateAsr>()).fingerprint(0));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
