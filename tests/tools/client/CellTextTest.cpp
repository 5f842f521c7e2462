#include "CellText.h"
#include "PrintQString.h"

#include <gtest/gtest.h>

#include <limits>

using TavFields::Kind;

TEST(CellText, ShowsAValueByWhatItMeans)
{
    const struct {
        Kind kind;
        QVariant value;
        QString text;
    } rows[] = {
        {Kind::Number, -7, "-7"},
        {Kind::Number, Q_UINT64_C(18446744073709551615), "18446744073709551615"},
        {Kind::Percent, 50, "50 %"},
        {Kind::Permille, 505, "50.5 %"},
        {Kind::Hundredths, 105, "1.05"},
        {Kind::Size, Q_UINT64_C(1536), "1.50 KiB"},
        {Kind::Size, std::numeric_limits<qint64>::max(), "8.00 EiB"},
        {Kind::Size, std::numeric_limits<quint64>::max(), "18446744073709551615 bytes"},
        {Kind::Duration, 90061, "1 d 01:01:01"},
        {Kind::Time, 0, "-"},
        {Kind::Time, Q_INT64_C(-62135596801), "-62135596801"}, // before the year 1
        {Kind::Time, Q_INT64_C(253402300800), "253402300800"}, // of the year 10000
        {Kind::Time, std::numeric_limits<qint64>::min(), "-9223372036854775808"},
        {Kind::Time, std::numeric_limits<qint64>::max(), "9223372036854775807"},
        {Kind::Permissions, 5, "r-x"},
        {Kind::FileMode, 04640U, "4640"},
        {Kind::Flag, true, "yes"},
        {Kind::Flag, 0, "no"},
        {Kind::FlagOrUnknown, -1, "?"},
        {Kind::FlagOrUnknown, 1, "yes"},
        {Kind::Success, 1, "ok"},
        {Kind::Success, 0, "failed"},
        {Kind::CheckMark, true, "☑"},
        {Kind::CheckMark, false, "☐"},
        {Kind::Texts, QStringList({"a", "b"}), "a, b"},
        {Kind::Digest, QString(64, 'f'), QString(16, 'f')},
        {Kind::Text, "审计", "审计"},
        {Kind::Bytes, QByteArray("\0\xff", 2), "2 B"},
        {Kind::Number, QVariant(), ""},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(CellText::ofKind(row.kind, row.value), row.text);
    }
}

TEST(CellText, GivesInFullWhatACellShortens)
{
    const struct {
        Kind kind;
        QVariant value;
        QString text;
    } rows[] = {
        {Kind::Digest, QString(64, 'f'), QString(64, 'f')},
        {Kind::Size, Q_UINT64_C(1536), "1536 bytes"},
        {Kind::Size, QVariant(), ""},
        {Kind::Bytes, QByteArray("\0\xff", 2), "AP8="},
        {Kind::Permille, 505, "50.5 %"},
        {Kind::Text, "审计", "审计"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(CellText::inFull({"field", row.kind}, row.value), row.text);
    }
    EXPECT_EQ(CellText::inFull({"field", Kind::Number, {{1, "online"}}}, 1), "1 (online)");
}

TEST(CellText, ShowsWhatACodeMeans)
{
    const ValueColumn state = ValueColumn::of("Tav.SystemConfig.CommdOnlineState", "state", Kind::Number);
    EXPECT_EQ(CellText::of(state, 1), "1 (online)");
    EXPECT_EQ(CellText::of(state, 7), "7") << "a code that nothing documents";
    EXPECT_EQ(CellText::of(state, QVariant()), "") << "an absent field";
    const ValueColumn time = ValueColumn::of("Tav.SystemConfig.CommdOnlineState", "round_trip_time", Kind::Number);
    EXPECT_EQ(CellText::of(time, -1), "-1 (unknown)");
    EXPECT_EQ(CellText::of(time, 12), "12");
}
