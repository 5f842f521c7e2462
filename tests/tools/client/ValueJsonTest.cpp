#include "ValueJson.h"

#include "PrintQString.h"
#include "RecordTable.h"

#include <QDateTime>

#include <gtest/gtest.h>

using TavFields::Kind;

TEST(ValueJson, TellsAValueByWhatItMeans)
{
    const struct {
        Kind kind;
        QVariant value;
        QJsonValue json;
    } rows[] = {
        {Kind::Number, -7, -7},
        {Kind::Size, quint64(1) << 53, qint64(1) << 53},
        {Kind::Size, (quint64(1) << 53) + 1, "9007199254740993"},
        {Kind::Size, Q_UINT64_C(18446744073709551615), "18446744073709551615"},
        {Kind::Duration, std::numeric_limits<qint64>::min(), "-9223372036854775808"},
        {Kind::Permille, 505, 505},
        {Kind::Flag, true, true},
        {Kind::Flag, 0, false},
        {Kind::FlagOrUnknown, -1, QJsonValue::Null},
        {Kind::FlagOrUnknown, 1, true},
        {Kind::Success, 0, false},
        {Kind::CheckMark, true, true},
        {Kind::Time, 0, QJsonValue::Null},
        {Kind::Texts, QStringList({"a", "b"}), QJsonArray({"a", "b"})},
        {Kind::Texts, QVariantList({8, 3}), QJsonArray({8, 3})},
        {Kind::Bytes, QByteArray("\0\xff", 2), "AP8="},
        {Kind::Digest, QString(64, 'f'), QString(64, 'f')},
        {Kind::Text, QVariant(), QJsonValue::Null},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(ValueJson::ofCell(row.kind, row.value), row.json) << row.value.toString().toStdString();
    }
}

TEST(ValueJson, TellsATimeWithItsZone)
{
    const QString text = ValueJson::ofCell(Kind::Time, 1700000000).toString();
    const QDateTime time = QDateTime::fromString(text, Qt::ISODate);
    EXPECT_EQ(time.toSecsSinceEpoch(), 1700000000);
    EXPECT_NE(time.timeSpec(), Qt::LocalTime) << text.toStdString() << " lacks a zone";
}

TEST(ValueJson, KeepsATimeBeyondTheCalendarAsItsNumber)
{
    EXPECT_EQ(ValueJson::ofCell(Kind::Time, std::numeric_limits<qint64>::max()), "9223372036854775807");
}

TEST(ValueJson, NamesKindAndUnitOfEachColumn)
{
    const QJsonArray columns = ValueJson::columns(RecordTable<STResourceInfoAsr>(STResourceInfoAsr{}));
    EXPECT_EQ(columns.first().toObject(), (QJsonObject{{"name", "memoryTotal"}, {"kind", "size"}, {"unit", "bytes"}}));
    EXPECT_EQ(columns.last().toObject(), (QJsonObject{{"name", "hostName"}, {"kind", "text"}}));
}

TEST(ValueJson, NamesTheCellsOfEachRow)
{
    const RecordTable<STStateInfo> table(QVector<STStateInfo>{{"one", "1"}, {"two", "2"}});
    EXPECT_EQ(ValueJson::rows(table),
              QJsonArray({QJsonObject{{"itemText", "one"}, {"stateText", "1"}},
                          QJsonObject{{"itemText", "two"}, {"stateText", "2"}}}));
}
