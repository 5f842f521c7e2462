#include "ExtremeValue.h"
#include "PrintQString.h"
#include "TavCall.h"
#include "TavGlobalInfoMgr.h"
#include "TavOperations.h"
#include "TavPluginHost.h"
#include "TavSetValue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <google/protobuf/stubs/logging.h>

#include <thread>

namespace
{
class Call : public testing::Test
{
protected:
    QJsonValue call(const char *manager, const char *operation, const QJsonValue &arguments = QJsonArray())
    {
        return TavCall::call(host.managerObject(manager), manager, operation, arguments);
    }

    std::string problem(const char *manager, const char *operation, const QJsonValue &arguments = QJsonArray())
    {
        try {
            call(manager, operation, arguments);
            return {};
        } catch (const TavCallError &error) {
            return error.what();
        }
    }

    /// What stands for @p json among the results of an operation without arguments, or why it cannot.
    static QJsonValue expected(const char *manager, const char *operation, const QJsonValue &json)
    {
        try {
            return TavCall::preparedCall(manager, operation, QJsonArray(), {}).expected(json, "/returns");
        } catch (const TavCallError &error) {
            return error.what();
        }
    }

    TavPluginHost host{TAV_PLUGIN_FILE};
};

QStringList signatures(const char *manager)
{
    QStringList all;
    for (const TavCall::Operation &operation : TavCall::operationsOf(manager)) {
        all.append(operation.result + ' ' + operation.signature());
    }
    return all;
}
}

TEST_F(Call, KnowsEveryManagerThatThePluginRegisters)
{
    QStringList registered;
    for (const STObjectKey &key : TavGlobalInfoMgr::getObjectMgr()->getObjectKeys()) {
        registered.append(QString(key.name).remove("_Tav_ORG"));
    }
    EXPECT_EQ(TavCall::managers(), registered);
}

TEST_F(Call, ListsOperationsWithTheirSignatures)
{
    EXPECT_EQ(
        signatures("ITavSelectFuncMgr"),
        QStringList({"QObject* getObject()", "void setCurSelFuncType(CTavFuncTypeHeader::TavFuncTypeHeader_ funcType)",
                     "CTavFuncTypeHeader::TavFuncTypeHeader_ getCurSelFuncType()",
                     "void setCurSelSubFuncType(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ subFuncType)",
                     "CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ getCurSelSubFuncType()",
                     "void setCurSelType(CTavFuncTypeHeader::TavFuncTypeHeader_ funcType, "
                     "CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ subFuncType)"}));
    EXPECT_TRUE(signatures("ITavPicResourceMgr")
                    .contains("std::shared_ptr<QImage> getImageRef(QString dirName, QString imageName)"));
}

TEST_F(Call, TakesRecordsAndMessagesAsObjects)
{
    QStringList objects;
    QStringList others;
    for (const char *const manager : {"ITavAuthInfoMgr", "ITavPicResourceMgr", "ITavProExceptionMgr"}) {
        for (const TavCall::Operation &operation : TavCall::operationsOf(manager)) {
            for (const TavCall::Argument &argument : operation.arguments) {
                (argument.isObject ? objects : others).append(argument.type);
            }
        }
    }
    EXPECT_EQ(objects,
              QStringList({"Tav::SystemConfig::LoginCheckAsr", "Tav::SystemConfig::PasswdChangeAsr",
                           "Tav::Base::PriExceptionAsr", "STProtoDataContainer"}));
    EXPECT_EQ(others, QStringList({"QString", "QString", "QString", "QVector<STProtoDataContainer>"}));
}

TEST_F(Call, OfAGetterReturnsWhatItsSettersCallHasSet)
{
    TavOperations::forEachPair([this](const auto &setter, const auto &getter) {
        using Getter = std::decay_t<decltype(getter)>;
        const char *const manager = qobject_interface_iid<typename Getter::Interface *>();
        for (int seed = 0; seed < ExtremeValue::seedCount; ++seed) {
            const auto value = ExtremeValue::make<typename Getter::Result>(seed);
            call(manager, setter.name.data(), QJsonArray{TavJson::toJson(value)});
            const auto held = (host.manager<typename Getter::Interface>()->*Getter::member)();
            EXPECT_TRUE(ExtremeValue::areEqual(held, value)) << setter.name << ", seed " << seed;
            EXPECT_EQ(call(manager, getter.name.data()), TavJson::toJson(value)) << getter.name << ", seed " << seed;
        }
    });
}

TEST_F(Call, ReachesEveryOperation)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot("/nonexistent");
    TavOperations::forEachOperation([this](const auto &operation) {
        using Operation = std::decay_t<decltype(operation)>;
        const char *const manager = qobject_interface_iid<typename Operation::Interface *>();
        QJsonObject arguments;
        std::size_t i = 0;
        std::apply(
            [&](const auto &...values) {
                (arguments.insert(operation.argumentNames[i++].data(), TavJson::toJson(values)), ...);
            },
            typename Operation::Values());
        // For reverseDeviceState(), which wants a device.
        call("ITavNetControlMgr", "setDeviceInfo", QJsonArray{QJsonObject{{"devices", QJsonArray{QJsonObject()}}}});
        EXPECT_EQ(problem(manager, operation.name.data(), arguments), "") << manager << ' ' << operation.name;
    });
    TavGlobalInfoMgr::getInstance()->setSystemRoot(QString());
}

TEST_F(Call, TakesArgumentsByPositionOrByName)
{
    call("ITavAccessControlMgr", "setObjectCount", QJsonArray{7, true, 2});
    EXPECT_EQ(call("ITavAccessControlMgr", "getObjectCount", QJsonObject{{"key", 2}, {"flag", true}}), QJsonValue(7));
    EXPECT_EQ(problem("ITavAccessControlMgr", "setObjectCount", QJsonArray{7, true}),
              "setObjectCount(int count, bool flag, int key) takes 3 arguments, not 2");
    EXPECT_EQ(problem("ITavAccessControlMgr", "setObjectCount", QJsonObject{{"count", 7}, {"flag", true}}),
              "the argument \"key\" is missing");
    EXPECT_EQ(problem("ITavAccessControlMgr", "getObjectCount", QJsonObject{{"key", 2}, {"flg", true}}),
              "/flg: unknown key (nearest: flag)");
}

TEST_F(Call, TellsOverloadsByTheNumberAndKindOfTheArguments)
{
    const QJsonObject row{{"isChecked", true}, {"index", 3}, {"protoData", "AAE="}};
    const QJsonValue rows = QJsonArray{QJsonObject{{"index", 3}}}; // no array: clang takes QJsonArray{array} for a copy
    call("ITavProExceptionMgr", "setUIData", QJsonArray{rows});
    call("ITavProExceptionMgr", "setUIData", QJsonArray{row});
    EXPECT_EQ(call("ITavProExceptionMgr", "getUIData"), QJsonValue(QJsonArray{row}));

    call("ITavAccessControlMgr", "updateUserDetail", QJsonArray{5, QJsonArray{QJsonObject{{"userName", "a"}}}});
    EXPECT_EQ(call("ITavAccessControlMgr", "getUserDetail", QJsonArray{5}),
              call("ITavAccessControlMgr", "getUserDetail"));
}

TEST_F(Call, TellsOverloadsByTheKeysOfEnumerationsOrByTheNameOfTheArgument)
{
    EXPECT_TRUE(call("ITavFuncTypeMgr", "getSubFuncInfo", QJsonArray{"Func_HostInfo"}).isArray());
    EXPECT_TRUE(call("ITavFuncTypeMgr", "getSubFuncInfo", QJsonArray{"SubFunc_LogAudit"}).isObject());
    EXPECT_TRUE(call("ITavFuncTypeMgr", "getSubFuncInfo", QJsonObject{{"subFuncType", -1}}).isObject());
    EXPECT_EQ(problem("ITavFuncTypeMgr", "getSubFuncInfo", QJsonArray{-1}),
              "getSubFuncInfo(CTavFuncTypeHeader::TavFuncTypeHeader_ funcType) and "
              "getSubFuncInfo(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ subFuncType) both fit: "
              "give the arguments as an object by their names");
    EXPECT_THAT(problem("ITavFuncTypeMgr", "getSubFuncInfo", QJsonArray{"Func_HostInf"}),
                testing::AllOf(testing::StartsWith("none of the operations fits: "),
                               testing::HasSubstr("nearest: Func_HostInfo")));
    EXPECT_EQ(problem("ITavProExceptionMgr", "setUIData", QJsonArray{7}),
              "none of the operations fits: setUIData(QVector<STProtoDataContainer> rows): /0: expected an array, not "
              "the number 7; setUIData(STProtoDataContainer item): /0: expected an object, not the number 7");
}

TEST_F(Call, NamesWhatIsNearestToAnUnknownName)
{
    EXPECT_EQ(problem("ITavNetControlMgr", "getDeviceInfos"),
              "ITavNetControlMgr has no operation \"getDeviceInfos\" (nearest: getDeviceInfo)");
    EXPECT_EQ(problem("ITavNetControl", "getDeviceInfo"),
              "there is no manager \"ITavNetControl\" (nearest: ITavNetControlMgr)");
}

TEST_F(Call, OfAPositionThatAListDoesNotHaveIsAnErrorAndLeavesTheManagerInOrder)
{
    EXPECT_THAT(problem("ITavNetControlMgr", "reverseDeviceState", QJsonArray{99}),
                testing::AllOf(testing::StartsWith("reverseDeviceState(int index): the message library refused the "
                                                   "call"),
                               testing::EndsWith("a position must be one of the list's")));
    call("ITavNetControlMgr", "setDeviceInfo", QJsonArray{QJsonObject{{"devices", QJsonArray{QJsonObject()}}}});
    call("ITavNetControlMgr", "reverseDeviceState", QJsonArray{0});
    EXPECT_EQ(call("ITavNetControlMgr", "getDeviceInfo")["devices"][0]["state"], QJsonValue(1));
}

TEST_F(Call, ThatTheMessageLibraryRefusesIsNotPrinted)
{
    const auto printedBy = [](const auto &refused) {
        testing::internal::CaptureStderr();
        refused();
        return testing::internal::GetCapturedStderr();
    };
    const auto elsewhere = [] { EXPECT_THROW(GOOGLE_LOG(FATAL) << "refused", google::protobuf::FatalException); };
    EXPECT_THAT(printedBy(elsewhere), testing::HasSubstr("refused"));
    EXPECT_EQ(printedBy([this] { problem("ITavNetControlMgr", "reverseDeviceState", QJsonArray{99}); }), "");
    EXPECT_THAT(printedBy(elsewhere), testing::HasSubstr("refused"));
}

TEST_F(Call, IsForTheManagerItIsMadeFor)
{
    const TavCall::Call getState = TavCall::prepared("ITavNetControlMgr", "getState", QJsonArray());
    EXPECT_EQ(getState(host.managerObject("ITavNetControlMgr")), QJsonValue(QJsonObject{{"state", 0}}));
    const auto problemWith = [&getState](QObject *object) -> std::string {
        try {
            getState(object);
            return {};
        } catch (const TavCallError &error) {
            return error.what();
        }
    };
    EXPECT_EQ(problemWith(host.managerObject("ITavAuditMgr")), "TavAuditMgr is not the manager ITavNetControlMgr");
    EXPECT_EQ(problemWith(nullptr), "no object is not the manager ITavNetControlMgr");
}

TEST_F(Call, MayBeMadeOnAnyThread)
{
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([this, thread] {
            for (int turn = 0; turn < 200; ++turn) {
                call("ITavAccessControlMgr", "setObjectCount", QJsonArray{turn, true, thread});
                EXPECT_EQ(call("ITavAccessControlMgr", "getObjectCount", QJsonArray{true, thread}), QJsonValue(turn));
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}

TEST_F(Call, OfGetObjectGivesTheNameOfTheClass)
{
    EXPECT_EQ(call("ITavAuditMgr", "getObject"), QJsonValue("TavAuditMgr"));
    EXPECT_EQ(expected("ITavAuditMgr", "getObject", "TavAuditMgr"), QJsonValue("TavAuditMgr"));
    EXPECT_EQ(expected("ITavAuditMgr", "getObject", QJsonValue::Null), QJsonValue(QJsonValue::Null));
}

TEST_F(Call, OfGetImageRefIsComparedBySizeAndFormatOnly)
{
    const auto problemOf = [](const QJsonObject &picture) {
        try {
            TavCall::preparedCall("ITavPicResourceMgr", "getImageRef", QJsonArray{"a", "b"}, {}).expected(picture, {});
            return std::string();
        } catch (const TavCallError &error) {
            return std::string(error.what());
        }
    };
    EXPECT_EQ(problemOf({{"depth", 32}}), "/depth: unknown key (there are: width, height, format)");
    EXPECT_THAT(problemOf({{"width", true}, {"height", true}}), testing::StartsWith("/width: "));
}

TEST(SetValue, IsTheGetterOfEachHeldValue)
{
    ASSERT_FALSE(TavCall::heldValues().isEmpty());
    for (const TavCall::HeldValue &value : TavCall::heldValues()) {
        const auto &operations = TavCall::operations();
        const auto getter = std::find_if(operations.begin(), operations.end(), [&](const TavCall::Operation &other) {
            return other.manager == value.manager && other.name == value.getter;
        });
        const QJsonValue json = getter->result.startsWith("QVector<") ? QJsonValue(QJsonArray()) : QJsonObject();
        const TavCall::SetValue found = TavCall::setValueOf(value.manager, value.setter, QJsonArray{QJsonValue(json)});
        EXPECT_EQ(found.getter, value.getter) << value.manager.toStdString() << ' ' << value.setter.toStdString();
        EXPECT_TRUE(found.key.isEmpty());
    }
}

TEST(SetValue, NamesTheKeyOfATable)
{
    const QString manager = "ITavAccessControlMgr";
    const TavCall::SetValue byPosition = TavCall::setValueOf(manager, "setObjectCount", QJsonArray{7, true, 3});
    EXPECT_EQ(byPosition.getter, "getObjectCount");
    EXPECT_EQ(byPosition.key, (QJsonArray{true, 3}));
    const QJsonObject named{{"details", QJsonArray()}, {"flag", false}, {"key", 2}};
    const TavCall::SetValue byName = TavCall::setValueOf(manager, "updateObjectDetail", named);
    EXPECT_EQ(byName.getter, "getObjectDetail");
    EXPECT_EQ(byName.key, (QJsonArray{2, false}));
}

TEST(SetValue, IsNoneForARowOrForAnythingElse)
{
    EXPECT_EQ(TavCall::setValueOf("ITavAccessControlMgr", "updateUIPriData", QJsonArray{QJsonObject()}).getter, "");
    EXPECT_EQ(TavCall::setValueOf("ITavAccessControlMgr", "clearCacheData", QJsonArray()).getter, "");
    EXPECT_EQ(TavCall::setValueOf("ITavNetControlMgr", "getState", QJsonArray()).getter, "");
    EXPECT_EQ(TavCall::setValueOf("ITavProtectMgr", "setUIAllCheck", QJsonArray{true}).getter, "");
}
