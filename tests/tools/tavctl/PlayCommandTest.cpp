#include "ChildProcess.h"
#include "JsonSchema.h"
#include "PrintQString.h"
#include "ScenarioFiles.h"
#include "Tavctl.h"

#include <QElapsedTimer>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace
{
Tavctl play(const QString &file, const QStringList &options = {"--speed", "max", "--check"})
{
    return Tavctl(QStringList{"play", file, "--plugin", TAV_PLUGIN_FILE} + options);
}

/// Told to end after some seconds, once: a second time would end it at once.
Tavctl interrupted(const QStringList &arguments)
{
    return Tavctl(arguments + QStringList{"--plugin", TAV_PLUGIN_FILE}, "/dev/null",
                  {"timeout", "--foreground", "--preserve-status", "--signal=TERM", "3"});
}
}

TEST(PlayCommand, SaysWhatItHasPlayedAndCompared)
{
    const ScenarioFile file(soundLines);
    const Tavctl run = play(file.path());
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, file.path() + ": 3 calls, 0.300 s of the scenario, 1 result compared\n");
    EXPECT_EQ(run.errors, "");
}

TEST(PlayCommand, EndsWithOneAtTheFirstDifferenceAndShowsBothValues)
{
    const ScenarioFile file(otherLines);
    const Tavctl run = play(file.path());
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors,
              "tavctl: " + file.path()
                  + ": line 3: ITavNetControlMgr getState returned something else at /state\n  expected: 8\n"
                    "  returned: 7\n");
    EXPECT_EQ(play(file.path(), {"--speed", "max"}).exitCode, 0) << "nothing is compared without --check";
}

TEST(PlayCommand, EndsWithOneAtAMistakenLine)
{
    const ScenarioFile file("{\"at\": -1}\n");
    const Tavctl run = play(file.path(), {});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors,
              "tavctl: " + file.path() + ": line 2: /at: expected seconds from 0 to 1000000000, not the number -1\n");
}

TEST(PlayCommand, EndsWithOneAndOneLineAtWhateverIsWrong)
{
    const QByteArray deep = QByteArray(10000, '[') + QByteArray(10000, ']');
    const struct {
        QByteArray lines;
        QString mistake; ///< or its beginning
    } rows[] = {
        {R"({"manager": "ITavNetControlMgr", "operation": "setNetCount", "arguments": )" + deep + '}',
         "line 2: nested deeper than the reader's 1024 levels (character 1098)"},
        {QByteArray("{\"page\": \"SubFunc_\0LogAudit\"}", 30),
         "line 2: a control character must be written as an escape, such as \\u0000 (character 19)"},
        {QByteArray("{\"at\": 1,\0 \"page\": \"SubFunc_LogAudit\"}", 39),
         "line 2: a NUL byte stands here (character 10)"},
        {R"({"page": "SubFunc_LogAudit", "page": "SubFunc_LogAudit"})",
         "line 2: /page: the key stands more than once in its object"},
        {"{\"at\": 2, \"page\": \"SubFunc_LogAudit\"}\n{\"at\": 1, \"page\": \"SubFunc_LogAudit\"}",
         "line 3: /at: the time falls: 1 stands behind 2"},
        {R"({"thread": "agent9", "page": "SubFunc_LogAudit"})",
         "line 2: /thread: there is no thread \"agent9\" (nearest: agent)"},
        {R"({"manager": "ITavPicResourceMgr", "operation": "getImageRef", "arguments": ["a", "b"]})",
         "line 2: /thread: ITavPicResourceMgr is called on the thread \"gui\" only"},
        {R"({"manager": "ITavNetControlMgr", "operation": "reverseDeviceState", "arguments": [99]})",
         "line 2: ITavNetControlMgr reverseDeviceState: reverseDeviceState(int index): the message library refused "},
    };
    for (const auto &row : rows) {
        const ScenarioFile file(row.lines + "\n");
        const Tavctl run = play(file.path());
        EXPECT_EQ(run.exitCode, 1) << row.mistake.toStdString();
        EXPECT_TRUE(run.errors.startsWith("tavctl: " + file.path() + ": " + row.mistake)) << run.errors.toStdString();
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
    }
}

TEST(PlayCommand, TakesLittleMemoryForALineThatIsTooLong)
{
    const ScenarioFile file({});
    QFile scenario(file.path());
    ASSERT_TRUE(scenario.open(QIODevice::Append));
    for (int i = 0; i < 100; ++i) { // in pieces, since the memory of this process would be counted
        scenario.write(QByteArray(1 << 20, 'x'));
    }
    scenario.close();
    const Tavctl run = play(file.path());
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "tavctl: " + file.path() + ": line 2: longer than 32 MiB\n");
    if (!memoryIsInstrumented) {
        EXPECT_LT(run.peakMiB, 100);
    }
}

TEST(PlayCommand, PlaysWhatIsBeforeACutLineWhenTold)
{
    const ScenarioFile file(soundLines.chopped(9));
    EXPECT_EQ(play(file.path()).exitCode, 1);
    const Tavctl run = play(file.path(), {"--speed", "max", "--partial"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, file.path() + ": 2 calls, 0.200 s of the scenario, without line 4, which is cut\n");
}

TEST(PlayCommand, ShowsThePageAtTheEnd)
{
    const ScenarioFile file(
        R"({"manager": "ITavAuditMgr", "operation": "setAuditCount", "arguments": [{"count": 4711}]})");
    const QString text = play(file.path(), {"--page", "SubFunc_LogAudit"}).output;
    EXPECT_TRUE(text.contains("4711")) << text.toStdString();
    const QJsonObject document = play(file.path(), {"--json"}).json();
    EXPECT_EQ(schemaFindings("pages", document), "");
    EXPECT_EQ(document["played"].toObject()["calls"].toInt(), 1);
    EXPECT_GT(document["pages"].toArray().size(), 10);
    EXPECT_EQ(play(file.path(), {"--page", "SubFunc_LogAduit"}).errors,
              "tavctl: --page: TavSubFuncTypeHeader_ has no key \"SubFunc_LogAduit\" (nearest: SubFunc_LogAudit)\n");
}

TEST(PlayCommand, PrintsWhatHasEndedItAsItsSchemaDescribes)
{
    const ScenarioFile file(
        R"({"manager": "ITavAuditMgr", "operation": "setAuditCount", "arguments": [{"count": "x"}]})");
    const Tavctl run = play(file.path(), {"--json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(schemaFindings("pages", run.json()), "");
    EXPECT_EQ(run.json()["played"].toObject()["line"].toInt(), 2);
}

TEST(PlayCommand, PlaysAtItsTimesAndFaster)
{
    const ScenarioFile file(soundLines);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(play(file.path(), {"--from", "100ms", "--speed", "0.5"}).exitCode, 0);
    EXPECT_GE(timer.elapsed(), 400);
    EXPECT_EQ(play(file.path(), {"--until", "0.25s"}).output, file.path() + ": 2 calls, 0.200 s of the scenario\n");
}

TEST(PlayCommand, RefusesOptionsThatMakeNoSense)
{
    const ScenarioFile file(soundLines);
    for (const QStringList &options :
         {QStringList{"--speed", "0"}, QStringList{"--speed", "fast"}, QStringList{"--speed", "-1"},
          QStringList{"--from", "-1s"}, QStringList{"--until", "5 parsecs"}, QStringList{"--loop", "--check"}}) {
        EXPECT_EQ(play(file.path(), options).exitCode, 2) << options.join(' ').toStdString();
    }
    EXPECT_EQ(play("/nonexistent").errors, "tavctl: /nonexistent: there is no such file\n");
    EXPECT_EQ(play("/dev/zero").errors, "tavctl: /dev/zero: not a regular file\n");
}

TEST(PlayCommand, ReadsStandardInput)
{
    const ScenarioFile file(soundLines);
    const Tavctl run({"play", "-", "--plugin", TAV_PLUGIN_FILE, "--speed", "max"}, file.path());
    EXPECT_EQ(run.output, "-: 3 calls, 0.300 s of the scenario\n") << run.errors.toStdString();
}

TEST(PlayCommand, EndsWithOneWhenItIsInterrupted)
{
    const ScenarioFile file(soundLines + R"({"at": 3600, "page": "SubFunc_LogAudit"})");
    const Tavctl run = interrupted({"play", file.path(), "--json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "tavctl: " + file.path() + ": interrupted at 0.300 s of the scenario\n");
    EXPECT_TRUE(run.json()["played"].toObject()["stopped"].toBool());
    EXPECT_EQ(interrupted({"play", file.path(), "--loop"}).exitCode, 0) << "it has no other end";
}

TEST(CallCommand, CanBeMadeBehindAScenario)
{
    const ScenarioFile file(soundLines);
    const Tavctl run({"call", "ITavNetControlMgr", "getState", "--after", file.path(), "--plugin", TAV_PLUGIN_FILE});
    EXPECT_EQ(run.output, "{\n    \"state\": 7\n}\n") << run.errors.toStdString();
    const ScenarioFile mistaken("[]\n");
    const Tavctl none(
        {"call", "ITavNetControlMgr", "getState", "--after", mistaken.path(), "--plugin", TAV_PLUGIN_FILE});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_EQ(none.output, "");
}

TEST(CallCommand, AsksForAnIndeterminateValueOnlyBehindItsSetter)
{
    const QStringList call{"call", "ITavHostInfoMgr", "getResourceInfo", "--plugin", TAV_PLUGIN_FILE, "--after"};
    const ScenarioFile without(soundLines);
    EXPECT_EQ(Tavctl(call + QStringList{without.path()}).exitCode, 2);
    const ScenarioFile with(R"({"manager": "ITavHostInfoMgr", "operation": "setResourceInfo", "arguments": [{}]})");
    EXPECT_EQ(Tavctl(call + QStringList{with.path()}).exitCode, 0);
    EXPECT_EQ(Tavctl(call + QStringList{"-"}, with.path()).exitCode, 0) << "read once";
}

TEST(ScenarioCommand, ShowsTheLines)
{
    const ScenarioFile file(soundLines);
    const QStringList rows = Tavctl({"scenario", "show", file.path()}).output.split('\n');
    ASSERT_GE(rows.size(), 4);
    EXPECT_TRUE(rows[2].simplified().startsWith("3 0.200 agent ITavNetControlMgr getState 110"))
        << rows[2].toStdString();
    EXPECT_EQ(Tavctl({"scenario", "show", file.path(), "--json"}).json()["lines"].toArray().size(), 3);
}

TEST(ScenarioCommand, SumsUpTheFile)
{
    const ScenarioFile file(soundLines);
    const QString text = Tavctl({"scenario", "info", file.path()}).output;
    EXPECT_TRUE(text.startsWith("for a test\n0.300 s, 3 calls, ")) << text.toStdString();
    const QJsonObject document = Tavctl({"scenario", "info", file.path(), "--json"}).json();
    EXPECT_EQ(document["calls"], 3);
    EXPECT_EQ(document["operations"].toArray().size(), 3);
}

TEST(ScenarioCommand, PrintsLinesThatCheckTheEnd)
{
    const QByteArray lines = soundLines
        + R"({"manager": "ITavAccessControlMgr", "operation": "setObjectCount", "arguments": [7, true, 3]})"
          "\n";
    const ScenarioFile file(lines);
    const Tavctl end({"scenario", "end", file.path(), "--plugin", TAV_PLUGIN_FILE});
    EXPECT_EQ(end.exitCode, 0) << end.errors.toStdString();
    EXPECT_TRUE(end.bytes.contains(R"("operation":"getDeviceInfo","returns":{"devices":[]}})"))
        << end.bytes.toStdString();
    const ScenarioFile checked(lines + end.bytes);
    const Tavctl played = play(checked.path());
    EXPECT_EQ(played.exitCode, 0) << played.errors.toStdString();
    EXPECT_TRUE(played.output.endsWith(", 65 results compared\n")) << played.output.toStdString();

    const QByteArray key = R"({"arguments":[true,3],"manager":"ITavAccessControlMgr","operation":"getObjectCount")";
    const ScenarioFile changed(lines
                               + QByteArray(end.bytes).replace(key + R"(,"returns":7})", key + R"(,"returns":8})"));
    const Tavctl mistaken = play(changed.path());
    EXPECT_EQ(mistaken.exitCode, 1);
    EXPECT_TRUE(mistaken.errors.endsWith(
        "ITavAccessControlMgr getObjectCount returned something else\n  expected: 8\n  returned: 7\n"))
        << mistaken.errors.toStdString();
}
