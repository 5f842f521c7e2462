#include "CatalogueMistakes.h"
#include "FindingLines.h"
#include "PrintQString.h"

#include <QJsonArray>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace
{
class CatalogueCommand : public TestFiles
{
protected:
    /// The findings on the file, without its name.
    static QString reportOn(const QString &file)
    {
        return Tavctl({"catalogue", "check", file}).output.remove(file);
    }
};
}

TEST_F(CatalogueCommand, NamesTheMistakeOfEachBrokenCatalogue)
{
    expectMistakes(catalogueMistakes, "catalogue", "1 file checked");
}

TEST_F(CatalogueCommand, FindsNothingInWhatIsUnusualButRight)
{
    const QByteArray continued = onePage.chopped(1)
        + R"(, {"funcType": "Func_HostInfo", "funcTitle": "主机信息", "funcIcon": "hostIcon", "funcList": []}])";
    const QByteArray standsAlone = QByteArray(onePage).replace(R"("I")", R"("I", "subFuncHasParent": false)");
    const QByteArray withDisabled = QByteArray(onePage).replace(
        R"("I"})", R"("I", "disable": false}, {"subFuncType": "SubFunc_LogAudit", "colour": 1, "disable": true})");
    for (const QByteArray &json : {onePage, continued, standsAlone, withDisabled}) {
        const QString file = putCatalogue(json);
        const Tavctl run({"catalogue", "check", file});
        EXPECT_EQ(run.output, "1 file checked, no findings\n");
        EXPECT_EQ(run.exitCode, 0);
    }
    const QString unpadded = put("unpadded", onePage.toBase64(QByteArray::OmitTrailingEquals) + " \r\n");
    EXPECT_EQ(Tavctl({"catalogue", "check", unpadded}).output, "1 file checked, no findings\n");
}

TEST_F(CatalogueCommand, FindsEveryMistakeOfAFileInTheOrderOfTheFile)
{
    const QString file = putCatalogue(R"([{"funcTitle": 1, "funcIcon": 2}, 3])");
    EXPECT_EQ(Tavctl({"catalogue", "check", file}).output.count('\n'), 5);
    EXPECT_TRUE(Tavctl({"catalogue", "check", file}).output.endsWith("\n1 file checked, 4 findings: 4 errors\n"));
    const QJsonArray findings = Tavctl({"catalogue", "check", "--json", file}).json()["findings"].toArray();
    QStringList paths;
    for (const QJsonValue &finding : findings) {
        paths.append(finding["path"].toString());
    }
    EXPECT_EQ(paths, QStringList({"/0", "/0/funcTitle", "/0/funcIcon", "/1"}));
}

TEST_F(CatalogueCommand, SaysWhereAMistakeStandsInTheBase64TextToo)
{
    // 65 bytes before it are 86 digits and two thirds, 60 of them in the first line.
    const QByteArray json = R"([{"funcType": "Func_HostInfo", "funcTitle": "12345", "funcIcon": 7}])";
    ASSERT_EQ(json.indexOf('7'), 65);
    const QString file = put("wrapped", QByteArray(json.toBase64()).insert(60, '\n'));
    EXPECT_TRUE(Tavctl({"catalogue", "check", file})
                    .output.startsWith(file + ":2:27: error: TAV110: in the JSON text 1:66: /0/funcIcon: "));
}

TEST_F(CatalogueCommand, ChecksSeveralFilesAndJsonTextsAsTheyAre)
{
    const QString text = put("text.json", R"([
  {"funcType": "Func_HostInfo", "funcTitle": "A"}])");
    const QString base64 = put("base64", onePage.toBase64());
    const Tavctl run({"catalogue", "check", base64, text, "-"}, putCatalogue("[]"));
    EXPECT_EQ(
        run.output,
        text + R"(:2:3: error: TAV113: /0: the key "funcIcon" is missing; the function has no icon; add "funcIcon")"
            + "\n-:1:1: error: TAV204: in the JSON text 1:1: the catalogue is empty; the navigation is empty; add "
              "an entry for each function\n3 files checked, 2 findings: 2 errors\n");
    EXPECT_EQ(run.exitCode, 1);
}

TEST_F(CatalogueCommand, ChecksTheOtherFilesWhenOneCannotBeRead)
{
    const QString file = put("base64", QByteArray("[]").toBase64());
    const Tavctl run({"catalogue", "check", "/nowhere", file});
    EXPECT_EQ(run.errors, "tavctl: /nowhere: there is no such file\n");
    EXPECT_TRUE(run.output.startsWith(file + ":1:1: error: TAV204: ")) << run.output.toStdString();
    EXPECT_TRUE(run.output.endsWith("\n1 file checked, 1 finding: 1 error\n")) << run.output.toStdString();
    EXPECT_EQ(run.exitCode, 2);
}

TEST_F(CatalogueCommand, WantsBase64UnderTheInstalledName)
{
    const QString file = put("etc/funcTypeConfig.json", onePage);
    const Tavctl run({"catalogue", "check", file});
    EXPECT_TRUE(run.output.startsWith(file + ":1:1: error: TAV107: ")) << run.output.toStdString();
    EXPECT_EQ(run.exitCode, 1);
    put("etc/funcTypeConfig.json", QByteArray(onePage).replace("funcTitle", "functitle").toBase64());
    EXPECT_EQ(Tavctl({"catalogue", "check", "--fix", file}).output, "1 file checked, 1 fixed, no findings\n")
        << "the text inside is no file of this name";
}

TEST_F(CatalogueCommand, PassesOverWhatThePluginDoesNotReadEither)
{
    // Of an entry without a type the plugin reads no pages, so the parent named here is none.
    const QByteArray rejected = QByteArray(onePage).replace(R"("funcType": "Func_HostInfo", )", "").chopped(1);
    const QByteArray page
        = QByteArray(onePage)
              .replace("LogAudit", "ObjectAdd")
              .replace(R"("I")", R"("I", "subFuncHasParent": false, "realParentType": "SubFunc_LogAudit")")
              .mid(1);
    const QString report = reportOn(putCatalogue(rejected + ',' + page));
    EXPECT_TRUE(report.contains(R"("SubFunc_LogAudit" is a parent that does not exist)")) << report.toStdString();
    EXPECT_TRUE(report.endsWith(", 2 findings: 2 errors\n")) << report.toStdString();
}

TEST_F(CatalogueCommand, FindsNoPageBesideAWarningToo)
{
    const QString report = reportOn(putCatalogue(R"([{"funcType": "CTavFuncTypeHeader::Func_HostInfo", "funcTitle": "A",
        "funcIcon": "a", "subFunList": []}])"));
    EXPECT_TRUE(report.contains(": warning: TAV202: ")) << report.toStdString();
    EXPECT_TRUE(report.contains(": error: TAV213: ")) << report.toStdString();
}

TEST_F(CatalogueCommand, TakesUnknownTypesForUnknownAndNotForOneType)
{
    const QByteArray pages = QByteArray(onePage).replace(
        R"("SubFunc_LogAudit", )",
        R"("Reports"}, {"subFuncTitile": "A", "subFuncClassName": "A", "subFuncType": "Users"}, {
            "subFuncType": "SubFunc_LogAudit", )");
    EXPECT_TRUE(reportOn(putCatalogue(pages)).endsWith(", 4 findings: 4 errors\n")) << "two types, two keys";
}

TEST_F(CatalogueCommand, CountsPlacesBehindAByteOrderMarkAndEscapedQuotes)
{
    const QByteArray titled = QByteArray(onePage).replace("主机信息", R"(\\\" , \")").replace(R"("hostIcon")", "7");
    EXPECT_TRUE(reportOn(putCatalogue("\xef\xbb\xbf" + titled)).contains(": in the JSON text 1:70: /0/funcIcon: "))
        << reportOn(putCatalogue("\xef\xbb\xbf" + titled)).toStdString();
}

TEST_F(CatalogueCommand, NamesTheFirstPageAndFunctionOfAType)
{
    const QByteArray again = QByteArray(onePage).replace(R"("I")", R"("J")").replace("主机信息", "B").mid(1);
    const QString report = reportOn(putCatalogue(onePage.chopped(1) + ',' + again));
    EXPECT_TRUE(report.contains("; getFuncInfoData gives the first title and icon (主机信息, hostIcon); "));
    EXPECT_TRUE(report.contains("; a look-up by type finds the first: choosing this page opens the first one's "
                                "controller (I); "));
}

TEST_F(CatalogueCommand, ReadsBase64AsThePluginDoes)
{
    const QByteArray base64 = onePage.toBase64();
    const QString behindNul = put("nul", base64 + QByteArray("\0", 1) + base64);
    EXPECT_TRUE(reportOn(behindNul).contains(": not Base64: a NUL byte; the plugin reads only what stands "
                                             "before it; "));
    const QString inside = put("inside", base64.left(40) + QByteArray("\0", 1) + base64.mid(40));
    EXPECT_TRUE(reportOn(inside).contains("before it, and the navigation is empty; "));
    EXPECT_EQ(Tavctl({"catalogue", "show", inside}).exitCode, 2) << "the plugin finds nothing either";
    EXPECT_EQ(Tavctl({"catalogue", "show", behindNul}).exitCode, 0);
}

TEST_F(CatalogueCommand, OffersOnlyKeysThatAreNotThereYet)
{
    const QByteArray both = QByteArray(onePage).replace(R"("I")", R"("I", "subFuncTitle": "")");
    const QString report = reportOn(putCatalogue(both));
    EXPECT_TRUE(report.contains(R"(: unknown key "subFuncTitle"; the plugin does not read it; remove it, or write )"));
}

TEST_F(CatalogueCommand, LetsNoControlCharacterOfAFileReachTheTerminal)
{
    const QString file = putCatalogue(QByteArray(onePage).replace("Func_HostInfo", "Func_\\u001b[31m\\u009b0m"));
    const Tavctl run({"catalogue", "check", file});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.contains("\"Func_�[31m�0m\" is no function type"));
    EXPECT_FALSE(run.output.contains(QRegularExpression("[\\x00-\\x09\\x0b-\\x1f\\x7f-\\x9f]")));
}

TEST_F(CatalogueCommand, ReadsStandardInput)
{
    EXPECT_TRUE(Tavctl({"catalogue", "check", "-"}, putCatalogue("[]"))
                    .output.startsWith("-:1:1: error: TAV204: in the JSON text 1:1: the catalogue is empty; "));
}

TEST_F(CatalogueCommand, TheCatalogueIsTheNavigationThatThePluginBuilds)
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

TEST_F(CatalogueCommand, LeavesNothingBehindWhenItIsKilled)
{
    ASSERT_TRUE(QDir(directory.path()).mkdir("temporary"));
    const QString place = directory.filePath("temporary");
    const QStringList killed{"env", "TMPDIR=" + place, "timeout", "--signal=KILL", "1"};
    for (const QString &kind : QStringList{"catalogue/title-blank", "baseline/name-blank"}) {
        const QStringList show{kind.section('/', 0, 0), "show", broken + '/' + kind + ".json", "--plugin",
                               TAV_HANGING_PLUGIN_FILE};
        const Tavctl run(show, "/dev/null", killed);
        EXPECT_EQ(run.errors, "") << "it did not come to its end";
        EXPECT_NE(run.exitCode, 0);
        EXPECT_EQ(QDir(place).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
    }
}

TEST_F(CatalogueCommand, NestedFunctionsStandInTheBranchOfTheirParent)
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

TEST_F(CatalogueCommand, EntriesOfTypeNoneAreShownToo)
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

TEST_F(CatalogueCommand, OffersTheSameTypeInOtherCase)
{
    const QByteArray shouted = QByteArray(onePage).replace("Func_HostInfo", "FUNC_HOSTINFO");
    EXPECT_TRUE(reportOn(putCatalogue(shouted)).contains(R"(; write "Func_HostInfo")"));
}

TEST_F(CatalogueCommand, CutsLongValues)
{
    const QByteArray type = QByteArray(onePage).replace("Func_HostInfo", QByteArray(1000, 'x'));
    EXPECT_TRUE(reportOn(putCatalogue(type)).contains(": \"" + QString(40, 'x') + "…\" is no function type"));
}

TEST_F(CatalogueCommand, TakesTextsOfAMebibyte)
{
    const QByteArray icon = QByteArray(onePage).replace("\"hostIcon", '"' + QByteArray(1 << 20, 'i'));
    EXPECT_EQ(Tavctl({"catalogue", "check", putCatalogue(icon)}).output, "1 file checked, no findings\n");
}
