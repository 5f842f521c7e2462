#include "Tavctl.h"

#include <QFile>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace
{
Tavctl call(const QStringList &arguments)
{
    return Tavctl(QStringList{"call"} + arguments);
}

/// What the tool says when it refuses a call; fails the test when it does not.
std::string problem(const QStringList &arguments)
{
    const Tavctl run = call(arguments);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, "");
    return run.errors.trimmed().toStdString();
}
}

TEST(OperationsCommand, ListsEveryOperationOfTheGoldenList)
{
    QStringList expected;
    QFile goldenList(TAV_SOURCE_DIR "/tests/contract/slots.txt");
    ASSERT_TRUE(goldenList.open(QIODevice::ReadOnly));
    QString manager;
    while (!goldenList.atEnd()) {
        const QString line = QString::fromUtf8(goldenList.readLine()).trimmed();
        const QString name = line.left(line.indexOf('(')).section(' ', -1);
        if (!line.contains('(')) {
            manager = line;
        } else if (!line.startsWith('#') && manager != "ITavDataPlugin") {
            expected.append(manager + ' ' + name);
        }
    }

    const Tavctl run({"operations"});
    EXPECT_EQ(run.exitCode, 0);
    QStringList listed;
    for (const QString &line : run.output.split('\n')) {
        if (line.startsWith("ITav")) {
            manager = line;
        } else if (line.contains('(')) {
            listed.append(manager + ' ' + line.left(line.indexOf('(')).trimmed());
        }
    }
    EXPECT_EQ(listed, expected);
}

TEST(OperationsCommand, ShowsNameArgumentsAndResultOfOneManager)
{
    const Tavctl run({"operations", "ITavHostInfoMgr"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.toStdString(),
              "ITavHostInfoMgr\n"
              "  operation                                                   result\n"
              "  getObject()                                                 QObject*\n"
              "  setResourceInfo(STResourceInfoAsr info)                     void\n"
              "  getResourceInfo()                                           STResourceInfoAsr\n"
              "  setKernelSigState(Tav::HostInfo::SystemFileStateAsr state)  void\n"
              "  getKernelSigState()                                         Tav::HostInfo::SystemFileStateAsr\n");
    const Tavctl mistaken({"operations", "ITavHostInfo"});
    EXPECT_EQ(mistaken.exitCode, 2);
    EXPECT_EQ(mistaken.errors.toStdString(),
              "tavctl: there is no manager \"ITavHostInfo\" (nearest: ITavHostInfoMgr)\n");
}

TEST(OperationsCommand, PrintsTheResultAsJson)
{
    EXPECT_EQ(call({"ITavNetControlMgr", "getState"}).json(), QJsonObject({{"state", 0}}));
    EXPECT_EQ(call({"ITavAuditMgr", "getObject"}).output, "\"TavAuditMgr\"\n");
    EXPECT_EQ(call({"ITavAccessControlMgr", "getCheckPriLevel"}).output, "-1\n");
    EXPECT_EQ(call({"ITavAccessControlMgr", "getUIUsers"}).output, "[\n]\n");
    EXPECT_EQ(call({"ITavAccessControlMgr", "clearCacheData"}).output, "null\n");
    EXPECT_EQ(call({"ITavFuncTypeMgr", "loadConfig", "--root", "/nonexistent"}).exitCode, 2);
}

TEST(OperationsCommand, TakesTheArgumentsAsValuesOrAsOneObjectByName)
{
    EXPECT_EQ(call({"ITavAccessControlMgr", "setObjectCount", "-5", "true", "2"}).output, "null\n");
    EXPECT_EQ(call({"ITavAccessControlMgr", "getObjectCount", R"({"flag": true, "key": 2})"}).output, "0\n");
    EXPECT_EQ(call({"ITavProExceptionMgr", "setUIData", R"([{"index": 1}, {"index": 2}])"}).output, "null\n");
    EXPECT_EQ(call({"ITavProExceptionMgr", "setUIData", R"({"index": 1})"}).output, "null\n");
    EXPECT_EQ(call({"ITavFuncTypeMgr", "getSubFuncInfo", R"({"subFuncType": -1})"}).json()["subFuncType"],
              QJsonValue("SubFunc_None"));
}

TEST(OperationsCommand, ReadsTheFilesBelowTheRoot)
{
    EXPECT_EQ(call({"--root", TAV_SOURCE_DIR "/share/demo", "ITavLineScanMgr", "loadJsonConfig"}).output, "true\n");
}

TEST(OperationsCommand, SaysWhatIsWrongWithTheArguments)
{
    EXPECT_EQ(problem({"ITavAccessControlMgr", "hasUserDetail", "root"}),
              "tavctl: argument 1: this is no number, nor another value at character 1; a text has its own quotes: "
              "'\"text\"'");
    EXPECT_EQ(problem({"ITavAccessControlMgr", "hasUserDetail", "\"a\", \"b\""}),
              "tavctl: argument 1: one JSON value is expected");
    EXPECT_EQ(problem({"ITavAccessControlMgr", "hasUserDetail", ""}), "tavctl: argument 1: one JSON value is expected");
    EXPECT_EQ(problem({"ITavAccessControlMgr", "updateUIUser", R"({"userName": "a", "userName": "b"})"}),
              "tavctl: argument 1: /userName: the key stands more than once");
    EXPECT_EQ(problem({"ITavAccessControlMgr", "updateUIUser", R"({"username": "a"})"}),
              "tavctl: ITavAccessControlMgr updateUIUser: /0/username: unknown key (nearest: userName)");
    EXPECT_EQ(problem({"ITavAccessControlMgr", "getUsers"}),
              "tavctl: ITavAccessControlMgr getUsers: ITavAccessControlMgr has no operation \"getUsers\" (nearest: "
              "getUIUsers)");
    EXPECT_EQ(problem({"ITavAccessControlMgr", "getUIUsers", "--rot", "/"}),
              "tavctl: call: there is no option \"--rot\"");
    EXPECT_EQ(
        problem({"ITavAccessControlMgr"}),
        "tavctl: OPERATION is missing, as in \"tavctl call MANAGER OPERATION\"; \"tavctl call --help\" tells what "
        "there is");
}

TEST(OperationsCommand, OfAPositionThatIsNotThereEndsInOrder)
{
    EXPECT_NE(problem({"ITavNetControlMgr", "reverseDeviceState", "3"}).find("a position must be one of the list's"),
              std::string::npos);
}

TEST(OperationsCommand, DoesNotPrintWhatTheMemoryHeld)
{
    EXPECT_NE(problem({"ITavHostInfoMgr", "getResourceInfo"}).find("whatever the memory holds"), std::string::npos);
}
