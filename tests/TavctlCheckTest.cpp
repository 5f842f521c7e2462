#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"
#include "PrintQString.h"
#include "Tavctl.h"
#include "TavctlMistakes.h"
#include "TextFile.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

namespace
{
const QString demoRoot = QStringLiteral(TAV_SOURCE_DIR "/share/demo");
const QString brokenRoot = QStringLiteral(TAV_SOURCE_DIR "/tests/data/broken-root");
const QString broken = QStringLiteral(TAV_SOURCE_DIR "/tests/data/broken");

/// Mistakes that lie between values, or outside the file: no schema tells them.
const QStringList beyondSchemas{
    "empty-file",
    "function-in-itself",
    "script-with-argument",
    "doubled-key",
    "duplicate-function",
    "duplicate-function-nested",
    "duplicate-id",
    "duplicate-page",
    "real-parent-not-in-catalogue",
    "real-parent-disabled",
    "script-a-directory",
    "script-missing",
    "script-not-executable",
    "stray-character",
};

QString inBrokenRoot(const char *text)
{
    return QString(text).replace('@', brokenRoot);
}

/// The line for @p mistake in @p file.
QString lineFor(const Mistake &mistake, const QString &file)
{
    const bool isCatalogue = file.contains("/catalogue/") || file.endsWith("/funcTypeConfig.json");
    QString line = file + (isCatalogue && !mistake.inBase64 ? " (decoded)" : "");
    if (*mistake.place) {
        line += QString(":") + mistake.place;
    }
    line += ": ";
    if (*mistake.path) {
        line += QString(mistake.path) + ": ";
    }
    return line + inBrokenRoot(mistake.problem) + "; " + mistake.effect + "; " + mistake.advice;
}

/// A finding of a JSON document as the line that stands for it in text.
QString lineFor(const QJsonValue &finding)
{
    QString line = finding["file"].toString() + (finding["decoded"].toBool() ? " (decoded)" : "");
    if (finding["line"].toInt() > 0) {
        line += QString(":%1:%2").arg(finding["line"].toInt()).arg(finding["column"].toInt());
    }
    line += ": ";
    if (!finding["path"].toString().isEmpty()) {
        line += finding["path"].toString() + ": ";
    }
    line += finding["problem"].toString() + "; " + finding["effect"].toString() + "; " + finding["advice"].toString();
    return line.replace(QChar(0x1b), QChar(QChar::ReplacementCharacter));
}

/// The lines of findings in a document that is asked for with --json.
QStringList findingLines(const Tavctl &run)
{
    QStringList lines;
    const QJsonArray findings = run.json()["findings"].toArray();
    for (const QJsonValue &finding : findings) {
        lines.append(lineFor(finding));
    }
    return lines;
}

/// Expects that the check of each file finds its mistake and no other, in text and in JSON.
template<int count>
void expectMistakes(const Mistake (&mistakes)[count], const QString &kind, const QStringList &options)
{
    QStringList tried;
    for (const Mistake &mistake : mistakes) {
        const QString file = broken + '/' + kind + '/' + mistake.file + ".json";
        const QString expected = lineFor(mistake, file);
        const Tavctl text(QStringList{kind, "check", file} + options);
        EXPECT_EQ(text.output, expected + '\n' + file + ": 1 finding\n");
        EXPECT_EQ(text.exitCode, 1) << mistake.file << text.errors.toStdString();
        EXPECT_EQ(text.errors, "") << mistake.file;
        const Tavctl json(QStringList{kind, "check", file, "--json"} + options);
        EXPECT_EQ(findingLines(json), QStringList{expected}) << mistake.file;
        EXPECT_EQ(json.exitCode, 1) << mistake.file;
        tried.append(QString(mistake.file) + ".json");
    }
    EXPECT_EQ(tried, QDir(broken + '/' + kind).entryList(QDir::Files, QDir::Name)) << "a file without its mistake";
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

/// @brief A directory for the files of one test.
class TavctlCheck : public testing::Test
{
protected:
    QString put(const QString &name, const QByteArray &content)
    {
        writeFile(directory.filePath(name), content);
        return directory.filePath(name);
    }

    QString putCatalogue(const QByteArray &json)
    {
        return put("catalogue", json.toBase64());
    }

    /// The reports on a catalogue or a list of items, without the file's name.
    QString reportOn(const QString &kind, const QString &file)
    {
        const QStringList options = kind == "baseline" ? QStringList{"--root", brokenRoot} : QStringList();
        return Tavctl(QStringList{kind, "check", file} + options).output.remove(file);
    }

    QTemporaryDir directory;
};

using TavctlPictures = TavctlCheck;
using TavctlBase64 = TavctlCheck;
using TavctlDoctor = TavctlCheck;
using TavctlShow = TavctlCheck;

const QByteArray onePage = R"json([{"funcType": "Func_HostInfo", "funcTitle": "主机信息", "funcIcon": "hostIcon",
    "subFunList": [{"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "审计日志", "subFuncClassName": "I"}]}])json";
}

TEST_F(TavctlCheck, NamesTheMistakeOfEachBrokenCatalogue)
{
    expectMistakes(catalogueMistakes, "catalogue", {});
}

TEST_F(TavctlCheck, NamesTheMistakeOfEachBrokenBaseline)
{
    expectMistakes(baselineMistakes, "baseline", {"--root", brokenRoot});
}

TEST_F(TavctlCheck, FindsNothingInWhatIsUnusualButRight)
{
    const QByteArray continued = onePage.chopped(1)
        + R"(, {"funcType": "Func_HostInfo", "funcTitle": "主机信息", "funcIcon": "hostIcon", "funcList": []}])";
    const QByteArray standsAlone = QByteArray(onePage).replace(R"("I")", R"("I", "subFuncHasParent": false)");
    const QByteArray openedFromItself = QByteArray(onePage).replace(
        R"("I")", R"("I", "subFuncHasParent": false, "realParentType": "SubFunc_LogAudit")");
    const QByteArray withDisabled = QByteArray(onePage).replace(
        R"("I"})", R"("I", "disable": false}, {"subFuncType": "SubFunc_LogAudit", "colour": 1, "disable": true})");
    for (const QByteArray &json :
         {onePage, continued, standsAlone, openedFromItself, withDisabled, "\xef\xbb\xbf" + onePage}) {
        const QString file = putCatalogue(json);
        const Tavctl run({"catalogue", "check", file});
        EXPECT_EQ(run.output, file + ": no findings\n");
        EXPECT_EQ(run.exitCode, 0);
    }
    const QString unpadded = put("unpadded", onePage.toBase64(QByteArray::OmitTrailingEquals) + " \r\n");
    EXPECT_EQ(Tavctl({"catalogue", "check", unpadded}).output, unpadded + ": no findings\n");
    const QString withSchema = put("baseline", R"({"$schema": "baseline.schema.json", "enableConfig": [
        {"itemId": -1, "name": "", "checkValueScript": "/../check.sh/../baselineScript/check.sh", "btntext": ""}]})");
    EXPECT_EQ(reportOn("baseline", withSchema), ": no findings\n");
}

TEST_F(TavctlCheck, SaysWhereATextCeasesToBeJsonAndWhy)
{
    struct {
        QByteArray text;
        const char *place;
        const char *reason;
    } const rows[] = {
        {"", ":1:1", "the text is empty"},
        {" \n", ":1:2", "the text is empty"},
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
        {QByteArray("\xff\xfe[\0]\0", 6), ":1:1", "the text is UTF-16, and the reader wants UTF-8"},
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
        EXPECT_EQ(
            reportOn("baseline", put("baseline", row.text)).section('\n', 0, 0),
            QString("%1: not JSON: %2; the plugin loads no check item; correct the text").arg(row.place, row.reason));
    }
}

TEST_F(TavctlCheck, FindsEveryMistakeOfAFileInTheOrderOfTheFile)
{
    const QString file = putCatalogue(R"([{"funcTitle": 1, "funcIcon": 2}, 3])");
    EXPECT_EQ(Tavctl({"catalogue", "check", file}).output.count('\n'), 5);
    EXPECT_TRUE(Tavctl({"catalogue", "check", file}).output.endsWith(file + ": 4 findings\n"));
    const QJsonArray findings = Tavctl({"catalogue", "check", "--json", file}).json()["findings"].toArray();
    QStringList paths;
    for (const QJsonValue &finding : findings) {
        paths.append(finding["path"].toString());
    }
    EXPECT_EQ(paths, QStringList({"/0", "/0/funcTitle", "/0/funcIcon", "/1"}));
}

TEST_F(TavctlCheck, PassesOverWhatThePluginDoesNotReadEither)
{
    // Of an entry without a type the plugin reads no pages, so the parent named here is none.
    const QByteArray rejected = QByteArray(onePage).replace(R"("funcType": "Func_HostInfo", )", "").chopped(1);
    const QByteArray page
        = QByteArray(onePage)
              .replace("LogAudit", "ObjectAdd")
              .replace(R"("I")", R"("I", "subFuncHasParent": false, "realParentType": "SubFunc_LogAudit")")
              .mid(1);
    const QString report = reportOn("catalogue", putCatalogue(rejected + ',' + page));
    EXPECT_TRUE(report.contains(R"("SubFunc_LogAudit" is a parent that does not exist)")) << report.toStdString();
    EXPECT_TRUE(report.endsWith(": 2 findings\n")) << report.toStdString();
}

TEST_F(TavctlCheck, TakesUnknownTypesForUnknownAndNotForOneType)
{
    const QByteArray pages = QByteArray(onePage).replace(
        R"("SubFunc_LogAudit", )",
        R"("Reports"}, {"subFuncTitile": "", "subFuncClassName": "", "subFuncType": "Users"}, {
            "subFuncType": "SubFunc_LogAudit", )");
    EXPECT_TRUE(reportOn("catalogue", putCatalogue(pages)).endsWith(": 4 findings\n")) << "two types, two keys";
}

TEST_F(TavctlCheck, CountsPlacesBehindAByteOrderMarkAndEscapedQuotes)
{
    const QByteArray titled = QByteArray(onePage).replace("主机信息", R"(\\\" , \")").replace(R"("hostIcon")", "7");
    EXPECT_TRUE(
        reportOn("catalogue", putCatalogue("\xef\xbb\xbf" + titled)).startsWith(" (decoded):1:70: /0/funcIcon: "))
        << reportOn("catalogue", putCatalogue("\xef\xbb\xbf" + titled)).toStdString();
}

TEST_F(TavctlCheck, HasALineForEveryPath)
{
    QStringList files
        = {brokenRoot + "/etc/tavsec.d/funcTypeConfig.json", brokenRoot + "/etc/tavsec.d/baselineConfig/baseline.json"};
    for (const char *const kind : {"catalogue", "baseline"}) {
        const QFileInfoList entries = QDir(broken + '/' + kind).entryInfoList(QDir::Files);
        for (const QFileInfo &entry : entries) {
            files.append(entry.filePath());
        }
    }
    for (const QString &file : qAsConst(files)) {
        const bool isCatalogue = file.contains("/catalogue/") || file.endsWith("/funcTypeConfig.json");
        const Tavctl run({isCatalogue ? "catalogue" : "baseline", "check", "--json", file});
        const QJsonArray findings = run.json()["findings"].toArray();
        EXPECT_FALSE(findings.isEmpty()) << file.toStdString();
        for (const QJsonValue &finding : findings) {
            EXPECT_TRUE(finding["path"].toString().isEmpty() || finding["line"].toInt() > 0)
                << file.toStdString() << finding["path"].toString().toStdString();
        }
    }
}

TEST_F(TavctlCheck, TellsEveryItemThatAnotherOneOverwrites)
{
    const QString items = put("baseline", R"({"enableConfig": [{"itemId": 7}, {"itemId": 0}, {"itemId": 7},
        {"itemId": "5"}, {"itemId": 1.5}, {"itemId": 7}, {}]})");
    QStringList overwritten;
    const QStringList lines = reportOn("baseline", items).split('\n').filter("is overwritten by");
    for (const QString &line : lines) {
        overwritten.append(line.section(": ", 1, 1) + " < " + line.section("overwritten by ", 1).section(';', 0, 0));
    }
    EXPECT_EQ(overwritten,
              QStringList({"/enableConfig/0/itemId < /enableConfig/5, which getItemConfig(7) gives",
                           "/enableConfig/1/itemId < /enableConfig/6, which getItemConfig(0) gives",
                           "/enableConfig/2/itemId < /enableConfig/5, which getItemConfig(7) gives",
                           "/enableConfig/3/itemId < /enableConfig/6, which getItemConfig(0) gives",
                           "/enableConfig/4/itemId < /enableConfig/6, which getItemConfig(0) gives"}));
}

TEST_F(TavctlCheck, NamesTheFirstPageAndFunctionOfAType)
{
    const QByteArray again = QByteArray(onePage).replace(R"("I")", R"("J")").replace("主机信息", "B").mid(1);
    const QString report = reportOn("catalogue", putCatalogue(onePage.chopped(1) + ',' + again));
    EXPECT_TRUE(report.contains("; getFuncInfoData gives the first title and icon (主机信息, hostIcon); "));
    EXPECT_TRUE(report.contains("; a look-up by type finds the first: choosing this page opens the first one's "
                                "controller (I); "));
}

TEST_F(TavctlCheck, ReadsBase64AsThePluginDoes)
{
    const QByteArray base64 = onePage.toBase64();
    const QString behindNul = put("nul", base64 + QByteArray("\0", 1) + base64);
    EXPECT_TRUE(reportOn("catalogue", behindNul)
                    .contains(": not Base64: a NUL byte; the plugin reads only what stands "
                              "before it; "));
    const QString inside = put("inside", base64.left(40) + QByteArray("\0", 1) + base64.mid(40));
    EXPECT_TRUE(reportOn("catalogue", inside).contains("before it, and the navigation is empty; "));
    EXPECT_EQ(Tavctl({"catalogue", "show", inside}).exitCode, 2) << "the plugin finds nothing either";
    EXPECT_EQ(Tavctl({"catalogue", "show", behindNul}).exitCode, 0);
}

TEST_F(TavctlCheck, TakesNoBlankOfTheSystemRootForOneOfAScript)
{
    ASSERT_TRUE(QDir(directory.path()).mkdir("a root"));
    const QString item = put("baseline", R"({"enableConfig": [{"itemId": 1, "name": "", "checkValueScript": "/x"}]})");
    const Tavctl run({"baseline", "check", "--root", directory.filePath("a root"), item});
    EXPECT_TRUE(run.output.contains("; put the script there, or correct its name\n")) << run.output.toStdString();
}

TEST_F(TavctlCheck, TellsAScriptWithANulInItsNameWithoutAWarningOfQt)
{
    const QString item
        = put("baseline", R"({"enableConfig": [{"itemId": 1, "name": "", "checkValueScript": "/x\u0000"}]})");
    const Tavctl run({"baseline", "check", item});
    EXPECT_TRUE(run.output.contains(": there is no script \"")) << run.output.toStdString();
    EXPECT_EQ(run.errors, "");
}

TEST_F(TavctlCheck, ShortensLongKeysInTextAlone)
{
    const QByteArray key(1000, 'x');
    const QString file
        = put("baseline",
              R"({"enableConfig": [{"itemId": 1, "name": "", "checkValueScript": "/check.sh", ")" + key + R"(": 1}]})");
    EXPECT_TRUE(reportOn("baseline", file).contains(": /enableConfig/0/" + key.left(40) + "…: unknown key"));
    const Tavctl json({"baseline", "check", "--json", "--root", brokenRoot, file});
    EXPECT_EQ(json.json()["findings"].toArray().first()["path"].toString(), "/enableConfig/0/" + key);
}

TEST_F(TavctlCheck, LooksAtAFileOnceHoweverManyMistakesItHas)
{
    QByteArray items;
    for (int i = 0; i < 10000; ++i) {
        items += R"({"itemId": )" + QByteArray::number(i)
            + R"(, "name": 1, "name": 2, "checkValueScript": "/check.sh"},)";
    }
    QElapsedTimer timer;
    timer.start();
    const QString report = reportOn("baseline", put("baseline", R"({"enableConfig": [)" + items.chopped(1) + "]}"));
    EXPECT_TRUE(report.endsWith(": 20000 findings\n"));
    EXPECT_LT(timer.elapsed(), 20000) << "in one line: a walk from its start for each takes minutes";
}

TEST_F(TavctlCheck, OffersTheSameTextInOtherCaseAndTheOneThatGoesOn)
{
    const QByteArray item = R"({"enableConfig": [{"ITEMID": 1, "name": "", "checkValueScript": "/check.sh",
        "description": ""}]})";
    const QString report = reportOn("baseline", put("baseline", item));
    EXPECT_TRUE(
        report.contains(R"(unknown key "ITEMID"; it is not read, and the plugin reads the id 0; write "itemId")"));
    EXPECT_TRUE(
        report.contains(R"(unknown key "description"; it is not read, and the item has no description; write "desc")"));
    const QByteArray shouted = QByteArray(onePage).replace("Func_HostInfo", "FUNC_HOSTINFO");
    EXPECT_TRUE(reportOn("catalogue", putCatalogue(shouted)).contains(R"(; write "Func_HostInfo")"));
}

TEST_F(TavctlCheck, OffersOnlyKeysThatAreNear)
{
    const QByteArray item = R"({"enableConfig": [{"itemId": 1, "note": "", "checkValueScript": "/check.sh"}]})";
    const QString report = reportOn("baseline", put("baseline", item));
    EXPECT_TRUE(report.contains(R"(: the key "name" is missing; )")) << report.toStdString();
    EXPECT_TRUE(report.contains(R"(: unknown key "note"; the plugin does not read it; remove it, or write )"));
}

TEST_F(TavctlCheck, OffersOnlyKeysThatAreNotThereYet)
{
    const QByteArray both = QByteArray(onePage).replace(R"("I")", R"("I", "subFuncTitle": "")");
    const QString report = reportOn("catalogue", putCatalogue(both));
    EXPECT_TRUE(report.contains(R"(: unknown key "subFuncTitle"; the plugin does not read it; remove it, or write )"));
}

TEST_F(TavctlCheck, CutsLongValues)
{
    const QByteArray item = R"({"enableConfig": [{"itemId": ")" + QByteArray(1000, 'x')
        + R"(", "name": "", "checkValueScript": "/check.sh"}]})";
    EXPECT_TRUE(reportOn("baseline", put("baseline", item))
                    .contains("/itemId: the string \"" + QString(39, 'x') + "… where a whole number"));
    const QByteArray type = QByteArray(onePage).replace("Func_HostInfo", QByteArray(1000, 'x'));
    EXPECT_TRUE(
        reportOn("catalogue", putCatalogue(type)).contains(": \"" + QString(40, 'x') + "…\" is no function type"));
}

TEST_F(TavctlCheck, LetsNoControlCharacterOfAFileReachTheTerminal)
{
    const QString file = putCatalogue(QByteArray(onePage).replace("Func_HostInfo", "Func_\\u001b[31m\\u009b0m"));
    const Tavctl run({"catalogue", "check", file});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.contains("\"Func_�[31m�0m\" is no function type"));
    EXPECT_FALSE(run.output.contains(QRegularExpression("[\\x00-\\x09\\x0b-\\x1f\\x7f-\\x9f]")));
}

TEST_F(TavctlCheck, ReadsStandardInput)
{
    EXPECT_TRUE(Tavctl({"catalogue", "check", "-"}, putCatalogue("[]"))
                    .output.startsWith("- (decoded):1:1: the catalogue is empty; "));
}

TEST_F(TavctlCheck, EndsWithTwoAndOneLineWhenItCannotRun)
{
    const QString item = broken + "/baseline/no-name.json";
    const QString pipe = directory.filePath("pipe");
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    struct {
        QStringList arguments;
        QString error;
    } const rows[] = {
        {{"catalogue", "check", "/nowhere"}, "/nowhere: there is no such file"},
        {{"catalogue", "check", "/now\033here"}, "/now�here: there is no such file"},
        {{"catalogue", "check", "--json", "/nowhere"}, "/nowhere: there is no such file"},
        {{"catalogue", "check", "/tmp"}, "/tmp: not a regular file"},
        {{"catalogue", "show", pipe}, pipe + ": not a regular file"},
        {{"baseline", "check", pipe}, pipe + ": not a regular file"},
        {{"catalogue", "encode", item, "-o", "/nowhere/x"}, "/nowhere/x: cannot be written: No such file or directory"},
        {{"catalogue", "encode", item, "-o", "/dev/full"}, "/dev/full: cannot be written: No space left on device"},
        {{"catalogue", "decode", item}, item + ":1:1: not Base64; this is JSON already"},
        {{"catalogue", "encode", demoRoot + "/etc/tavsec.d/funcTypeConfig.json"},
         demoRoot + "/etc/tavsec.d/funcTypeConfig.json: this is the Base64 text of JSON already"},
        {{"catalogue", "check", "/proc/self/mem"}, "/proc/self/mem: cannot be read: Input/output error"},
        {{"pictures", "/nowhere"}, "/nowhere: there is no such directory"},
        {{"pictures", item}, item + ": not a directory"},
        {{"catalogue", "checks", "x"},
         "there is no command \"checks\" (nearest: check); \"tavctl --help\" tells what there is"},
        {{"fly"},
         "there is no command \"fly\" (there are: run, registry, operations, call, catalogue, baseline, pictures, "
         "doctor); "
         "\"tavctl --help\" tells what there is"},
        {{"catalogue", "check", ""}, "FILE: the name is empty; \"tavctl --help\" tells what there is"},
        {{"catalogue", "encode", item, "-o", ""}, "--output: the name is empty; \"tavctl --help\" tells what there is"},
        {{"pictures", demoRoot, ""}, "DIR: the name is empty; \"tavctl --help\" tells what there is"},
        {{"doctor", "--plugin", ""}, "--plugin: the name is empty; \"tavctl --help\" tells what there is"},
        {{"baseline", "show", item, "--plugin", "/tmp"},
         "/tmp: not a regular file; name libTavDataPlugin.so with --plugin"},
        {{"catalogue", "show", item},
         item + ": the plugin builds no navigation from it; \"tavctl catalogue check\" says why"},
        {{"baseline", "show", broken + "/baseline/no-items.json"},
         broken
             + "/baseline/no-items.json: the plugin loads no check item from it; \"tavctl baseline check\" says why"},
        {{"baseline", "show", item, "--plugin", "/nowhere"},
         "/nowhere: there is no such file; build the plugin first or name its file with --plugin"},
        {{"catalogue"}, "A subcommand is required; \"tavctl --help\" tells what there is"},
        {{"pictures"}, "DIR is required; \"tavctl --help\" tells what there is"},
        {{"doctor", "--root", "/nowhere"},
         "--root: Directory does not exist: /nowhere; \"tavctl --help\" tells what there is"},
    };
    for (const auto &row : rows) {
        const Tavctl run(row.arguments);
        EXPECT_EQ(run.exitCode, 2) << row.arguments.join(' ').toStdString();
        EXPECT_EQ(run.errors, "tavctl: " + row.error + '\n');
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(TavctlCheck, DoesNotTakeAnUnreadableStandardInputForAnEmptyFile)
{
    const Tavctl ofDirectory({"catalogue", "check", "-"}, "/tmp");
    EXPECT_EQ(ofDirectory.exitCode, 2);
    EXPECT_EQ(ofDirectory.errors, "tavctl: -: cannot be read: Is a directory\n");
    const Program closed(QStringList{"sh", "-c", "exec \"$@\" <&-", "sh"} + tavctlCommand({"catalogue", "check", "-"}));
    EXPECT_EQ(closed.exitCode, 2);
    EXPECT_EQ(closed.errors, "tavctl: -: cannot be read: Bad file descriptor\n");
}

TEST_F(TavctlCheck, DoesNotCallLostOutputSuccess)
{
    const QString item = broken + "/baseline/no-name.json";
    for (const QStringList &arguments :
         {QStringList{"--help"}, QStringList{"registry"}, QStringList{"baseline", "check", item}}) {
        for (const char *const redirected : {"exec \"$@\" >/dev/full", "exec \"$@\" >&-"}) {
            const Program run(QStringList{"sh", "-c", redirected, "sh"} + tavctlCommand(arguments));
            EXPECT_EQ(run.exitCode, 2) << redirected << arguments.join(' ').toStdString();
            EXPECT_EQ(run.errors, "tavctl: standard output: cannot be written\n");
        }
    }
}

TEST_F(TavctlPictures, ShowsWhatThePluginHolds)
{
    const Tavctl run({"pictures", "--json", demoRoot + "/opt/tavsec/pictures/navigation"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(run.json()["findings"].toArray().size(), 0);
    const QJsonArray pictures = run.json()["pictures"].toArray();
    EXPECT_EQ(pictures.size(), 18);
    EXPECT_EQ(run.json()["bytes"].toInt(), 18 * 48 * 48 * 4);
    EXPECT_EQ(pictures.first(),
              (QJsonObject{{"key", "NAVIGATION/ACCESSICON"},
                           {"file", demoRoot + "/opt/tavsec/pictures/navigation/accessIcon.png"},
                           {"leftToChance", false},
                           {"width", 48},
                           {"height", 48},
                           {"format", "ARGB32"},
                           {"bytes", 48 * 48 * 4}}));
    const Tavctl text({"pictures", demoRoot + "/opt/tavsec/pictures/navigation"});
    EXPECT_TRUE(text.output.endsWith("\n\nno findings\n"));
    EXPECT_FALSE(text.output.contains("Findings"));
}

TEST_F(TavctlPictures, NamesEachMistake)
{
    const QString pictures = broken + "/pictures/";
    struct {
        QStringList directories;
        QString finding;
    } const rows[] = {
        {{"same-key"},
         pictures + "same-key/icon.hover.png: has the same key as " + pictures
             + "same-key/icon.png: SAME-KEY/ICON; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"first/common", "second/common"},
         pictures + "first/common/x.png: has the same key as " + pictures
             + "second/common/x.png: COMMON/X; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"second/common", "first/common"},
         pictures + "second/common/x.png: has the same key as " + pictures
             + "first/common/x.png: COMMON/X; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"first/common", "second/common", "first/common"},
         pictures + "second/common/x.png: has the same key as " + pictures
             + "first/common/x.png: COMMON/X; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"undecodable"},
         pictures
             + "undecodable/icon.png: cannot be decoded: Unsupported image format; the plugin holds an empty "
               "picture for the key UNDECODABLE/ICON; put a PNG picture in its place"},
        {{"subdirectory"},
         pictures
             + "subdirectory/large: a directory inside a picture directory; the plugin does not scan it; move it "
               "beside the directory that it is in"},
    };
    for (const auto &row : rows) {
        QStringList arguments{"pictures"};
        for (const QString &name : row.directories) {
            arguments.append(pictures + name);
        }
        const Tavctl text(arguments);
        EXPECT_TRUE(text.output.endsWith("\nFindings\n" + row.finding + "\n1 finding\n")) << text.output.toStdString();
        EXPECT_EQ(text.exitCode, 1);
        EXPECT_EQ(findingLines(Tavctl(arguments + QStringList{"--json"})), QStringList{row.finding});
    }
}

TEST_F(TavctlPictures, TheWinnerNamedIsTheOneThatThePluginHolds)
{
    const auto heldWidth = [](const QStringList &names) {
        QStringList arguments{"pictures", "--json"};
        for (const QString &name : names) {
            arguments.append(broken + "/pictures/" + name);
        }
        const QJsonArray pictures = Tavctl(arguments).json()["pictures"].toArray();
        EXPECT_EQ(pictures.size(), 1);
        return pictures.first()["width"].toInt();
    };
    EXPECT_EQ(heldWidth({"same-key"}), 2) << "icon.png; icon.hover.png is 3 pixels wide";
    EXPECT_EQ(heldWidth({"first/common", "second/common"}), 3);
    EXPECT_EQ(heldWidth({"second/common", "first/common"}), 2);
}

TEST_F(TavctlPictures, FollowsThePluginsWayThroughDirectories)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    put("all/more.png/icon.PNG", png);
    put("all/apart/icon.png", png);
    put("all/.hidden/icon.png", png);
    put("all/.hidden.png", png);
    put("all/notes.txt", "");
    ASSERT_TRUE(QFile::link(directory.filePath("all"), directory.filePath("all/round.png")));
    const Tavctl run({"pictures", "--json", directory.filePath("all"), directory.filePath("all/apart")});
    QStringList keys;
    for (const QJsonValue &picture : run.json()["pictures"].toArray()) {
        keys.append(picture["key"].toString());
    }
    EXPECT_EQ(keys, QStringList({"APART/ICON", "MORE.PNG/ICON"}));
    EXPECT_EQ(findingLines(run), QStringList());
}

TEST_F(TavctlPictures, ListsADirectoryOnceForEachNameUnderWhichItIsReached)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    put("all/one.png/icon.png", png);
    ASSERT_TRUE(QFile::link(directory.filePath("all/one.png"), directory.filePath("all/other.png")));
    const QJsonObject otherName = Tavctl({"pictures", "--json", directory.filePath("all")}).json();
    EXPECT_EQ(otherName["pictures"].toArray().size(), 2) << "ONE.PNG/ICON and OTHER.PNG/ICON";
    put("same/first.png/in.png/icon.png", png);
    ASSERT_TRUE(QDir(directory.path()).mkpath("same/last.png"));
    ASSERT_TRUE(QFile::link(directory.filePath("same/first.png/in.png"), directory.filePath("same/last.png/in.png")));
    const QJsonArray sameName = Tavctl({"pictures", "--json", directory.filePath("same")}).json()["pictures"].toArray();
    ASSERT_EQ(sameName.size(), 1);
    EXPECT_EQ(sameName.first()["file"].toString(), directory.filePath("same/last.png/in.png/icon.png"));
}

TEST_F(TavctlPictures, ReportsADirectoryThatIsNamedTwiceOnce)
{
    for (const char *const name : {"same-key", "undecodable", "subdirectory"}) {
        const QString path = broken + "/pictures/" + name;
        EXPECT_EQ(findingLines(Tavctl({"pictures", "--json", path, path})).size(), 1) << name;
    }
}

TEST_F(TavctlPictures, TakesAFileThatItReachesTwiceForOne)
{
    put("all/icon.png", contentOf(broken + "/pictures/same-key/icon.png"));
    ASSERT_TRUE(QDir(directory.path()).mkdir("other"));
    ASSERT_TRUE(QFile::link(directory.filePath("all"), directory.filePath("other/all")));
    const Tavctl run({"pictures", "--json", directory.filePath("all"), directory.filePath("other/all")});
    EXPECT_EQ(findingLines(run), QStringList());
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
}

TEST_F(TavctlPictures, LeavesNamesThatDifferInCaseToChanceAndSpecialFilesClosed)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    put("case/icon.png", png);
    put("case/Icon.png", png);
    const Tavctl byCase({"pictures", "--json", directory.filePath("case")});
    ASSERT_EQ(findingLines(byCase).size(), 1);
    EXPECT_TRUE(
        findingLines(byCase).first().endsWith("; which of the two the plugin holds is left to chance; give one of "
                                              "them a name that differs before its first dot"));
    EXPECT_TRUE(byCase.json()["pictures"].toArray().first()["leftToChance"].toBool());
    EXPECT_TRUE(Tavctl({"pictures", directory.filePath("case")}).output.contains(".png (left to chance)  "));
    ASSERT_TRUE(QDir(directory.path()).mkdir("pipes"));
    const QString pipe = directory.filePath("pipes/icon.png");
    ASSERT_EQ(mkfifo(directory.filePath("pipe").toUtf8().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(directory.filePath("pipe"), pipe));
    EXPECT_EQ(findingLines(Tavctl({"pictures", "--json", directory.filePath("pipes")})),
              QStringList{pipe
                          + ": not a regular file; the plugin holds an empty picture for the key PIPES/ICON; put a PNG "
                            "picture in its place"});
}

TEST_F(TavctlBase64, GoesThereAndBackByteForByte)
{
    QByteArray everyByte;
    for (int i = 0; i < 1000; ++i) {
        everyByte.append(static_cast<char>(i * 7));
    }
    for (int size : {0, 1, 2, 3, 56, 57, 58, 1000}) {
        const QString plain = put("plain", everyByte.left(size));
        const QString encoded = directory.filePath("encoded");
        const QString decoded = directory.filePath("decoded");
        EXPECT_EQ(Tavctl({"catalogue", "encode", plain, "-o", encoded}).exitCode, 0);
        EXPECT_EQ(Tavctl({"catalogue", "decode", encoded, "--output", decoded}).exitCode, 0);
        EXPECT_EQ(contentOf(decoded), contentOf(plain)) << size;
        EXPECT_EQ(QByteArray::fromBase64(contentOf(encoded)), contentOf(plain)) << size;
        const QList<QByteArray> lines = contentOf(encoded).split('\n');
        for (int i = 0; i < lines.size(); ++i) {
            EXPECT_TRUE(i < lines.size() - 2 ? lines[i].size() == 76 : lines[i].size() <= 76) << size;
        }
        EXPECT_EQ(lines.last(), "") << "the last line is ended";
    }
}

TEST_F(TavctlBase64, GivesTheLinesBackThatItIsAskedFor)
{
    const QByteArray base64 = onePage.toBase64();
    QByteArray wrapped;
    for (int i = 0; i < base64.size(); i += 64) {
        wrapped += base64.mid(i, 64) + '\n';
    }
    const struct {
        QByteArray text;
        const char *wrap;
    } rows[] = {{base64, "0"}, {wrapped, "64"}};
    for (const auto &row : rows) {
        const QString plain = put("plain", Tavctl({"catalogue", "decode", put("text", row.text)}).bytes);
        EXPECT_EQ(contentOf(plain), onePage);
        EXPECT_EQ(Tavctl({"catalogue", "encode", plain, "--wrap", row.wrap}).bytes, row.text);
    }
    const QByteArray crlf = QByteArray(wrapped).replace("\n", "\r\n");
    EXPECT_EQ(Tavctl({"catalogue", "decode", put("text", crlf)}).bytes, onePage) << "its line ends do not come back";
    EXPECT_EQ(Tavctl({"catalogue", "encode", put("plain", "1"), "--wrap", "-1"}).exitCode, 2);
}

TEST_F(TavctlBase64, LeavesOutWhatThePluginLeavesOut)
{
    const QString stray = put("stray", QByteArray(onePage.toBase64()).insert(9, "*"));
    EXPECT_EQ(Tavctl({"catalogue", "decode", stray}).exitCode, 2);
    EXPECT_EQ(Tavctl({"catalogue", "decode", "--lenient", stray}).bytes, onePage);
    const QString spare = put("spare", "QR==");
    EXPECT_EQ(
        Tavctl({"catalogue", "decode", spare}).errors,
        "tavctl: " + spare
            + ":1:2: not Base64: bits of the last character stand for nothing; --lenient leaves out what is none, "
              "as the plugin does\n");
    EXPECT_EQ(Tavctl({"catalogue", "decode", "--lenient", spare}).bytes, "A");
}

TEST_F(TavctlBase64, WritesBytesToStandardOutput)
{
    const QByteArray bytes("\0\xff\r\n\x1b", 5);
    EXPECT_EQ(Tavctl({"catalogue", "decode", "-"}, put("encoded", bytes.toBase64())).bytes, bytes);
}

TEST_F(TavctlBase64, MakesTheDemoCatalogueAgain)
{
    const QString catalogue = demoRoot + "/etc/tavsec.d/funcTypeConfig.json";
    const QString decoded = directory.filePath("decoded");
    EXPECT_EQ(Tavctl({"catalogue", "decode", catalogue, "-o", decoded}).exitCode, 0);
    EXPECT_EQ(Tavctl({"catalogue", "encode", decoded}).output.toUtf8(), contentOf(catalogue));
}

TEST_F(TavctlBase64, SaysWhereATextIsNone)
{
    struct {
        QByteArray text;
        const char *place;
    } const rows[] = {{"QUJD\nQU*D", ":2:3"}, {"QQ==QUJD", ":1:5"}, {"Q===", ":1:2"},
                      {"QUI==", ":1:5"},      {"QUJDQ", ":1:6"},    {"QUJD-_", ":1:5"}};
    for (const auto &row : rows) {
        const QString file = put("text", row.text);
        const Tavctl run({"catalogue", "decode", file});
        EXPECT_EQ(run.errors,
                  "tavctl: " + file + row.place
                      + ": not Base64; --lenient leaves out what is none, as the plugin does\n");
        EXPECT_EQ(run.exitCode, 2);
    }
}

TEST_F(TavctlShow, TheCatalogueIsTheNavigationThatThePluginBuilds)
{
    const QString catalogue = demoRoot + "/etc/tavsec.d/funcTypeConfig.json";
    EXPECT_EQ(Tavctl({"catalogue", "show", "--json", catalogue}).json()["navigation"],
              Tavctl({"run", "--root", demoRoot, "--json"}).json()["navigation"]);
    EXPECT_TRUE(
        Tavctl({"catalogue", "show", catalogue}).output.contains("└─ 服务器详情      SubFunc_serverResourceInfo"));
    const QJsonObject shown
        = Tavctl({"catalogue", "show", "--json", broken + "/catalogue/unknown-page-type.json"}).json();
    EXPECT_EQ(shown["navigation"][0]["pages"][0]["type"].toString(), "-1") << "as the plugin takes it, mistakes too";
}

TEST_F(TavctlShow, NestedFunctionsStandInTheBranchOfTheirParent)
{
    const QByteArray leaf = R"({"funcType": "Func_SystemAudit", "funcTitle": "C", "funcIcon": "",
        "subFunList": [{"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "P"}]})";
    const QByteArray middle
        = R"({"funcType": "Func_SystemProtect", "funcTitle": "B", "funcIcon": "", "funcList": [)" + leaf + "]}";
    const QByteArray last = R"({"funcType": "Func_AccessControl", "funcTitle": "D", "funcIcon": ""})";
    const QByteArray top = R"([{"funcType": "Func_HostInfo", "funcTitle": "A", "funcIcon": "", "funcList": [)" + middle
        + ',' + last + "]}]";
    QStringList titles;
    const QStringList lines = Tavctl({"catalogue", "show", putCatalogue(top)}).output.split('\n');
    for (const QString &line : lines.mid(3)) {
        titles.append(line.section("Func_", 0, 0).section("SubFunc_", 0, 0).section("Sub", 0, 0).trimmed());
    }
    EXPECT_EQ(lines.value(1), "Navigation");
    EXPECT_EQ(titles, QStringList({"A", "├─ B", "│  └─ C", "│     └─ P", "└─ D", ""}));
}

TEST_F(TavctlShow, EntriesOfTypeNoneAreShownToo)
{
    const QByteArray catalogue = R"([{"funcType": "Func_None", "funcTitle": "one", "funcList": [
        {"funcType": "Func_HostInfo", "funcTitle": "nested"}]}, {"funcType": "Func_None", "funcTitle": "two"}])";
    const QJsonArray shown
        = Tavctl({"catalogue", "show", "--json", putCatalogue(catalogue)}).json()["navigation"].toArray();
    QStringList titles;
    for (const QJsonValue &function : shown) {
        titles.append(function["title"].toString());
    }
    EXPECT_EQ(titles, QStringList({"one", "nested", "two"}));
}

TEST_F(TavctlShow, TheBaselineIsTheItemsThatThePluginHolds)
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

TEST_F(TavctlDoctor, FindsNothingInTheDemo)
{
    const Tavctl run({"doctor", "--root", demoRoot});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.output.endsWith("\n\n4 parts checked, no findings\n")) << run.output.toStdString();
    EXPECT_FALSE(run.output.contains("Findings"));
    EXPECT_EQ(run.errors, "");
    const QJsonObject plugin = Tavctl({"doctor", "--root", demoRoot, "--json"}).json()["plugin"].toObject();
    const QString qt = QString("%1.%2.0").arg(QT_VERSION_MAJOR).arg(QT_VERSION_MINOR);
    const QString machine = QSysInfo::buildCpuArchitecture() == "arm64" ? "AArch64" : "x86-64";
    const QString origin = "none below " + demoRoot + "; beside tavctl";
    EXPECT_EQ(
        plugin,
        (QJsonObject{
            {"origin", origin}, {"identifier", "Tav_ORG_ITavDtaPlugin"}, {"qtVersion", qt}, {"machine", machine}}));
    EXPECT_TRUE(run.output.contains("\nplugin: " + origin + ": Tav_ORG_ITavDtaPlugin, built with Qt " + qt + " for "
                                    + machine + '\n'));
}

TEST_F(TavctlDoctor, NamesEveryPlantedMistakeAndNoOther)
{
    QStringList expected;
    for (const Mistake &mistake : rootMistakes) {
        expected.append(lineFor(mistake, brokenRoot + '/' + mistake.file));
    }
    const Tavctl text({"doctor", "--root", brokenRoot});
    EXPECT_EQ(text.exitCode, 1);
    EXPECT_EQ(text.output.section("\nFindings\n", 1).split('\n'),
              expected + QStringList({QString("4 parts checked, %1 findings").arg(expected.size()), ""}));
    const Tavctl json({"doctor", "--root", brokenRoot, "--json"});
    EXPECT_EQ(json.exitCode, 1);
    EXPECT_EQ(findingLines(json), expected);
    EXPECT_EQ(json.json()["summary"].toString(), QString("4 parts checked, %1 findings").arg(expected.size()));
    QVector<int> counts;
    for (const QJsonValue &part : json.json()["parts"].toArray()) {
        counts.append(part["findings"].toInt());
    }
    EXPECT_EQ(counts, QVector<int>({0, 13, 17, 3})) << "plugin, catalogue, baseline, pictures";
}

TEST_F(TavctlDoctor, MissesWhatAnEmptyInstallationLacks)
{
    const QString root = directory.path();
    const QString advice = ", or name another system root with --root";
    EXPECT_EQ(
        findingLines(Tavctl({"doctor", "--root", root, "--json"})),
        QStringList({root
                         + "/etc/tavsec.d/funcTypeConfig.json: there is no such file; the navigation is empty; put "
                           "it there"
                         + advice,
                     root
                         + "/etc/tavsec.d/baselineConfig/baseline.json: there is no such file; the plugin loads "
                           "no check item; put it there"
                         + advice,
                     root
                         + "/opt/tavsec/pictures: there is no such directory; the pages have no pictures; put "
                           "the picture directories there"
                         + advice}));
    ASSERT_TRUE(QDir(root).mkpath("opt/tavsec/pictures"));
    EXPECT_TRUE(findingLines(Tavctl({"doctor", "--root", root, "--json"}))
                    .value(2)
                    .startsWith(root + "/opt/tavsec/pictures: there is no directory in it; "));
    ASSERT_TRUE(QDir(root).mkpath("etc/tavsec.d"));
    ASSERT_EQ(mkfifo((root + "/etc/tavsec.d/funcTypeConfig.json").toUtf8().constData(), 0600), 0);
    EXPECT_TRUE(findingLines(Tavctl({"doctor", "--root", root, "--json"}))
                    .value(0)
                    .startsWith(root + "/etc/tavsec.d/funcTypeConfig.json: not a regular file; "));
}

TEST_F(TavctlDoctor, ChecksThePluginOfTheInstallationWhenItHasOne)
{
    const auto pluginOf = [this](const QStringList &more) {
        return Tavctl(QStringList{"doctor", "--root", directory.path(), "--json"} + more)
            .json()["parts"]
            .toArray()
            .first()["place"]
            .toString();
    };
    EXPECT_EQ(pluginOf({}), TAV_PLUGIN_FILE) << "none there: the one beside the program";
    for (const char *const place :
         {"usr/local/lib/riscv64-linux-gnu/tavsec", "usr/lib64/tavsec", "usr/lib/tavsec", "opt/tavsec"}) {
        const QString file = put(place + QString("/plugins/libTavDataPlugin.so"), "");
        EXPECT_EQ(pluginOf({}), file);
        EXPECT_EQ(pluginOf({"--plugin", TAV_OTHER_PLUGIN_FILE}), TAV_OTHER_PLUGIN_FILE);
    }
    writeFile(directory.filePath("opt/tavsec/plugins/libTavDataPlugin.so"), contentOf(TAV_PLUGIN_FILE));
    const QString root = QDir::current().relativeFilePath(directory.path());
    const Tavctl run({"doctor", "--root", root});
    EXPECT_TRUE(run.output.contains("\nplugin: Tav_ORG_ITavDtaPlugin, ")) << run.output.toStdString();
    EXPECT_TRUE(run.output.endsWith("4 parts checked, 3 findings\n")) << "the plugin is not among them";
}

TEST_F(TavctlDoctor, NamesPicturesThatLieBesideThePictureDirectories)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    put("opt/tavsec/pictures/common/icon.png", png);
    const QString stray = put("opt/tavsec/pictures/stray.small.png", png);
    const Tavctl run({"doctor", "--root", directory.path(), "--json"});
    EXPECT_EQ(findingLines(run).mid(2),
              QStringList{stray
                          + ": a picture outside of every picture directory; the plugin holds it only for a client "
                            "that loads "
                          + directory.path()
                          + "/opt/tavsec/pictures itself, under the key "
                            "PICTURES/STRAY; move it into a picture directory"});
}

TEST_F(TavctlDoctor, SaysWhatIsWrongWithAPluginFile)
{
    const QByteArray plugin = contentOf(TAV_PLUGIN_FILE);
    QByteArray ofNewerQt = plugin;
    ofNewerQt[plugin.indexOf("QTMETADATA !") + 14] = 99; // behind the mark: format, major version, minor version
    QByteArray forOtherMachine = plugin;
    const bool isArm = plugin[18] == char(183);
    forOtherMachine[18] = char(isArm ? 62 : 183);
    const QString own = isArm ? "AArch64" : "x86-64";
    const QString other = isArm ? "x86-64" : "AArch64";
    const QString noManagers = "; the client has none of the managers; ";
    const QString name = "name libTavDataPlugin.so with --plugin";
    const QString qt = QString(qVersion()).section('.', 0, 1);
    struct {
        QString file;
        QString finding;
    } const rows[] = {
        {directory.filePath("none"),
         "there is no such file" + noManagers + "install the plugin, or name its file with --plugin"},
        {TAV_SOURCE_DIR "/CMakeLists.txt", "not a shared library" + noManagers + name},
        {TAV_TAVCTL_FILE, "not a Qt plugin" + noManagers + name},
        {TAV_OTHER_PLUGIN_FILE,
         "another plugin: its identifier is \"org.example.OtherPlugin\" and not \"Tav_ORG_ITavDtaPlugin\"" + noManagers
             + name},
        {put("newer.so", ofNewerQt),
         QString("built with Qt 5.99.0, but this is Qt %1; Qt refuses to load it: it takes plugins of its own or an "
                 "earlier minor version; build the plugin with Qt %2")
             .arg(qVersion(), qt)},
        {put("machine.so", forOtherMachine),
         QString("built for %1, but this program for %2; no client for %2 can load it; install the plugin for %2")
             .arg(other, own)},
        {put("incomplete.so",
             QByteArray(plugin)
                 .replace("libTavCommon.so.1", "libTavComm0n.so.1")
                 .replace("libstdc++.so.6", "libstdc--.so.6")),
         "cannot be loaded: it lacks libTavComm0n.so.1, libstdc--.so.6" + noManagers + "install what it lacks"},
        {"/tmp", "not a regular file" + noManagers + name},
    };
    for (const auto &row : rows) {
        const Tavctl run({"doctor", "--root", demoRoot, "--json", "--plugin", row.file});
        EXPECT_EQ(findingLines(run), QStringList{row.file + ": " + row.finding});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, "");
    }
}

TEST(TavctlChecks, UseNoColoursWhenPiped)
{
    const QStringList commands[] = {
        {"catalogue", "show", demoRoot + "/etc/tavsec.d/funcTypeConfig.json"},
        {"catalogue", "check", broken + "/catalogue/no-icon.json"},
        {"baseline", "show", demoRoot + "/etc/tavsec.d/baselineConfig/baseline.json"},
        {"baseline", "check", broken + "/baseline/no-name.json"},
        {"pictures", broken + "/pictures/undecodable"},
        {"doctor", "--root", brokenRoot},
    };
    for (const QStringList &command : commands) {
        const Tavctl run(command);
        EXPECT_FALSE(run.output.isEmpty());
        EXPECT_FALSE(run.output.contains('\033')) << command.join(' ').toStdString();
    }
}

namespace
{
QJsonObject schema(const QString &name)
{
    return QJsonDocument::fromJson(contentOf(TAV_SOURCE_DIR "/share/schemas/" + name + ".schema.json")).object();
}

/// Whether an editor that knows the schema refuses @p document; not for a text that is no JSON.
bool refuses(const QJsonObject &schema, const QJsonDocument &document)
{
    using valijson::adapters::QtJsonAdapter;
    const QJsonValue rules = schema;
    const QJsonValue value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    valijson::Schema compiled;
    valijson::SchemaParser().populateSchema(QtJsonAdapter(rules), compiled);
    return !document.isNull() && !valijson::Validator().validate(compiled, QtJsonAdapter(value), nullptr);
}

/// Whether the schema is to refuse the file with this mistake.
bool isForSchema(const Mistake &mistake)
{
    return !beyondSchemas.contains(mistake.file) && !QString(mistake.problem).startsWith("not ");
}

/// The keys of the type, without the one that stands for none.
template<class Enum>
QJsonArray keys()
{
    const QMetaEnum type = QMetaEnum::fromType<Enum>();
    QJsonArray found;
    for (int i = 0; i < type.keyCount(); ++i) {
        if (type.value(i) != 0) {
            found.append(type.key(i));
        }
    }
    return found;
}
}

TEST(TavctlSchemas, AloneRefuseEachBrokenFileThatASchemaCanTell)
{
    for (const Mistake &mistake : catalogueMistakes) {
        const QByteArray text = contentOf(broken + "/catalogue/" + mistake.file + ".json");
        EXPECT_EQ(refuses(schema("funcTypeConfig"), QJsonDocument::fromJson(QByteArray::fromBase64(text))),
                  isForSchema(mistake))
            << mistake.file;
    }
    for (const Mistake &mistake : baselineMistakes) {
        const QByteArray text = contentOf(broken + "/baseline/" + mistake.file + ".json");
        EXPECT_EQ(refuses(schema("baseline"), QJsonDocument::fromJson(text)), isForSchema(mistake)) << mistake.file;
    }
}

TEST(TavctlSchemas, AcceptTheDemo)
{
    const QByteArray catalogue = contentOf(demoRoot + "/etc/tavsec.d/funcTypeConfig.json");
    const QByteArray baseline = contentOf(demoRoot + "/etc/tavsec.d/baselineConfig/baseline.json");
    EXPECT_FALSE(refuses(schema("funcTypeConfig"), QJsonDocument::fromJson(QByteArray::fromBase64(catalogue))));
    EXPECT_FALSE(refuses(schema("baseline"), QJsonDocument::fromJson(baseline)));
}

TEST(TavctlSchemas, NameTheTypesThatThePluginKnows)
{
    const QJsonObject definitions = schema("funcTypeConfig")["definitions"].toObject();
    EXPECT_EQ(definitions["functionType"]["enum"].toArray(), keys<CTavFuncTypeHeader::TavFuncTypeHeader_>());
    EXPECT_EQ(definitions["pageType"]["enum"].toArray(), keys<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>());
}

namespace
{
/// Every command, with its own commands below it.
const QStringList commands[] = {
    {},
    {"run"},
    {"registry"},
    {"catalogue"},
    {"catalogue", "show"},
    {"catalogue", "check"},
    {"catalogue", "encode"},
    {"catalogue", "decode"},
    {"baseline"},
    {"baseline", "show"},
    {"baseline", "check"},
    {"pictures"},
    {"doctor"},
};

/// What the help of a command says can follow it: commands, options.
QStringList wordsInHelp(const QStringList &command)
{
    const QString help = Tavctl(command + QStringList{"--help"}).output;
    QStringList words;
    QRegularExpressionMatchIterator matches
        = QRegularExpression("^  (?:(-h|-o),)?(--[a-z]+|[a-z]+)\\b", QRegularExpression::MultilineOption)
              .globalMatch(help);
    while (matches.hasNext()) {
        words.append(matches.next().captured(2));
    }
    words.sort();
    return words;
}

/// What the shell offers when @p words have been typed and the last one is to be completed.
QStringList offers(const QStringList &words)
{
    const Program bash(QStringList{"bash", "-c",
                                   "source \"$1\" && shift && COMP_WORDS=(tavctl \"$@\") && COMP_CWORD=$# && "
                                   "_tavctl && printf '%s\\n' \"${COMPREPLY[@]}\"",
                                   "bash", TAV_SOURCE_DIR "/share/bash-completion/tavctl"}
                       + words);
    EXPECT_EQ(bash.exitCode, 0);
    EXPECT_EQ(bash.errors, "");
    QStringList offered = QString::fromUtf8(bash.output).split('\n', Qt::SkipEmptyParts);
    offered.sort();
    return offered;
}
}

TEST(TavctlCompletion, OffersWhatTheHelpOfEachCommandNames)
{
    for (const QStringList &command : commands) {
        const QStringList words = wordsInHelp(command);
        const QStringList subcommands = words.filter(QRegularExpression("^[a-z]"));
        EXPECT_GT(words.size(), 1) << command.join(' ').toStdString();
        EXPECT_EQ(offers(command + QStringList{"--"}), words.filter("--")) << command.join(' ').toStdString();
        if (!subcommands.isEmpty()) {
            EXPECT_EQ(offers(command + QStringList{""}), subcommands) << command.join(' ').toStdString();
        }
    }
    EXPECT_EQ(offers({"cat"}), QStringList{"catalogue"});
    EXPECT_EQ(offers({"doctor", ""}), QStringList({"--help", "--json", "--plugin", "--root"})) << "it takes no file";
    EXPECT_EQ(offers({"catalogue", "encode", "-"}), QStringList({"--help", "--output", "--wrap", "-o"}));
    EXPECT_EQ(offers({"catalogue", "decode", "-"}), QStringList({"--help", "--lenient", "--output", "-o"}));
}

TEST(TavctlCompletion, OffersFilesAndDirectories)
{
    const QString catalogue = broken + "/catalogue/no-icon.json";
    EXPECT_EQ(offers({"catalogue", "check", catalogue.chopped(5)}), QStringList{catalogue});
    EXPECT_EQ(offers({"doctor", "--plugin", catalogue.chopped(5)}), QStringList{catalogue});
    EXPECT_EQ(offers({"catalogue", "encode", "-o", catalogue.chopped(5)}), QStringList{catalogue});
    EXPECT_EQ(offers({"doctor", "--root", demoRoot.chopped(2)}), QStringList{demoRoot});
    EXPECT_EQ(offers({"doctor", "--root", catalogue.chopped(5)}), QStringList());
    EXPECT_EQ(offers({"pictures", broken + "/pictures/undec"}), QStringList{broken + "/pictures/undecodable"});
    QStringList pages = QVariant(keys<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>().toVariantList()).toStringList();
    pages.sort();
    EXPECT_EQ(offers({"run", "--page", ""}), pages);
    for (const char *const option : {"--root", "--plugin"}) { // the shell takes "=" for a word of its own
        EXPECT_EQ(offers({"doctor", option, "=", demoRoot.chopped(2)}), QStringList{demoRoot});
    }
}

TEST(TavctlManual, NamesEveryCommandAndItsOptions)
{
    const QString page = QString::fromUtf8(contentOf(TAV_SOURCE_DIR "/share/man/tavctl.1")).remove('\\');
    for (const QStringList &command : commands) {
        const QStringList words = wordsInHelp(command);
        if (!words.filter(QRegularExpression("^[a-z]")).isEmpty()) {
            continue; // its commands have sections of their own
        }
        const QString section = page.section("\n.SS " + command.join(' ') + '\n', 1).section("\n.S", 0, 0);
        EXPECT_FALSE(section.isEmpty()) << command.join(' ').toStdString();
        for (const QString &word : words) {
            EXPECT_TRUE(word == "--help" || section.contains(word))
                << command.join(' ').toStdString() << ' ' << word.toStdString();
        }
    }
}

TEST(TavctlManual, SetsNoBlankBeforeAComma)
{
    const QString page = QString::fromUtf8(contentOf(TAV_SOURCE_DIR "/share/man/tavctl.1"));
    const QStringList lines = page.split('\n').filter(QRegularExpression("^\\.[BI] .* [,.;]$"));
    EXPECT_EQ(lines, QStringList());
}

TEST(TavctlManual, CanBeTypesetWithoutAWarning)
{
    const Program groff({"groff", "-man", "-Tutf8", "-ww", "-z", TAV_SOURCE_DIR "/share/man/tavctl.1"});
    EXPECT_EQ(groff.exitCode, 0);
    EXPECT_EQ(groff.errors, "");
}
