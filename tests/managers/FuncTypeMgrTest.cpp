#include "BackgroundCalls.h"
#include "GlobalStateGuard.h"
#include "HeldReading.h"
#include "ITavFuncTypeMgr.h"
#include "LogCapture.h"
#include "PrintQString.h"
#include "TavPluginHost.h"
#include "TextFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

using Func = CTavFuncTypeHeader;
using SubFunc = CTavSubFuncTypeHeader;
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

namespace
{
constexpr auto unknownFunc = static_cast<FuncType>(-1);
constexpr auto unknownSubFunc = static_cast<SubFuncType>(-1);

// The records as tuples, which compare and print: title, icon, own type, parent's type, enabled, user list.
using FuncRow = std::tuple<std::string, std::string, int, int, bool, std::string>;
// Title, function, own type, real parent's type, class name, help, has a parent, enabled.
using SubFuncRow = std::tuple<std::string, int, int, int, std::string, std::string, bool, bool>;

FuncRow row(const TavFuncTypeData_ &func)
{
    return {
        func.funcTitle.toStdString(), func.funcIcon.toStdString(), func.funcType, func.parentFuncType, func.funcEnabled,
        func.usrList.toStdString()};
}

SubFuncRow row(const TavSubFuncTypeData_ &subFunc)
{
    return {subFunc.subFuncTitle.toStdString(),
            subFunc.funcType,
            subFunc.subFuncType,
            subFunc.realParentType,
            subFunc.subFuncClassName.toStdString(),
            subFunc.subFuncHelp.toStdString(),
            subFunc.subFuncHasParent,
            subFunc.subFuncEnabled};
}

std::vector<FuncRow> rows(const QVector<TavFuncTypeData_> &funcs)
{
    std::vector<FuncRow> rows;
    for (const TavFuncTypeData_ &func : funcs) {
        rows.push_back(row(func));
    }
    return rows;
}

std::vector<SubFuncRow> rows(const QVector<TavSubFuncTypeData_> &subFuncs)
{
    std::vector<SubFuncRow> rows;
    for (const TavSubFuncTypeData_ &subFunc : subFuncs) {
        rows.push_back(row(subFunc));
    }
    return rows;
}

std::vector<std::string> titles(const QVector<TavFuncTypeData_> &funcs)
{
    std::vector<std::string> titles;
    for (const TavFuncTypeData_ &func : funcs) {
        titles.push_back(func.funcTitle.toStdString());
    }
    return titles;
}

std::vector<std::string> titles(const QVector<TavSubFuncTypeData_> &subFuncs)
{
    std::vector<std::string> titles;
    for (const TavSubFuncTypeData_ &subFunc : subFuncs) {
        titles.push_back(subFunc.subFuncTitle.toStdString());
    }
    return titles;
}

const FuncRow defaultFunc{"", "", 0, 0, true, ""};
const SubFuncRow defaultSubFunc{"", 0, 0, 0, "", "", true, true};

/// What the manager has logged so far.
QVector<LogCapture::Message> messages(const LogCapture &log)
{
    return log.messages("tav.TavFuncTypeMgr");
}

void expectParseError(const LogCapture &log)
{
    ASSERT_EQ(messages(log).size(), 1);
    const LogCapture::Message message = messages(log).first();
    EXPECT_EQ(message.text, QStringLiteral("parse json file error\uFF01")); // the full-width exclamation mark
    EXPECT_EQ(message.function, "loadConfig");
    EXPECT_GT(message.line, 0);
    EXPECT_EQ(message.type, QtCriticalMsg);
}

void expectFormatErrors(const LogCapture &log, int count)
{
    const QVector<LogCapture::Message> logged = messages(log);
    EXPECT_EQ(logged.size(), count);
    for (const LogCapture::Message &message : logged) {
        EXPECT_EQ(message.text, QStringLiteral("json format is error"));
        EXPECT_EQ(message.function, "parseConfig");
        EXPECT_GT(message.line, 0);
        EXPECT_EQ(message.type, QtWarningMsg);
    }
}

const QByteArray validCatalogue = R"([
    {"funcType": "Func_HostInfo", "funcTitle": "host", "subFunList": [
        {"subFuncType": "SubFunc_serverResourceInfo", "subFuncTitile": "resources"}
    ]},
    {"funcType": "Func_SystemAudit", "funcTitle": "audit", "subFunList": [
        {"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "log"}
    ]}
])";

class FuncTypeMgr : public testing::Test
{
protected:
    FuncTypeMgr()
    {
        TavGlobalInfoMgr::getInstance()->setAppPath(
            {path("app"), path("plugin"), path("log"), path("data"), path("config")});
    }

    QString path(const char *name) const
    {
        return dir.filePath(QLatin1String(name));
    }

    QString configFile() const
    {
        return path("config/funcTypeConfig.json");
    }

    bool loadFile(const QByteArray &content)
    {
        writeFile(configFile(), content);
        return mgr->loadConfig();
    }

    bool load(const QByteArray &json)
    {
        return loadFile(json.toBase64());
    }

    /// Loads one function with one sub-function, of which only the given members are set, and returns the latter.
    std::vector<SubFuncRow> loadSubFunc(const QByteArray &members)
    {
        TavPluginHost fresh{TAV_PLUGIN_FILE};
        auto *const freshMgr = fresh.manager<ITavFuncTypeMgr>();
        writeFile(configFile(),
                  QByteArray(R"([{"funcType": "Func_HostInfo", "subFunList": [{)" + members + "}]}]").toBase64());
        freshMgr->loadConfig();
        return rows(freshMgr->getSubFuncInfo());
    }

    /// Each query of the catalogue.
    std::vector<std::function<void()>> queries()
    {
        return {[this] { static_cast<void>(mgr->getFuncInfoData(Func::Func_HostInfo)); },
                [this] { static_cast<void>(mgr->getFuncInfos()); },
                [this] { static_cast<void>(mgr->getSubFuncInfo(Func::Func_HostInfo)); },
                [this] { static_cast<void>(mgr->getSubFuncInfo(SubFunc::SubFunc_LogAudit)); },
                [this] { static_cast<void>(mgr->getSubFuncInfo()); },
                [this] { static_cast<void>(mgr->getFirstSubFuncType(Func::Func_HostInfo)); }};
    }

    GlobalStateGuard guard;
    QTemporaryDir dir;
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavFuncTypeMgr *const mgr = host.manager<ITavFuncTypeMgr>();
};
}

TEST_F(FuncTypeMgr, IsEmptyBeforeTheFirstLoad)
{
    EXPECT_TRUE(mgr->getFuncInfos().isEmpty());
    EXPECT_TRUE(mgr->getSubFuncInfo().isEmpty());
    EXPECT_TRUE(mgr->getSubFuncInfo(Func::Func_HostInfo).isEmpty());
    EXPECT_EQ(row(mgr->getFuncInfoData(Func::Func_HostInfo)), defaultFunc);
    EXPECT_EQ(row(mgr->getSubFuncInfo(SubFunc::SubFunc_LogAudit)), defaultSubFunc);
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_HostInfo), SubFunc::SubFunc_None);
}

TEST_F(FuncTypeMgr, LoadIniConfigIsTrueAndLoadsNothing)
{
    writeFile(configFile(), validCatalogue.toBase64());
    EXPECT_TRUE(mgr->loadIniConfig());
    EXPECT_TRUE(mgr->getFuncInfos().isEmpty());
    EXPECT_TRUE(mgr->getSubFuncInfo().isEmpty());
}

TEST_F(FuncTypeMgr, LoadConfigIsFalseWhateverHappens)
{
    const LogCapture log;
    EXPECT_FALSE(mgr->loadConfig());
    EXPECT_FALSE(load(validCatalogue));
    EXPECT_FALSE(load("[]"));
    EXPECT_FALSE(load("{}"));
    EXPECT_FALSE(load(R"([{"funcType": "Func_HostInfo", "funcList": [{"funcType": "Func_SystemAudit"}]}])"));
    EXPECT_FALSE(load("not JSON"));
}

TEST_F(FuncTypeMgr, ReadsEveryFieldOfAFunction)
{
    load(R"([{"funcType": "Func_AccessControl", "funcTitle": "title", "funcIcon": "icon", "usrList": "a;b"}])");
    EXPECT_THAT(rows(mgr->getFuncInfos()),
                ElementsAre(FuncRow{"title", "icon", Func::Func_AccessControl, 0, true, "a;b"}));
}

TEST_F(FuncTypeMgr, ReadsEveryFieldOfASubFunction)
{
    load(R"([{"funcType": "Func_AccessControl", "subFunList": [{
        "subFuncType": "SubFunc_PrincipalAdd", "subFuncTitile": "title", "subFuncClassName": "class",
        "subFuncHelp": "help", "subFuncHasParent": false, "realParentType": "SubFunc_PrincipalSettings"
    }]}])");
    EXPECT_THAT(rows(mgr->getSubFuncInfo()),
                ElementsAre(SubFuncRow{"title", Func::Func_AccessControl, SubFunc::SubFunc_PrincipalAdd,
                                       SubFunc::SubFunc_PrincipalSettings, "class", "help", false, true}));
}

TEST_F(FuncTypeMgr, MissingTextsAreEmpty)
{
    load(R"([{"funcType": "Func_HostInfo", "subFunList": [{"subFuncType": "SubFunc_LogAudit"}]}])");
    EXPECT_THAT(rows(mgr->getFuncInfos()), ElementsAre(FuncRow{"", "", Func::Func_HostInfo, 0, true, ""}));
    EXPECT_THAT(rows(mgr->getSubFuncInfo()),
                ElementsAre(SubFuncRow{"", Func::Func_HostInfo, SubFunc::SubFunc_LogAudit, 0, "", "", true, true}));
}

TEST_F(FuncTypeMgr, KnowsEveryKeyOfBothEnumerations)
{
    const auto funcTypes = QMetaEnum::fromType<FuncType>();
    const auto subFuncTypes = QMetaEnum::fromType<SubFuncType>();
    QJsonArray list;
    for (int i = 0; i < funcTypes.keyCount(); ++i) {
        list.append(QJsonObject{{QStringLiteral("funcType"), QLatin1String(funcTypes.key(i))}});
    }
    QJsonArray subList;
    for (int i = 0; i < subFuncTypes.keyCount(); ++i) {
        subList.append(QJsonObject{{QStringLiteral("subFuncType"), QLatin1String(subFuncTypes.key(i))}});
    }
    list.append(QJsonObject{{QStringLiteral("funcType"), QStringLiteral("Func_HostInfo")},
                            {QStringLiteral("subFunList"), subList}});
    load(QJsonDocument(list).toJson());

    ASSERT_EQ(mgr->getFuncInfos().size(), funcTypes.keyCount() + 1);
    for (int i = 0; i < funcTypes.keyCount(); ++i) {
        EXPECT_EQ(mgr->getFuncInfos()[i].funcType, funcTypes.value(i)) << funcTypes.key(i);
    }
    ASSERT_EQ(mgr->getSubFuncInfo().size(), subFuncTypes.keyCount());
    for (int i = 0; i < subFuncTypes.keyCount(); ++i) {
        EXPECT_EQ(mgr->getSubFuncInfo()[i].subFuncType, subFuncTypes.value(i)) << subFuncTypes.key(i);
    }
}

TEST_F(FuncTypeMgr, DoesNotReadTheTitleUnderItsRightSpelling)
{
    EXPECT_THAT(loadSubFunc(R"("subFuncType": "SubFunc_LogAudit", "subFuncTitle": "title")"),
                ElementsAre(SubFuncRow{"", Func::Func_HostInfo, SubFunc::SubFunc_LogAudit, 0, "", "", true, true}));
}

TEST_F(FuncTypeMgr, ReadsKeysOfAFunctionInTheirExactSpellingOnly)
{
    load(R"([{"funcType": "Func_HostInfo",
        "FuncTitle": "x", "functitle": "x", "funcTitile": "x", "title": "x",
        "FuncIcon": "x", "funcicon": "x", "icon": "x",
        "userList": "x", "usrlist": "x", "UsrList": "x", "funcEnabled": false, "enabled": false, "disable": true,
        "parentFuncType": "Func_SystemAudit",
        "subFuncList": [{"subFuncType": "SubFunc_LogAudit"}], "subFunlist": [{"subFuncType": "SubFunc_LogAudit"}],
        "FuncList": [{"funcType": "Func_SystemAudit"}], "funclist": [{"funcType": "Func_SystemAudit"}]
    }])");
    EXPECT_THAT(rows(mgr->getFuncInfos()), ElementsAre(FuncRow{"", "", Func::Func_HostInfo, 0, true, ""}));
    EXPECT_TRUE(mgr->getSubFuncInfo().isEmpty());
}

TEST_F(FuncTypeMgr, ReadsKeysOfASubFunctionInTheirExactSpellingOnly)
{
    EXPECT_THAT(loadSubFunc(R"(
        "SubFuncType": "SubFunc_LogAudit", "subFunctype": "SubFunc_LogAudit", "subType": "SubFunc_LogAudit",
        "subFuncTitel": "x", "SubFuncTitile": "x", "subfunctitile": "x",
        "subFuncClass": "x", "subFuncClassname": "x", "SubFuncHelp": "x", "help": "x",
        "funcType": "Func_SystemAudit", "subFuncEnabled": false, "Disable": true, "disabled": true,
        "subFuncHasparent": false, "hasParent": false, "realParentType": "SubFunc_LogAudit")"),
                ElementsAre(SubFuncRow{"", Func::Func_HostInfo, unknownSubFunc, 0, "", "", true, true}));
}

TEST_F(FuncTypeMgr, ReadsTheRealParentInItsExactSpellingOnly)
{
    EXPECT_THAT(
        loadSubFunc(
            R"("subFuncHasParent": false, "RealParentType": "SubFunc_LogAudit", "realParent": "SubFunc_LogAudit")"),
        ElementsAre(SubFuncRow{"", Func::Func_HostInfo, unknownSubFunc, unknownSubFunc, "", "", false, true}));
}

TEST_F(FuncTypeMgr, StoresNestedFunctionsAfterTheirParentWithItsType)
{
    load(R"([
        {"funcType": "Func_HostInfo", "funcTitle": "1", "funcList": [
            {"funcType": "Func_AccessControl", "funcTitle": "1.1", "funcList": [
                {"funcType": "Func_SystemAudit", "funcTitle": "1.1.1"}
            ]},
            {"funcType": "Func_SystemProtect", "funcTitle": "1.2"}
        ]},
        {"funcType": "Func_CompleteControl", "funcTitle": "2"}
    ])");
    EXPECT_THAT(rows(mgr->getFuncInfos()),
                ElementsAre(FuncRow{"1", "", Func::Func_HostInfo, 0, true, ""},
                            FuncRow{"1.1", "", Func::Func_AccessControl, Func::Func_HostInfo, true, ""},
                            FuncRow{"1.1.1", "", Func::Func_SystemAudit, Func::Func_AccessControl, true, ""},
                            FuncRow{"1.2", "", Func::Func_SystemProtect, Func::Func_HostInfo, true, ""},
                            FuncRow{"2", "", Func::Func_CompleteControl, 0, true, ""}));
}

TEST_F(FuncTypeMgr, ReadsSubFunctionsOfNestedFunctions)
{
    load(R"([{"funcType": "Func_HostInfo", "funcList": [
        {"funcType": "Func_AccessControl", "subFunList": [{"subFuncType": "SubFunc_ObjectAdd"}]}
    ]}])");
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_AccessControl), SubFunc::SubFunc_ObjectAdd);
    EXPECT_TRUE(mgr->getSubFuncInfo(Func::Func_HostInfo).isEmpty());
}

TEST_F(FuncTypeMgr, ReadsOnlyTheSubFunctionsOfAFunctionWithBothLists)
{
    load(R"([{"funcType": "Func_HostInfo", "funcTitle": "both",
        "funcList": [{"funcType": "Func_SystemAudit", "funcTitle": "nested"}],
        "subFunList": [{"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "page"}]
    }])");
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("both"));
    EXPECT_THAT(titles(mgr->getSubFuncInfo()), ElementsAre("page"));
}

TEST_F(FuncTypeMgr, HidesNestedFunctionsBehindAnySubFunctionList)
{
    for (const char *const subFunList : {"[]", "null", "{}", "\"text\"", "7", "false"}) {
        SCOPED_TRACE(subFunList);
        TavPluginHost fresh{TAV_PLUGIN_FILE};
        auto *const freshMgr = fresh.manager<ITavFuncTypeMgr>();
        const QByteArray json = QByteArray(R"([{"funcType": "Func_HostInfo", "funcTitle": "top", "subFunList": )")
            + subFunList + R"(, "funcList": [{"funcType": "Func_SystemAudit"}]}])";
        writeFile(configFile(), json.toBase64());
        freshMgr->loadConfig();
        EXPECT_THAT(titles(freshMgr->getFuncInfos()), ElementsAre("top"));
        EXPECT_TRUE(freshMgr->getSubFuncInfo().isEmpty());
    }
}

TEST_F(FuncTypeMgr, SkipsDisabledSubFunctions)
{
    load(R"([{"funcType": "Func_HostInfo", "subFunList": [
        {"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "off", "disable": true},
        {"subFuncType": "SubFunc_ObjectAdd", "subFuncTitile": "on"}
    ]}])");
    EXPECT_THAT(titles(mgr->getSubFuncInfo()), ElementsAre("on"));
    EXPECT_THAT(titles(mgr->getSubFuncInfo(Func::Func_HostInfo)), ElementsAre("on"));
    EXPECT_EQ(row(mgr->getSubFuncInfo(SubFunc::SubFunc_LogAudit)), defaultSubFunc);
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_HostInfo), SubFunc::SubFunc_ObjectAdd);
}

TEST_F(FuncTypeMgr, KeepsSubFunctionsWhoseDisableIsAnythingButTrue)
{
    for (const char *const disable : {"false", "null", "1", "\"true\"", "[true]", "{\"disable\": true}"}) {
        EXPECT_EQ(loadSubFunc(QByteArray("\"disable\": ") + disable).size(), 1U) << disable;
    }
}

TEST_F(FuncTypeMgr, StandsUnderItsFunctionWhenHasParentIsTrueOrAbsent)
{
    const SubFuncRow expected{"", Func::Func_HostInfo, SubFunc::SubFunc_ObjectAdd, 0, "", "", true, true};
    const QByteArray members = R"("subFuncType": "SubFunc_ObjectAdd", "realParentType": "SubFunc_ObjectSetting")";
    EXPECT_THAT(loadSubFunc(members), ElementsAre(expected));
    EXPECT_THAT(loadSubFunc(members + R"(, "subFuncHasParent": true)"), ElementsAre(expected));
}

TEST_F(FuncTypeMgr, StandsAloneWhenHasParentIsGivenAndAnythingButTrue)
{
    for (const char *const hasParent : {"false", "null", "0", "1", "\"true\"", "\"false\"", "[]", "{}"}) {
        SCOPED_TRACE(hasParent);
        EXPECT_THAT(loadSubFunc(R"("subFuncType": "SubFunc_ObjectAdd", "realParentType": "SubFunc_ObjectSetting",)"
                                R"("subFuncHasParent": )"
                                + QByteArray(hasParent)),
                    ElementsAre(SubFuncRow{"", Func::Func_HostInfo, SubFunc::SubFunc_ObjectAdd,
                                           SubFunc::SubFunc_ObjectSetting, "", "", false, true}));
    }
}

TEST_F(FuncTypeMgr, RealParentIsMinusOneWhenItIsUnknownOrMissing)
{
    for (const char *const realParent : {"", R"(, "realParentType": "SubFunc_Nowhere")", R"(, "realParentType": 3)",
                                         R"(, "realParentType": "Func_HostInfo")"}) {
        SCOPED_TRACE(realParent);
        EXPECT_THAT(
            loadSubFunc(QByteArray(R"("subFuncType": "SubFunc_ObjectAdd", "subFuncHasParent": false)") + realParent),
            ElementsAre(
                SubFuncRow{"", Func::Func_HostInfo, SubFunc::SubFunc_ObjectAdd, unknownSubFunc, "", "", false, true}));
    }
}

TEST_F(FuncTypeMgr, FunctionTypeIsMinusOneWhenItsKeyIsUnknown)
{
    const LogCapture log;
    for (const char *const type :
         {"\"Func_Nowhere\"", "\"func_hostinfo\"", "\"HostInfo\"", "\"\"", "\" Func_HostInfo\"", "\"SubFunc_LogAudit\"",
          "1", "null", "true", "[\"Func_HostInfo\"]", "{}"}) {
        SCOPED_TRACE(type);
        TavPluginHost fresh{TAV_PLUGIN_FILE};
        auto *const freshMgr = fresh.manager<ITavFuncTypeMgr>();
        writeFile(configFile(), QByteArray(QByteArray("[{\"funcType\": ") + type + "}]").toBase64());
        freshMgr->loadConfig();
        EXPECT_THAT(rows(freshMgr->getFuncInfos()), ElementsAre(FuncRow{"", "", unknownFunc, 0, true, ""}));
    }
    EXPECT_TRUE(messages(log).isEmpty());
}

TEST_F(FuncTypeMgr, SubFunctionTypeIsMinusOneWhenItsKeyIsUnknownOrMissing)
{
    const LogCapture log;
    const SubFuncRow expected{"page", Func::Func_HostInfo, unknownSubFunc, 0, "", "", true, true};
    EXPECT_THAT(loadSubFunc(R"("subFuncTitile": "page")"), ElementsAre(expected));
    for (const char *const type : {"\"SubFunc_Nowhere\"", "\"subfunc_logaudit\"", "\"\"", "\"Func_HostInfo\"",
                                   "\"SubFunc_ServerResourceInfo\"", "3", "null", "[]"}) {
        EXPECT_THAT(loadSubFunc(QByteArray(R"("subFuncTitile": "page", "subFuncType": )") + type),
                    ElementsAre(expected))
            << type;
    }
    EXPECT_TRUE(messages(log).isEmpty());
}

TEST_F(FuncTypeMgr, GivesTheUnknownTypeToEntriesBelowAnUnknownFunction)
{
    load(R"([
        {"funcType": "Func_Nowhere", "funcList": [{"funcType": "Func_HostInfo"}]},
        {"funcType": "Func_Elsewhere", "subFunList": [{"subFuncType": "SubFunc_LogAudit"}]}
    ])");
    EXPECT_THAT(rows(mgr->getFuncInfos()),
                ElementsAre(FuncRow{"", "", unknownFunc, 0, true, ""},
                            FuncRow{"", "", Func::Func_HostInfo, unknownFunc, true, ""},
                            FuncRow{"", "", unknownFunc, 0, true, ""}));
    EXPECT_THAT(rows(mgr->getSubFuncInfo(unknownFunc)),
                ElementsAre(SubFuncRow{"", unknownFunc, SubFunc::SubFunc_LogAudit, 0, "", "", true, true}));
}

TEST_F(FuncTypeMgr, TakesTextsOfAnotherTypeForEmpty)
{
    for (const char *const value : {"7", "null", "true", "[\"x\"]", R"({"x": "y"})"}) {
        SCOPED_TRACE(value);
        TavPluginHost fresh{TAV_PLUGIN_FILE};
        auto *const freshMgr = fresh.manager<ITavFuncTypeMgr>();
        const QByteArray json = QByteArray(R"([{"funcType": "Func_HostInfo", "funcTitle": X, "funcIcon": X,
            "usrList": X, "subFunList": [{"subFuncTitile": X, "subFuncClassName": X, "subFuncHelp": X}]}])")
                                    .replace('X', value);
        writeFile(configFile(), json.toBase64());
        freshMgr->loadConfig();
        EXPECT_THAT(rows(freshMgr->getFuncInfos()), ElementsAre(FuncRow{"", "", Func::Func_HostInfo, 0, true, ""}));
        EXPECT_THAT(rows(freshMgr->getSubFuncInfo()),
                    ElementsAre(SubFuncRow{"", Func::Func_HostInfo, unknownSubFunc, 0, "", "", true, true}));
    }
}

TEST_F(FuncTypeMgr, TakesAFunctionListOfAnotherTypeForEmpty)
{
    const LogCapture log;
    load(R"([
        {"funcType": "Func_HostInfo", "funcTitle": "1", "funcList": {"funcType": "Func_SystemAudit"}},
        {"funcType": "Func_HostInfo", "funcTitle": "2", "funcList": "Func_SystemAudit"},
        {"funcType": "Func_HostInfo", "funcTitle": "3", "funcList": null},
        {"funcType": "Func_HostInfo", "funcTitle": "4", "funcList": []}
    ])");
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("1", "2", "3", "4"));
    EXPECT_TRUE(messages(log).isEmpty());
}

TEST_F(FuncTypeMgr, LogsFunctionsWithoutATypeAndGoesOn)
{
    const LogCapture log;
    load(R"([
        {"funcTitle": "no type", "subFunList": [{"subFuncType": "SubFunc_LogAudit"}]},
        {"funcType": "Func_HostInfo", "funcTitle": "first"},
        7, "text", null, true, [], [{"funcType": "Func_HostInfo"}], {},
        {"funcType": "Func_SystemAudit", "funcTitle": "second"}
    ])");
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("first", "second"));
    EXPECT_TRUE(mgr->getSubFuncInfo().isEmpty());
    expectFormatErrors(log, 8);
}

TEST_F(FuncTypeMgr, LogsNestedFunctionsWithoutATypeToo)
{
    const LogCapture log;
    load(R"([{"funcType": "Func_HostInfo", "funcTitle": "top", "funcList": [{}, {"funcType": "Func_SystemAudit"}]}])");
    EXPECT_EQ(mgr->getFuncInfos().size(), 2);
    expectFormatErrors(log, 1);
}

TEST_F(FuncTypeMgr, KeepsSubFunctionsThatAreNoObjectsAsEmptyRecords)
{
    const LogCapture log;
    load(R"([{"funcType": "Func_HostInfo", "subFunList": [7, {"subFuncTitile": "page"}, null, []]}])");
    EXPECT_THAT(titles(mgr->getSubFuncInfo()), ElementsAre("", "page", "", ""));
    EXPECT_EQ(row(mgr->getSubFuncInfo().first()),
              (SubFuncRow{"", Func::Func_HostInfo, unknownSubFunc, 0, "", "", true, true}));
    EXPECT_TRUE(messages(log).isEmpty());
}

TEST_F(FuncTypeMgr, FindsNothingInATopLevelObjectAndDoesNotLogIt)
{
    const LogCapture log;
    load(R"({"funcType": "Func_HostInfo", "funcList": [{"funcType": "Func_SystemAudit"}]})");
    EXPECT_TRUE(mgr->getFuncInfos().isEmpty());
    EXPECT_TRUE(messages(log).isEmpty());
}

TEST_F(FuncTypeMgr, FindsNothingInAnEmptyArrayAndDoesNotLogIt)
{
    const LogCapture log;
    load("[]");
    EXPECT_TRUE(mgr->getFuncInfos().isEmpty());
    EXPECT_TRUE(messages(log).isEmpty());
}

TEST_F(FuncTypeMgr, LogsFilesThatCannotBeParsedAndKeepsWhatItHolds)
{
    const struct {
        const char *name;
        QByteArray content;
    } files[] = {
        {"empty", ""},
        {"plain JSON", validCatalogue},
        {"plain empty array", "[]"},
        {"Base64 of broken JSON", QByteArray(R"([{"funcType": "Func_HostInfo"})").toBase64()},
        {"Base64 of JSON and more", QByteArray(R"([{"funcType": "Func_HostInfo"}] x)").toBase64()},
        {"Base64 of a lone text", QByteArray("\"Func_HostInfo\"").toBase64()},
        {"twice Base64", validCatalogue.toBase64().toBase64()},
    };
    load(validCatalogue);
    for (const auto &file : files) {
        SCOPED_TRACE(file.name);
        const LogCapture log;
        EXPECT_FALSE(loadFile(file.content));
        expectParseError(log);
        EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("host", "audit"));
        EXPECT_THAT(titles(mgr->getSubFuncInfo()), ElementsAre("resources", "log"));
    }
}

TEST_F(FuncTypeMgr, LogsAMissingFile)
{
    load(validCatalogue);
    QFile::remove(configFile());
    const LogCapture log;
    EXPECT_FALSE(mgr->loadConfig());
    expectParseError(log);
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("host", "audit"));
}

TEST_F(FuncTypeMgr, LogsADirectoryInTheFilesPlace)
{
    EXPECT_TRUE(QDir().mkpath(configFile()));
    const LogCapture log;
    EXPECT_FALSE(mgr->loadConfig());
    expectParseError(log);
}

TEST_F(FuncTypeMgr, LogsParseErrorsAtLevelOne)
{
    const LogCapture log;
    TavNanolog::setLevel(0);
    mgr->loadConfig();
    EXPECT_TRUE(messages(log).isEmpty());
    TavNanolog::setLevel(1);
    mgr->loadConfig();
    expectParseError(log);
}

TEST_F(FuncTypeMgr, LogsFormatErrorsAtLevelThree)
{
    const LogCapture log;
    TavNanolog::setLevel(2);
    load("[{}]");
    EXPECT_TRUE(messages(log).isEmpty());
    TavNanolog::setLevel(3);
    load("[{}]");
    expectFormatErrors(log, 1);
}

TEST_F(FuncTypeMgr, LogsNothingForAGoodCatalogue)
{
    TavNanolog::setLevel(5);
    const LogCapture log;
    load(validCatalogue);
    EXPECT_TRUE(messages(log).isEmpty());
}

TEST_F(FuncTypeMgr, AppendsOnEveryLoad)
{
    load(validCatalogue);
    mgr->loadConfig();
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("host", "audit", "host", "audit"));
    EXPECT_THAT(titles(mgr->getSubFuncInfo()), ElementsAre("resources", "log", "resources", "log"));
    EXPECT_THAT(titles(mgr->getSubFuncInfo(Func::Func_SystemAudit)), ElementsAre("log", "log"));
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_SystemAudit), SubFunc::SubFunc_LogAudit);
}

TEST_F(FuncTypeMgr, ReadsTheFileAnewOnEveryLoad)
{
    load(R"([{"funcType": "Func_HostInfo", "funcTitle": "before"}])");
    load(R"([{"funcType": "Func_SystemAudit", "funcTitle": "after"}])");
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("before", "after"));
}

TEST_F(FuncTypeMgr, AnswersWithTheFirstFunctionOfAType)
{
    load(R"([
        {"funcType": "Func_HostInfo", "funcTitle": "other"},
        {"funcType": "Func_SystemAudit", "funcTitle": "first", "funcIcon": "icon", "usrList": "users"},
        {"funcType": "Func_SystemAudit", "funcTitle": "second"}
    ])");
    EXPECT_EQ(row(mgr->getFuncInfoData(Func::Func_SystemAudit)),
              (FuncRow{"first", "icon", Func::Func_SystemAudit, 0, true, "users"}));
}

TEST_F(FuncTypeMgr, AnswersWithTheFirstSubFunctionOfAType)
{
    load(R"([
        {"funcType": "Func_HostInfo", "subFunList": [
            {"subFuncType": "SubFunc_ObjectAdd", "subFuncTitile": "other"},
            {"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "first"}
        ]},
        {"funcType": "Func_SystemAudit", "subFunList": [{"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "second"}]}
    ])");
    EXPECT_EQ(row(mgr->getSubFuncInfo(SubFunc::SubFunc_LogAudit)),
              (SubFuncRow{"first", Func::Func_HostInfo, SubFunc::SubFunc_LogAudit, 0, "", "", true, true}));
}

TEST_F(FuncTypeMgr, AnswersWithAllSubFunctionsOfAFunctionInTheirOrder)
{
    load(R"([
        {"funcType": "Func_HostInfo", "subFunList": [{"subFuncTitile": "1"}, {"subFuncTitile": "2"}]},
        {"funcType": "Func_SystemAudit", "subFunList": [{"subFuncTitile": "other"}]},
        {"funcType": "Func_HostInfo", "subFunList": [{"subFuncTitile": "3"}]}
    ])");
    EXPECT_THAT(titles(mgr->getSubFuncInfo(Func::Func_HostInfo)), ElementsAre("1", "2", "3"));
    EXPECT_THAT(titles(mgr->getSubFuncInfo()), ElementsAre("1", "2", "other", "3"));
}

TEST_F(FuncTypeMgr, AnswersWithTheFirstPageUnderAFunction)
{
    load(R"([
        {"funcType": "Func_SystemAudit", "subFunList": [{"subFuncType": "SubFunc_LogAudit"}]},
        {"funcType": "Func_HostInfo", "subFunList": [
            {"subFuncType": "SubFunc_ObjectAdd"}, {"subFuncType": "SubFunc_SelfProtect"}
        ]},
        {"funcType": "Func_CompleteControl", "subFunList": [{}]}
    ])");
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_HostInfo), SubFunc::SubFunc_ObjectAdd);
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_SystemAudit), SubFunc::SubFunc_LogAudit);
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_CompleteControl), unknownSubFunc);
}

TEST_F(FuncTypeMgr, AnswersWithDefaultsForWhatItDoesNotHold)
{
    load(validCatalogue);
    EXPECT_EQ(row(mgr->getFuncInfoData(Func::Func_SystemProtect)), defaultFunc);
    EXPECT_EQ(row(mgr->getFuncInfoData(unknownFunc)), defaultFunc);
    EXPECT_EQ(row(mgr->getSubFuncInfo(SubFunc::SubFunc_ObjectAdd)), defaultSubFunc);
    EXPECT_TRUE(mgr->getSubFuncInfo(Func::Func_SystemProtect).isEmpty());
    EXPECT_EQ(mgr->getFirstSubFuncType(Func::Func_SystemProtect), SubFunc::SubFunc_None);
}

TEST_F(FuncTypeMgr, LookUpsAddNothing)
{
    load(validCatalogue);
    static_cast<void>(mgr->getFuncInfoData(Func::Func_SystemProtect));
    static_cast<void>(mgr->getSubFuncInfo(Func::Func_SystemProtect));
    static_cast<void>(mgr->getSubFuncInfo(SubFunc::SubFunc_ObjectAdd));
    static_cast<void>(mgr->getFirstSubFuncType(Func::Func_SystemProtect));
    EXPECT_EQ(mgr->getFuncInfos().size(), 2);
    EXPECT_EQ(mgr->getSubFuncInfo().size(), 2);
}

TEST_F(FuncTypeMgr, HandsOutCopies)
{
    load(validCatalogue);
    QVector<TavFuncTypeData_> funcs = mgr->getFuncInfos();
    funcs[0].funcTitle = QStringLiteral("changed");
    funcs.removeLast();
    QVector<TavSubFuncTypeData_> subFuncs = mgr->getSubFuncInfo();
    subFuncs[0].subFuncTitle = QStringLiteral("changed");
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("host", "audit"));
    EXPECT_THAT(titles(mgr->getSubFuncInfo()), ElementsAre("resources", "log"));
}

TEST_F(FuncTypeMgr, ReadsFromTheConfigurationPathAlone)
{
    for (const char *const other : {"app", "plugin", "log", "data"}) {
        writeFile(path(other) + QStringLiteral("/funcTypeConfig.json"), validCatalogue.toBase64());
    }
    writeFile(path("config/functypeconfig.json"), validCatalogue.toBase64());
    {
        const LogCapture log;
        mgr->loadConfig();
        expectParseError(log);
    }
    EXPECT_TRUE(mgr->getFuncInfos().isEmpty());
    load(validCatalogue);
    EXPECT_EQ(mgr->getFuncInfos().size(), 2);
}

TEST_F(FuncTypeMgr, AsksForTheConfigurationPathOnEveryLoad)
{
    load(validCatalogue);
    TavGlobalInfoMgr::getInstance()->setAppPath({{}, {}, {}, {}, path("elsewhere")});
    writeFile(path("elsewhere/funcTypeConfig.json"),
              QByteArray(R"([{"funcType": "Func_HostInfo", "funcTitle": "elsewhere"}])").toBase64());
    mgr->loadConfig();
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("host", "audit", "elsewhere"));
}

TEST_F(FuncTypeMgr, ReadsBase64BrokenIntoLines)
{
    QByteArray text = validCatalogue.toBase64();
    for (int i = 76; i < text.size(); i += 78) {
        text.insert(i, "\r\n");
    }
    loadFile(text + '\n');
    EXPECT_THAT(titles(mgr->getFuncInfos()), ElementsAre("host", "audit"));
}

TEST_F(FuncTypeMgr, KeepsChineseTexts)
{
    load(R"([{"funcType": "Func_HostInfo", "funcTitle": "主机信息", "usrList": "管理员；审计员", "subFunList": [
        {"subFuncTitile": "关键目录防篡改", "subFuncHelp": "\u5e2e\u52a9 𠮷"}]}])");
    EXPECT_EQ(mgr->getFuncInfos().first().funcTitle, QStringLiteral("主机信息"));
    EXPECT_EQ(mgr->getFuncInfos().first().usrList, QStringLiteral("管理员；审计员"));
    EXPECT_EQ(mgr->getSubFuncInfo().first().subFuncTitle, QStringLiteral("关键目录防篡改"));
    EXPECT_EQ(mgr->getSubFuncInfo().first().subFuncHelp, QStringLiteral("帮助 𠮷"));
}

TEST_F(FuncTypeMgr, ReadsDeeplyNestedFunctions)
{
    constexpr int depth = 400;
    QByteArray json = "[]";
    for (int i = depth; i > 0; --i) {
        json = R"([{"funcType": "Func_HostInfo", "funcTitle": ")" + QByteArray::number(i) + R"(", "funcList": )" + json
            + "}]";
    }
    load(json);
    const QVector<TavFuncTypeData_> funcs = mgr->getFuncInfos();
    ASSERT_EQ(funcs.size(), depth);
    for (int i = 0; i < depth; ++i) {
        EXPECT_EQ(funcs[i].funcTitle.toInt(), i + 1);
        EXPECT_EQ(funcs[i].parentFuncType, i == 0 ? Func::Func_None : Func::Func_HostInfo);
    }
}

TEST_F(FuncTypeMgr, TakesNestingBeyondTheParsersDepthForAParseError)
{
    const LogCapture log;
    load(QByteArray(R"([{"funcType": "Func_HostInfo", "funcList": )").repeated(5000) + "[]"
         + QByteArray("}]").repeated(5000));
    EXPECT_TRUE(mgr->getFuncInfos().isEmpty());
    expectParseError(log);
}

TEST_F(FuncTypeMgr, EveryQueryWaitsWhileTheFileIsRead)
{
    writeFile(configFile(), validCatalogue.toBase64());
    HeldReading reading;
    std::thread loading([this] { mgr->loadConfig(); });
    EXPECT_TRUE(reading.awaitReader());
    {
        const BackgroundCalls calls(queries());
        EXPECT_THAT(calls.returned(), IsEmpty());
        reading.release();
    }
    loading.join();
    EXPECT_EQ(mgr->getFuncInfos().size(), 2);
}

TEST_F(FuncTypeMgr, OperationsWithoutALockDoNotWaitWhileTheFileIsRead)
{
    writeFile(configFile(), validCatalogue.toBase64());
    HeldReading reading;
    std::thread loading([this] { mgr->loadConfig(); });
    EXPECT_TRUE(reading.awaitReader());
    {
        const BackgroundCalls calls(
            {[this] { mgr->loadIniConfig(); }, [this] { static_cast<void>(mgr->getObject()); }});
        EXPECT_TRUE(calls.allReturn());
        reading.release();
    }
    loading.join();
}

TEST_F(FuncTypeMgr, ReadersNeverSeeHalfACatalogue)
{
    constexpr int count = 2000;
    constexpr int loads = 5;
    const QByteArray entry = R"({"funcType": "Func_HostInfo", "subFunList": [{}]})";
    QByteArray json = "[" + entry;
    for (int i = 1; i < count; ++i) {
        json += "," + entry;
    }
    writeFile(configFile(), QByteArray(json + "]").toBase64());

    std::atomic<bool> ended = false;
    std::atomic<int> halves = 0;
    const auto watch = [&](const std::function<int()> &size) {
        while (!ended) {
            halves += size() % count != 0;
        }
    };
    std::thread functions(watch, [this] { return mgr->getFuncInfos().size(); });
    std::thread pages(watch, [this] { return mgr->getSubFuncInfo().size(); });
    std::thread pagesOfOne(watch, [this] { return mgr->getSubFuncInfo(Func::Func_HostInfo).size(); });
    for (int i = 0; i < loads; ++i) {
        mgr->loadConfig();
    }
    ended = true;
    functions.join();
    pages.join();
    pagesOfOne.join();
    EXPECT_EQ(halves, 0);
    EXPECT_EQ(mgr->getFuncInfos().size(), loads * count);
}

namespace
{
struct DefaultPage {
    const char *type;
    const char *title;
    const char *className;
    bool hasParent;
};

struct DefaultFunc {
    const char *type;
    const char *title;
    const char *icon;
    std::vector<DefaultPage> pages;
};

const std::vector<DefaultFunc> defaultCatalogue = {
    {"Func_HostInfo",
     "主机信息",
     "hostIcon",
     {{"SubFunc_serverResourceInfo", "服务器详情", "ITavHostInfoController", true}}},
    {"Func_ReInforceConfig",
     "加固方案",
     "reinfoceIcon",
     {{"SubFunc_OneClickReinforcement", "一键加固", "ITavOneReinforceController", true},
      {"SubFunc_BaselineScan", "基线扫描", "ITavLineScanController", true}}},
    {"Func_CompleteControl",
     "完整性度量",
     "completeIcon",
     {{"SubFunc_StaticMeasurements", "文件度量", "ITavStaticMeasureController", true},
      {"SubFunc_DynamicMeasurements", "动态度量", "ITavDynamicMeasureController", true}}},
    {"Func_AccessControl",
     "访问控制",
     "accessIcon",
     {{"SubFunc_PrincipalSettings", "主体设置", "ITavPrincipalSetController", true},
      {"SubFunc_ObjectSetting", "客体设置", "ITavObjectSetController", true},
      {"SubFunc_PrincipalAdd", "主体添加", "ITavPrincipalAddController", false},
      {"SubFunc_ObjectAdd", "客体添加", "ITavObjectAddController", false}}},
    {"Func_SystemProtect",
     "系统保护",
     "systemProtectIcon",
     {{"SubFunc_SelfProtect", "自身保护", "ITavSelfProtectController", true},
      {"SubFunc_ProcessProtect", "进程保护", "ITavProcessProtectController", true},
      {"SubFunc_KernelProtect", "内核文件保护", "ITavKernelProtectController", true},
      {"SubFunc_KeyDirAmperProof", "关键目录防篡改", "ITavDirAmperProofController", true}}},
    {"Func_SystemAudit",
     "系统审计",
     "systemAuditIcon",
     {{"SubFunc_LogAudit", "审计日志", "ITavLogAuditController", true}}},
};

/// The default catalogue that the plugin's file carries; empty when it carries none.
QByteArray carriedCatalogue()
{
    QFile file(QStringLiteral(TAV_PLUGIN_FILE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const int begin = bytes.indexOf("[\n    {\n        \"funcType\": \"Func_HostInfo\"");
    return begin < 0 ? QByteArray() : bytes.mid(begin, bytes.indexOf('\0', begin) - begin);
}

QJsonArray expectedCatalogue()
{
    QJsonArray funcs;
    for (const DefaultFunc &func : defaultCatalogue) {
        QJsonArray pages;
        for (const DefaultPage &page : func.pages) {
            QJsonObject object{{QStringLiteral("subFuncType"), QString::fromUtf8(page.type)},
                               {QStringLiteral("subFuncTitile"), QString::fromUtf8(page.title)},
                               {QStringLiteral("subFuncClassName"), QString::fromUtf8(page.className)}};
            if (!page.hasParent) {
                object.insert(QStringLiteral("subFuncHasParent"), false);
            }
            pages.append(object);
        }
        funcs.append(QJsonObject{{QStringLiteral("funcType"), QString::fromUtf8(func.type)},
                                 {QStringLiteral("funcTitle"), QString::fromUtf8(func.title)},
                                 {QStringLiteral("funcIcon"), QString::fromUtf8(func.icon)},
                                 {QStringLiteral("subFunList"), pages}});
    }
    return funcs;
}
}

TEST_F(FuncTypeMgr, CarriesTheDefaultCatalogueAsPlainJson)
{
    const QByteArray text = carriedCatalogue();
    ASSERT_FALSE(text.isEmpty());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << qPrintable(error.errorString());
    ASSERT_TRUE(document.isArray());
    const QJsonArray expected = expectedCatalogue();
    ASSERT_EQ(document.array().size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(QJsonDocument(document.array()[i].toObject()).toJson().toStdString(),
                  QJsonDocument(expected[i].toObject()).toJson().toStdString());
    }
}

TEST_F(FuncTypeMgr, LoadsTheDefaultCatalogueFromAFileThatHoldsIt)
{
    const LogCapture log;
    load(carriedCatalogue());
    EXPECT_TRUE(messages(log).isEmpty());

    std::vector<FuncRow> funcs;
    std::vector<SubFuncRow> pages;
    for (const DefaultFunc &func : defaultCatalogue) {
        const int funcType = QMetaEnum::fromType<FuncType>().keyToValue(func.type);
        ASSERT_GT(funcType, 0) << func.type;
        funcs.emplace_back(func.title, func.icon, funcType, 0, true, "");
        for (const DefaultPage &page : func.pages) {
            const int pageType = QMetaEnum::fromType<SubFuncType>().keyToValue(page.type);
            ASSERT_GT(pageType, 0) << page.type;
            // Where no parent is given to a page without one, it is unknown.
            pages.emplace_back(page.title, funcType, pageType, page.hasParent ? 0 : -1, page.className, "",
                               page.hasParent, true);
        }
    }
    EXPECT_EQ(rows(mgr->getFuncInfos()), funcs);
    EXPECT_EQ(rows(mgr->getSubFuncInfo()), pages);
}

TEST_F(FuncTypeMgr, DoesNotFallBackToTheDefaultCatalogue)
{
    const LogCapture log;
    mgr->loadConfig();
    EXPECT_TRUE(mgr->getFuncInfos().isEmpty());
}
