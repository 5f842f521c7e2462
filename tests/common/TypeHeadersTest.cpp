#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"

#include <QMetaEnum>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using Func = CTavFuncTypeHeader;
using SubFunc = CTavSubFuncTypeHeader;

namespace
{
using Rows = std::vector<std::pair<std::string, int>>;

QMetaEnum enumerator(const QMetaObject &metaObject, const char *name)
{
    return metaObject.enumerator(metaObject.indexOfEnumerator(name));
}

const QMetaEnum funcTypes = enumerator(Func::staticMetaObject, "TavFuncTypeHeader_");
const QMetaEnum subFuncTypes = enumerator(SubFunc::staticMetaObject, "TavSubFuncTypeHeader_");

Rows rows(const QMetaEnum &enumerator)
{
    Rows rows;
    for (int i = 0; i < enumerator.keyCount(); ++i) {
        rows.emplace_back(enumerator.key(i), enumerator.value(i));
    }
    return rows;
}
}

TEST(FuncTypeHeader, KeyTextsAndValuesAreThoseOfTheCatalogue)
{
    EXPECT_THAT(rows(funcTypes),
                testing::ElementsAreArray(Rows{{"Func_None", 0},
                                               {"Func_HostInfo", 1},
                                               {"Func_ReInforceConfig", 2},
                                               {"Func_CompleteControl", 3},
                                               {"Func_AccessControl", 4},
                                               {"Func_SystemProtect", 5},
                                               {"Func_SystemAudit", 6}}));
}

TEST(SubFuncTypeHeader, KeyTextsAndValuesAreThoseOfTheCatalogue)
{
    EXPECT_THAT(rows(subFuncTypes),
                testing::ElementsAreArray(Rows{{"SubFunc_None", 0},
                                               {"SubFunc_serverResourceInfo", 1},
                                               {"SubFunc_OneClickReinforcement", 2},
                                               {"SubFunc_BaselineScan", 3},
                                               {"SubFunc_StaticMeasurements", 4},
                                               {"SubFunc_DynamicMeasurements", 5},
                                               {"SubFunc_PrincipalSettings", 6},
                                               {"SubFunc_ObjectSetting", 7},
                                               {"SubFunc_PrincipalAdd", 8},
                                               {"SubFunc_ObjectAdd", 9},
                                               {"SubFunc_SelfProtect", 10},
                                               {"SubFunc_ProcessProtect", 11},
                                               {"SubFunc_KernelProtect", 12},
                                               {"SubFunc_KeyDirAmperProof", 13},
                                               {"SubFunc_LogAudit", 14}}));
}

TEST(FuncTypeHeader, KeyTextsMapToTheEnumerators)
{
    EXPECT_EQ(funcTypes.keyToValue("Func_HostInfo"), Func::Func_HostInfo);
    EXPECT_EQ(funcTypes.keyToValue("Func_SystemAudit"), Func::Func_SystemAudit);
}

TEST(SubFuncTypeHeader, KeyTextsMapToTheEnumerators)
{
    EXPECT_EQ(subFuncTypes.keyToValue("SubFunc_serverResourceInfo"), SubFunc::SubFunc_serverResourceInfo);
    EXPECT_EQ(subFuncTypes.keyToValue("SubFunc_LogAudit"), SubFunc::SubFunc_LogAudit);
}

TEST(FuncTypeHeader, AnUnknownKeyIsMinusOne)
{
    EXPECT_EQ(funcTypes.keyToValue("Func_Unknown"), -1);
    EXPECT_EQ(funcTypes.keyToValue("func_hostinfo"), -1);
}

TEST(SubFuncTypeHeader, AnUnknownKeyIsMinusOne)
{
    EXPECT_EQ(subFuncTypes.keyToValue("SubFunc_Unknown"), -1);
    EXPECT_EQ(subFuncTypes.keyToValue("SubFunc_ServerResourceInfo"), -1);
    EXPECT_EQ(subFuncTypes.keyToValue("SubFunc_KeyDirTamperProof"), -1);
}

TEST(FuncTypeHeader, MinusOneIsAValueOfTheType)
{
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<Func::TavFuncTypeHeader_>, int>));
    EXPECT_EQ(static_cast<Func::TavFuncTypeHeader_>(-1), -1);
}

TEST(SubFuncTypeHeader, MinusOneIsAValueOfTheType)
{
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<SubFunc::TavSubFuncTypeHeader_>, int>));
    EXPECT_EQ(static_cast<SubFunc::TavSubFuncTypeHeader_>(-1), -1);
}

TEST(FuncTypeHeader, TheTypeIsKnownToItsMetaObject)
{
    EXPECT_EQ(qt_getEnumMetaObject(Func::Func_None), &Func::staticMetaObject);
    EXPECT_STREQ(qt_getEnumName(Func::Func_None), "TavFuncTypeHeader_");
}

TEST(SubFuncTypeHeader, TheTypeIsKnownToItsMetaObject)
{
    EXPECT_EQ(qt_getEnumMetaObject(SubFunc::SubFunc_None), &SubFunc::staticMetaObject);
    EXPECT_STREQ(qt_getEnumName(SubFunc::SubFunc_None), "TavSubFuncTypeHeader_");
}
