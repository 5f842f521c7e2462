#include "MemberName.h"
#include "TavFieldValues.h"

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
    EXPECT_EQ(TavFields::fieldOf<&STAccessSetUIData::level>().kind, Kind::Number);
    EXPECT_EQ(TavFields::fieldOf<&STAccessSetUIData::labels>().kind, Kind::Texts);
    EXPECT_EQ(TavFields::fieldOf<&STAccessSetUIData::extraFlag>().kind, Kind::Flag);
    EXPECT_EQ(TavFields::fieldOf<&STAccessSetUIData::checked>().kind, Kind::CheckMark);
    EXPECT_EQ(TavFields::fieldOf<&STProtoDataContainer::protoData>().kind, Kind::Bytes);
    EXPECT_EQ(TavFields::fieldOf<&TavFuncTypeData_::funcType>().kind, Kind::Enumeration);
    EXPECT_EQ(TavFields::fieldOf<&STStaticCurPathAsr::path>().kind, Kind::Text);
    EXPECT_EQ(TavFields::fieldOf<&STStaticCurPathAsr::path>().bufferSize, TavTextLimits::Path);
}

TEST(Fields, AreReadFromARecord)
{
    STProProtectContentAsr process{};
    process.startTime = 5;
    std::memset(process.name, 'x', sizeof(process.name)); // without NUL
    std::strcpy(process.path, "路径");
    EXPECT_EQ(TavFields::valueOf(TavFields::fieldOf<&STProProtectContentAsr::startTime>(), process), QVariant(5));
    EXPECT_EQ(TavFields::valueOf(TavFields::fieldOf<&STProProtectContentAsr::name>(), process),
              QVariant(QString(16, 'x')));
    EXPECT_EQ(TavFields::valueOf(TavFields::fieldOf<&STProProtectContentAsr::path>(), process), QVariant("路径"));

    const STAccessSetUIData level{7, {"a", "b"}, false, true};
    QVariantList values;
    QStringList names;
    for (const auto &field : TavFields::fieldsOf<STAccessSetUIData>()) {
        names.append(field.name);
        values.append(field.value(level));
    }
    EXPECT_EQ(names, QStringList({"level", "labels", "extraFlag", "checked"}));
    EXPECT_EQ(values, QVariantList({7, QStringList{"a", "b"}, false, true}));
    const STProtoDataContainer row{true, 1, std::string("\0\xff", 2)};
    EXPECT_EQ(TavFields::fieldsOf<STProtoDataContainer>().last().value(row), QVariant(QByteArray("\0\xff", 2)));
    TavFuncTypeData_ function;
    function.funcType = CTavFuncTypeHeader::Func_HostInfo;
    EXPECT_EQ(TavFields::valueOf(TavFields::fieldOf<&TavFuncTypeData_::funcType>(), function),
              QVariant(int(CTavFuncTypeHeader::Func_HostInfo)));
}

TEST(Fields, HaveAUnitWhereTheirKindIsAMeasure)
{
    using TavFields::Kind;
    EXPECT_STREQ(TavFields::unitOf(Kind::Percent), "percent");
    EXPECT_STREQ(TavFields::unitOf(Kind::Permille), "permille");
    EXPECT_STREQ(TavFields::unitOf(Kind::Hundredths), "hundredths");
    EXPECT_STREQ(TavFields::unitOf(Kind::Size), "bytes");
    EXPECT_STREQ(TavFields::unitOf(Kind::Duration), "seconds");
    EXPECT_STREQ(TavFields::unitOf(Kind::Time), "seconds since the epoch");
    EXPECT_STREQ(TavFields::unitOf(Kind::Number), "");
}
