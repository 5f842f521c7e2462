#include "MemberName.h"
#include "TavFields.h"

#include <gtest/gtest.h>

TEST(Fields, BearTheNamesOfTheirMembers)
{
    TavFields::Records::forEach([](auto tag) {
        TavFields::forEachField<typename decltype(tag)::type>(
            [](const auto &field) { EXPECT_EQ(field.name, memberName<std::decay_t<decltype(field)>::member>()); });
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
