#include "FindingLines.h"
#include "JsonSchema.h"
#include "PrintQString.h"
#include "ScenarioFiles.h"

#include <gtest/gtest.h>

namespace
{
/// @brief A mistaken line, and how it is told behind the file's name and the line's number.
struct LineMistake {
    QByteArray line;
    QString finding;
};

const QString endsBefore = "; a play ends before this line; ";
const QString adviceOnKeys = endsBefore + R"(write "page", or "manager", "operation" and "arguments", each once)";
const QString adviceOnCall = endsBefore + R"(name one that "tavctl operations" lists, or a page by its type)";

const LineMistake mistakes[] = {
    {R"({"page": "SubFunc_LogAudit",})",
     ":29: error: TAV802: nothing stands behind the last comma: remove it" + endsBefore
         + "write one JSON object in the line"},
    {"[]", ":1: error: TAV802: an object is expected, not an array" + endsBefore + "write one JSON object in the line"},
    {R"({"page": "SubFunc_LogAudit", "colour": 1})",
     R"(:40: error: TAV804: /colour: unknown key (there are: at, thread, page))" + adviceOnKeys},
    {R"({"page": "SubFunc_LogAudit", "page": "SubFunc_LogAudit"})",
     ":38: error: TAV804: /page: the key stands more than once in its object" + adviceOnKeys},
    {R"({"manager": "ITavNetControlMgr", "operation": "getState"})",
     R"(:1: error: TAV804: the key "arguments" is missing; an operation without any has [])" + adviceOnKeys},
    {R"({"manager": "ITavNetControlMg", "operation": "getState", "arguments": []})",
     R"(:13: error: TAV805: /manager: there is no manager "ITavNetControlMg" (nearest: ITavNetControlMgr))"
         + adviceOnCall},
    {R"({"manager": "ITavNetControlMgr", "operation": "getStat", "arguments": []})",
     R"(:47: error: TAV805: /operation: ITavNetControlMgr has no operation "getStat" (nearest: getState))"
         + adviceOnCall},
    {R"({"manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": "7"}]})",
     R"(:83: error: TAV806: /arguments/0/state: expected a whole number from -2147483648 to 2147483647, not the text "7")"
         + endsBefore + R"(write what "tavctl operations" says that the operation takes)"},
    {R"({"at": 0.5, "page": "SubFunc_LogAudit"})",
     ":8: error: TAV807: /at: the time falls: 0.5 stands behind 1" + endsBefore
         + "write seconds from the beginning, no fewer than the line before has"},
    {R"({"thread": "agent9", "page": "SubFunc_LogAudit"})",
     R"(:12: error: TAV808: /thread: there is no thread "agent9" (nearest: agent))" + endsBefore
         + R"(write another thread, or leave "thread" out, which means "agent")"},
    {R"({"manager": "ITavNetControlMgr", "operation": "getState", "arguments": [], "returns": {"state": true}})",
     ":97: error: TAV809: /returns/state: expected a whole number from -2147483648 to 2147483647, not true" + endsBefore
         + R"(write what the operation can return, or leave "returns" out)"},
    {R"({"manager": "ITavHostInfoMgr", "operation": "getResourceInfo", "arguments": []})",
     ":1: error: TAV810: getResourceInfo returns whatever the memory holds until its setter has been called"
         + endsBefore + "call the setter in a line before, or remove this one"},
    {R"({"page": "SubFunc_Log)",
     ":1: error: TAV803: cut: the file ends within this line; what stands before it can be played as a partial scenario"
         + endsBefore + R"(complete the line, or remove it; "tavctl play --partial" leaves it out)"},
};

using ScenarioBeginning = TestFiles;
}

TEST(ScenarioCheck, FindsNothingInASoundFile)
{
    const ScenarioFile file(soundLines);
    const Tavctl run({"scenario", "check", file.path()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "1 file checked, no findings\n");
}

TEST(ScenarioCheck, NamesTheMistakeOfEachLineAndItsPlace)
{
    QByteArray lines = "{\"at\": 1, \"page\": \"SubFunc_LogAudit\"}";
    for (const LineMistake &mistake : mistakes) {
        lines += '\n' + mistake.line;
    }
    const ScenarioFile file(lines);
    QStringList expected;
    for (const LineMistake &mistake : mistakes) {
        expected.append(QString("%1:%2").arg(file.path()).arg(expected.size() + 3) + mistake.finding);
    }
    const QString summary = QString("1 file checked, %1 findings: %1 errors").arg(expected.size());
    const Tavctl text({"scenario", "check", file.path()});
    EXPECT_EQ(text.output.split('\n'), expected + QStringList({summary, ""}));
    EXPECT_EQ(text.exitCode, 1);
    const Tavctl json({"scenario", "check", file.path(), "--json"});
    EXPECT_EQ(findingLines(json), expected);
    EXPECT_TRUE(
        conforms(QJsonDocument::fromJson(contentOf(TAV_SOURCE_DIR "/share/schemas/findings.schema.json")).object(),
                 json.json()));
}

TEST_F(ScenarioBeginning, IsItsVersion)
{
    const struct {
        QByteArray text;
        QString finding;
    } rows[] = {
        {"", R"(:1: error: TAV801: the file has no whole line; the first is {"tavScenario": 1})"},
        {"{\"title\": 1}\nno line\n", R"(:1: error: TAV801: no scenario: its first line has the key "tavScenario")"},
        {"{\"tavScenario\": 2}\nno line\n",
         ":17: error: TAV801: /tavScenario: the version must be 1, not the number 2"},
    };
    for (const auto &row : rows) {
        const QString file = put("a.jsonl", row.text);
        EXPECT_EQ(findingLines(Tavctl({"scenario", "check", file, "--json"})),
                  QStringList{file + ":1" + row.finding
                              + R"(; it cannot be played; begin it with the line {"tavScenario": 1})"});
    }
    const QString file = put("a.jsonl", "?\n");
    EXPECT_EQ(findingLines(Tavctl({"scenario", "check", file, "--json"})),
              QStringList{file
                          + ":1:1: error: TAV802: the text must begin with [ or {; it cannot be played; write one JSON "
                            "object in the line"});
}

TEST(ScenarioCheck, IsWeighedAndShownAsOtherFindings)
{
    const ScenarioFile broken("{\"at\": -1}\n");
    const ScenarioFile sound(soundLines);
    const Tavctl run({"scenario", "check", broken.path(), sound.path(), "/none", "--quiet"});
    EXPECT_EQ(run.output, "2 files checked, 1 finding: 1 error\n");
    EXPECT_EQ(run.errors, "tavctl: /none: there is no such file\n");
    EXPECT_EQ(run.exitCode, 2);
    const Tavctl ignoring({"scenario", "check", broken.path(), "--ignore", "TAV807"});
    EXPECT_EQ(ignoring.output, "1 file checked, no findings, 1 ignored\n");
    EXPECT_EQ(ignoring.exitCode, 0);
    const Tavctl github({"scenario", "check", "-", "--format", "github"}, broken.path());
    EXPECT_TRUE(github.output.startsWith("::error file=-,line=2,col=8,title=TAV807%3A a time that cannot be::"))
        << github.output.toStdString();
}
