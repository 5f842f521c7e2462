#include "MemberName.h"
#include "TavFields.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
template<class Field>
std::size_t offsetOf(const Field &field)
{
    static const typename Field::Record record{};
    return reinterpret_cast<const char *>(&(record.*field.member)) - reinterpret_cast<const char *>(&record);
}
}

TEST(Fields, BearTheNamesOfTheirMembers)
{
    TavFields::Records::forEach([](auto tag) {
        TavFields::forEachField<typename decltype(tag)::type>(
            [](const auto &field) { EXPECT_EQ(field.name, memberName<std::decay_t<decltype(field)>::member>()); });
    });
}

TEST(Fields, LeaveNoGapInTheirRecordThatAlignmentDoesNotExplain)
{
    TavFields::Records::forEach([](auto tag) {
        using Record = typename decltype(tag)::type;
        std::size_t end = 0;
        TavFields::forEachField<Record>([&end](const auto &field) {
            using Field = std::decay_t<decltype(field)>;
            const std::size_t alignment = std::min(alignof(typename Field::Type), alignof(Record));
            EXPECT_TRUE(offsetOf(field) >= end && offsetOf(field) - end < alignment)
                << typeid(Record).name() << ": a field is missing in the table before " << field.name;
            end = offsetOf(field) + sizeof(typename Field::Type);
        });
        EXPECT_TRUE(sizeof(Record) >= end && sizeof(Record) - end < alignof(Record))
            << typeid(Record).name() << ": the last field is missing in the table";
    });
}

TEST(Fields, HaveTheKindOfTheirTypeUnlessTheTableNamesAnother)
{
    using TavFields::Kind;
    const auto &[level, labels, extraFlag, checked] = TavFields::Table<STAccessSetUIData>::list;
    EXPECT_EQ(level.kind, Kind::Number);
    EXPECT_EQ(labels.kind, Kind::Texts);
    EXPECT_EQ(extraFlag.kind, Kind::Flag);
    EXPECT_EQ(checked.kind, Kind::CheckMark);
    EXPECT_EQ(std::get<2>(TavFields::Table<STProtoDataContainer>::list).kind, Kind::Bytes);
    EXPECT_EQ(std::get<2>(TavFields::Table<TavFuncTypeData_>::list).kind, Kind::Enumeration);
    EXPECT_EQ(std::get<0>(TavFields::Table<STStaticCurPathAsr>::list).kind, Kind::Text);
    EXPECT_EQ(std::get<0>(TavFields::Table<STStaticCurPathAsr>::list).bufferSize, TavTextLimits::Path);
}

TEST(Fields, HaveAUnitWhereTheirKindIsAMeasure)
{
    EXPECT_STREQ(TavFields::unitOf(TavFields::Kind::Time), "seconds since the epoch");
    EXPECT_STREQ(TavFields::unitOf(TavFields::Kind::Size), "bytes");
    EXPECT_STREQ(TavFields::unitOf(TavFields::Kind::Number), "");
}
