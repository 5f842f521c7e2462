#include "BaselineMistakes.h"
#include "FindingLines.h"
#include "PrintQString.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace
{
class BaselineCommand : public TestFiles
{
protected:
    /// The findings on the file, without its name.
    static QString reportOn(const QString &file)
    {
        return Tavctl({"baseline", "check", file, "--root", brokenRoot}).output.remove(file);
    }
};
}

TEST_F(BaselineCommand, NamesTheMistakeOfEachBrokenBaseline)
{
    expectMistakes(baselineMistakes, "baseline", "1 file checked with the scripts below " + brokenRoot,
                   {"--root", brokenRoot});
}

TEST_F(BaselineCommand, SaysWhereATextCeasesToBeJsonAndWhy)
{
    struct {
        QByteArray text;
        const char *place;
        const char *reason;
        const char *code = "TAV102";
    } const rows[] = {
        {"", ":1:1", "the text is empty", "TAV101"},
        {" \n", ":1:2", "the text is empty", "TAV101"},
        {"7", ":1:1", "the text must begin with [ or {"},
        {"\xef\xbb\xbf \"a\"", ":1:2", "the text must begin with [ or {"},
        {"{\"a\":,}", ":1:6", "a value is expected here"},
        {"{\"a\":}", ":1:6", "a value is expected here"},
        {"{\"a\": 1,}", ":1:9", "nothing stands behind the last comma: remove it"},
        {"// {\n[]", ":1:1", "JSON has no comments"},
        {"[1, /* */ 2]", ":1:5", "JSON has no comments"},
        {"[1 // x\n]", ":1:4", "JSON has no comments"},
        {"{\"a\": // x\n1}", ":1:7", "JSON has no comments"},
        {"[1] // x", ":1:5", "JSON has no comments"},
        {QByteArray("\xff\xfe[\0]\0", 6), ":1:1", "the text is UTF-16, and the reader wants UTF-8", "TAV103"},
        {"[-]", ":1:2", "this is no number, nor another value"},
        {QByteArray(1025, '[') + QByteArray(1025, ']'), ":1:1025", "nested deeper than the reader's 1024 levels"},
        {"{\n  \"a\": 1\n  \"b\": 2\n}", ":3:3", R"(a name, "," or "}" is expected here)"},
        {"{'a': 1}", ":1:2", R"(a name, "," or "}" is expected here)"},
        {"{\"a\" 1}", ":1:6", R"(":" is expected here)"},
        {"[1 2]", ":1:4", R"("," or "]" is expected here)"},
        {"[1,]", ":1:4", "nothing stands behind the last comma: remove it"},
        {"[\"ä\", x]", ":1:7", "this is no number, nor another value"},
        {"[1", ":1:2", "the text ends too early"},
        {"[\"a", ":1:4", "the text ends too early"},
        {"[1]\n\n ]", ":3:2", "the text goes on behind its end"},
        {"\n\n [\"\xff\"]", ":3:4", "this is not UTF-8"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(reportOn(put("baseline", row.text)).section('\n', 0, 0),
                  QString("%1: error: %3: not JSON: %2; the plugin loads no check item; %4")
                      .arg(row.place, row.reason, row.code,
                           QLatin1String(row.code == QByteArray("TAV103") ? "save it as UTF-8" : "correct the text")));
    }
}

TEST_F(BaselineCommand, ChecksTheOtherFilesWhenOneCannotBeRead)
{
    const QString file = put("baseline", "{}");
    const Tavctl run({"baseline", "check", directory.path(), file, "--root", brokenRoot});
    EXPECT_EQ(run.errors, "tavctl: " + directory.path() + ": not a regular file\n");
    EXPECT_TRUE(run.output.startsWith(file + ":1:1: error: TAV113: ")) << run.output.toStdString();
    EXPECT_EQ(run.exitCode, 2);
}

TEST_F(BaselineCommand, TellsEveryItemThatAnotherOneOverwrites)
{
    const QString items = put("baseline", R"({"enableConfig": [{"itemId": 7}, {"itemId": 0}, {"itemId": 7},
        {"itemId": "5"}, {"itemId": 1.5}, {"itemId": 7}, {}]})");
    QStringList overwritten;
    const QStringList lines = reportOn(items).split('\n').filter("is overwritten by");
    for (const QString &line : lines) {
        overwritten.append(line.section(": ", 3, 3) + " < " + line.section("overwritten by ", 1).section(';', 0, 0));
    }
    EXPECT_EQ(overwritten,
              QStringList({"/enableConfig/0/itemId < /enableConfig/5, which getItemConfig(7) gives",
                           "/enableConfig/1/itemId < /enableConfig/6, which getItemConfig(0) gives",
                           "/enableConfig/2/itemId < /enableConfig/5, which getItemConfig(7) gives",
                           "/enableConfig/3/itemId < /enableConfig/6, which getItemConfig(0) gives",
                           "/enableConfig/4/itemId < /enableConfig/6, which getItemConfig(0) gives"}));
}

TEST_F(BaselineCommand, TakesNoBlankOfTheSystemRootForOneOfAScript)
{
    ASSERT_TRUE(QDir(directory.path()).mkpath("a root/opt/tavsec/script/baselineScript"));
    const QString item = put("baseline", R"({"enableConfig": [{"itemId": 1, "name": "a", "checkValueScript": "/x"}]})");
    const Tavctl run({"baseline", "check", "--root", directory.filePath("a root"), item});
    EXPECT_TRUE(run.output.contains("; put the script there, or correct its name\n")) << run.output.toStdString();
}

TEST_F(BaselineCommand, TellsAScriptWithANulInItsNameWithoutAWarningOfQt)
{
    const QString item
        = put("baseline", R"({"enableConfig": [{"itemId": 1, "name": "a", "checkValueScript": "/x\u0000"}]})");
    const Tavctl run({"baseline", "check", item, "--root", brokenRoot});
    EXPECT_TRUE(run.output.contains(": the script \"")) << run.output.toStdString();
    EXPECT_EQ(run.errors, "");
}

TEST_F(BaselineCommand, ShortensLongKeysInTextAlone)
{
    const QByteArray key(1000, 'x');
    const QString file = put("baseline",
                             R"({"enableConfig": [{"itemId": 1, "name": "a", "checkValueScript": "/check.sh", ")" + key
                                 + R"(": 1}]})");
    EXPECT_TRUE(reportOn(file).contains(": /enableConfig/0/" + key.left(40) + "…: unknown key"));
    const Tavctl json({"baseline", "check", "--json", "--root", brokenRoot, file});
    EXPECT_EQ(json.json()["findings"].toArray().first()["path"].toString(), "/enableConfig/0/" + key);
}

TEST_F(BaselineCommand, LooksAtAFileOnceHoweverManyMistakesItHas)
{
    const auto secondsFor = [this](int count) {
        QByteArray items;
        for (int i = 0; i < count; ++i) {
            items += R"({"itemId": )" + QByteArray::number(i)
                + R"(, "name": 1, "name": 2, "checkValueScript": "/check.sh"},)";
        }
        const QString file = put("baseline", R"({"enableConfig": [)" + items.chopped(1) + "]}");
        const Tavctl run({"baseline", "check", "--root", brokenRoot, file});
        EXPECT_TRUE(run.output.endsWith(QString(", %1 findings: %2 errors, %2 warnings\n").arg(2 * count).arg(count)));
        return run.processorSeconds;
    };
    EXPECT_LT(secondsFor(10000) / secondsFor(1000), 30) << "in one line: a walk from its start for each takes minutes";
}

TEST_F(BaselineCommand, OffersTheSameTextInOtherCaseAndTheOneThatGoesOn)
{
    const QByteArray item = R"({"enableConfig": [{"ITEMID": 1, "name": "a", "checkValueScript": "/check.sh",
        "description": ""}]})";
    const QString report = reportOn(put("baseline", item));
    EXPECT_TRUE(
        report.contains(R"(unknown key "ITEMID"; it is not read, and the plugin reads the id 0; write "itemId")"));
    EXPECT_TRUE(
        report.contains(R"(unknown key "description"; it is not read, and the item has no description; write "desc")"));
}

TEST_F(BaselineCommand, OffersOnlyKeysThatAreNear)
{
    const QByteArray item = R"({"enableConfig": [{"itemId": 1, "note": "", "checkValueScript": "/check.sh"}]})";
    const QString report = reportOn(put("baseline", item));
    EXPECT_TRUE(report.contains(R"(: the key "name" is missing; )")) << report.toStdString();
    EXPECT_TRUE(report.contains(R"(: unknown key "note"; the plugin does not read it; remove it, or write )"));
}

TEST_F(BaselineCommand, CutsLongValues)
{
    const QByteArray item = R"({"enableConfig": [{"itemId": ")" + QByteArray(1000, 'x')
        + R"(", "name": "a", "checkValueScript": "/check.sh"}]})";
    EXPECT_TRUE(reportOn(put("baseline", item))
                    .contains("/itemId: the string \"" + QString(39, 'x') + "… where a whole number"));
}

TEST_F(BaselineCommand, TheBaselineIsTheItemsThatThePluginHolds)
{
    const QString file = put("baseline", R"({"enableConfig": [
        {"itemId": 7, "name": "first"}, {"itemId": 7, "name": "second", "type": 3, "btntext": "look"},
        {"itemId": "8", "name": "eight", "type": 2, "btntext": "look", "checkValueScript": "x.sh"}]})");
    const QJsonObject held{{"id", 7},          {"name", "second"}, {"expected", ""},
                           {"type", 3},        {"button", "look"}, {"script", "/opt/tavsec/script/baselineScript"},
                           {"description", ""}};
    const QJsonObject misread{{"id", 0},          {"name", "eight"},
                              {"expected", ""},   {"type", 2},
                              {"button", ""},     {"script", "/opt/tavsec/script/baselineScriptx.sh"},
                              {"description", ""}};
    EXPECT_EQ(Tavctl({"baseline", "show", "--json", file}).json()["items"].toArray(), (QJsonArray{misread, held}));
    const Tavctl text({"baseline", "show", file});
    EXPECT_EQ(text.exitCode, 0);
    EXPECT_TRUE(text.output.contains("Check items: 2\n"));
    EXPECT_TRUE(text.output.contains(" 7  second"));
}

TEST_F(BaselineCommand, FindsNothingInWhatIsUnusualButRight)
{
    const QString withSchema = put("baseline", R"({"$schema": "baseline.schema.json", "enableConfig": [
        {"itemId": -1, "name": "a", "checkValueScript": "/../baselineScript/./check.sh", "btntext": ""}]})");
    EXPECT_EQ(reportOn(withSchema), "1 file checked with the scripts below " + brokenRoot + ", no findings\n");
}
