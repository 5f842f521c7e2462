#include "JsonSchema.h"
#include "PrintQString.h"
#include "Tavctl.h"
#include "TestFiles.h"
#include "TextsOf.h"

#include <QDir>
#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>
#include <QSysInfo>

#include <gtest/gtest.h>

namespace
{
class RunCommand : public TestFiles
{
protected:
    static void SetUpTestSuite()
    {
        const Tavctl run({"run", "--root", demoRoot, "--json"});
        ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
        demo = run.json();
    }

    inline static QJsonObject demo; ///< what a walk through the demo shows
};
}

TEST_F(RunCommand, ShowsTheNavigationWithNestedGroupDisabledPageAndRealParents)
{
    const QJsonArray functions = demo["navigation"].toArray();
    EXPECT_EQ(textsOf(functions, "title"), QStringList({"主机信息", "加固方案", "完整性度量", "访问控制", "系统保护"}));
    const QJsonArray nested = functions.last()["nested"].toArray();
    EXPECT_EQ(textsOf(nested, "title"), QStringList({"系统审计"}));
    EXPECT_EQ(textsOf(nested.first()["pages"].toArray(), "title"), QStringList({"审计日志"}));
    const QJsonArray access = functions[3].toObject()["pages"].toArray();
    EXPECT_EQ(textsOf(access, "type"),
              QStringList(
                  {"SubFunc_PrincipalSettings", "SubFunc_ObjectSetting", "SubFunc_PrincipalAdd", "SubFunc_ObjectAdd"}));
    EXPECT_EQ(textsOf(access, "realParent"),
              QStringList({"SubFunc_None", "SubFunc_None", "SubFunc_PrincipalSettings", "SubFunc_ObjectSetting"}));
}

TEST_F(RunCommand, DeliversEveryPageOnceToEachOfThreeThreads)
{
    const QJsonArray deliveries = demo["deliveries"].toArray();
    EXPECT_EQ(deliveries.size(), 3 * 14);
    QSet<QString> seen;
    for (const QJsonValue &delivery : deliveries) {
        seen.insert(delivery["page"].toString() + delivery["thread"].toString());
        EXPECT_GT(delivery["microseconds"].toDouble(), 0);
    }
    EXPECT_EQ(seen.size(), 3 * 14);
}

TEST_F(RunCommand, PrintsTitlesInChineseAndAligned)
{
    const Tavctl run({"run", "--root", demoRoot});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.output.contains("└─ 服务器详情      SubFunc_serverResourceInfo"));
    EXPECT_TRUE(run.output.contains("├─ 关键目录防篡改  SubFunc_KeyDirAmperProof"));
    EXPECT_FALSE(run.output.contains('\033')) << "colours belong on a terminal only";
}

TEST_F(RunCommand, ShowsTheModelOfEveryPageFedByThisMachine)
{
    const QJsonArray pages = demo["pages"].toArray();
    EXPECT_EQ(pages.size(), 14);
    for (const QJsonValue &page : pages) {
        EXPECT_FALSE(page["tables"].toArray().isEmpty()) << page["type"].toString().toStdString();
    }
    for (const QJsonValue &reading : demo["backend"].toArray()) {
        EXPECT_TRUE(reading["fed"].toBool()) << reading["reading"].toString().toStdString();
    }
}

TEST_F(RunCommand, ShowsThisHostsOwnNameAndUsers)
{
    QJsonArray host;
    QStringList users;
    for (const QJsonValue &page : demo["pages"].toArray()) {
        for (const QJsonValue &table : page["tables"].toArray()) {
            if (table["getter"] == "getResourceInfo") {
                host = table["rows"].toArray();
            } else if (table["getter"] == "getSystemUsers") {
                users = textsOf(table["rows"].toArray(), "name");
            }
        }
    }
    EXPECT_EQ(host.first()["hostName"].toString(), QSysInfo::machineHostName());
    EXPECT_GT(host.first()["memoryTotal"].toDouble(), 0);
    EXPECT_TRUE(users.contains("root"));
}

TEST_F(RunCommand, MakesOneEditOfEachKindAndShowsItsEffect)
{
    const QJsonArray edits = demo["edits"].toArray();
    EXPECT_EQ(textsOf(edits, "kind"),
              QStringList({"row by key", "row by stored index", "row by position", "all checks", "device toggled",
                           "level checked"}));
    for (const QJsonValue &edit : edits) {
        EXPECT_FALSE(edit["before"].isNull()) << edit["kind"].toString().toStdString();
        EXPECT_FALSE(edit["target"].toString().isEmpty()) << edit["kind"].toString().toStdString();
        EXPECT_NE(edit["before"], edit["after"]) << edit["kind"].toString().toStdString();
    }
}

TEST_F(RunCommand, FindsEveryPictureOfTheDemo)
{
    const QJsonArray pictures = demo["pictures"].toArray();
    EXPECT_EQ(pictures.size(), 2 * 6 * 3);
    for (const QJsonValue &picture : pictures) {
        EXPECT_EQ(picture["width"].toInt(), picture["directory"] == "navigation" ? 48 : 96)
            << picture["name"].toString().toStdString();
    }
}

TEST_F(RunCommand, CutsLongListsAndShowsAPageAskedForInFull)
{
    const Tavctl all({"run", "--root", demoRoot});
    const Tavctl page({"run", "--root", demoRoot, "--page", "SubFunc_BaselineScan"});
    EXPECT_TRUE(all.output.contains("Check items (44)"));
    EXPECT_TRUE(all.output.contains("… and 36 more"));
    EXPECT_FALSE(all.output.contains("日志分区使用率")) << "one of the last items, which the cut leaves out";
    EXPECT_EQ(page.exitCode, 0);
    EXPECT_FALSE(page.output.contains("… and"));
    EXPECT_FALSE(page.output.contains("Registry"));
    EXPECT_TRUE(page.output.contains("日志分区使用率"));
}

TEST_F(RunCommand, PrintsADocumentThatItsSchemaDescribes)
{
    EXPECT_EQ(schemaFindings("pages", demo), "");
    QJsonObject other = demo;
    other["tavPages"] = 2;
    EXPECT_NE(schemaFindings("pages", other), "");
    other = demo;
    other["edits"] = QJsonArray{QJsonObject{{"kind", "all checks"}}};
    EXPECT_NE(schemaFindings("pages", other), "");
    other = demo;
    other.remove("plugin");
    EXPECT_NE(schemaFindings("pages", other), "");
}

TEST_F(RunCommand, PrintsEachCellAsTheKindOfItsColumnSays)
{
    static const QRegularExpression time(R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d(Z|[+-]\d\d:\d\d)$)");
    const QStringList flags{"flag", "flag or unknown", "success", "check mark"};
    const QStringList texts{"text", "digest", "bytes"};
    const QStringList others = flags + texts + QStringList{"time", "list"};
    QSet<QString> seen;
    for (const QJsonValue &page : demo["pages"].toArray()) {
        for (const QJsonValue &table : page["tables"].toArray()) {
            for (const QJsonValue &column : table["columns"].toArray()) {
                const QString name = column["name"].toString();
                const QString kind = column["kind"].toString();
                for (const QJsonValue &row : table["rows"].toArray()) {
                    const QJsonValue cell = row[name];
                    const bool fits = cell.isNull() || (kind == "time" && cell.toString().contains(time))
                        || (kind == "list" && cell.isArray()) || (flags.contains(kind) && cell.isBool())
                        || (texts.contains(kind) && cell.isString()) || (!others.contains(kind) && cell.isDouble());
                    EXPECT_TRUE(fits) << name.toStdString() << ": " << kind.toStdString() << ", type " << cell.type();
                    seen.insert(cell.isNull() ? QString() : kind);
                }
            }
        }
    }
    for (const char *const kind : {"number", "size", "time", "flag", "list", "text", "digest", "bytes"}) {
        EXPECT_TRUE(seen.contains(kind)) << kind;
    }
}

TEST_F(RunCommand, TellsAPictureThatIsMissingWithoutAMeasure)
{
    const QString etc = "etc/tavsec.d/funcTypeConfig.json";
    put(etc, contentOf(demoRoot + '/' + etc));
    ASSERT_TRUE(QDir(directory.path()).mkpath("opt/tavsec/pictures/empty"));
    const QJsonObject document = Tavctl({"run", "--root", directory.path(), "--json"}).json();
    EXPECT_EQ(schemaFindings("pages", document), "");
    EXPECT_EQ(document["pictures"].toArray().first(),
              (QJsonObject{{"directory", "empty"}, {"name", "hostIcon"}, {"width", {}}, {"height", {}}}));
    const QString text = Tavctl({"run", "--root", directory.path()}).output;
    EXPECT_TRUE(text.contains("\nPictures of icons: 18 looked up, 18 missing\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("\nempty      systemAuditIconPressed    missing\n")) << text.toStdString();
}

TEST_F(RunCommand, ShowsThePagesBeforeTheLongListsAndSumsUpPicturesAndDeliveries)
{
    const QString text = Tavctl({"run", "--root", demoRoot}).output;
    int before = -1;
    for (const char *const heading :
         {"\nPlugin\n", "\nNavigation\n", "\n服务器详情  SubFunc_serverResourceInfo\n", "\nBackend: this machine\n",
          "\nRegistry: 15 managers\n", "\nPictures of icons: 36 looked up, 0 missing\n",
          "\nPage changes: 42 deliveries\n", "\nEdits: "}) {
        EXPECT_GT(text.indexOf(heading), before) << heading;
        before = text.indexOf(heading);
    }
    EXPECT_FALSE(text.contains(QRegularExpression("\nSubFunc_LogAudit +navigation bar")));
    EXPECT_FALSE(text.contains("hostIconPressed"));
    const QString verbose = Tavctl({"run", "--root", demoRoot, "--verbose"}).output;
    EXPECT_TRUE(verbose.contains(QRegularExpression("\nSubFunc_LogAudit +navigation bar")));
    EXPECT_TRUE(verbose.contains("hostIconPressed"));
}

TEST_F(RunCommand, ShowsCodesWithTheirMeaning)
{
    const Tavctl run({"run", "--root", demoRoot, "--page", "SubFunc_DynamicMeasurements"});
    EXPECT_TRUE(run.output.contains("\n  Scan state: scan id 0 (none yet), state 0 (idle)\n"))
        << run.output.toStdString();
}

TEST_F(RunCommand, ShowsOnePageAsJsonAsItShowsAll)
{
    const QJsonObject one = Tavctl({"run", "--root", demoRoot, "--page", "SubFunc_BaselineScan", "--json"}).json();
    EXPECT_EQ(schemaFindings("pages", one), "");
    EXPECT_EQ(one.keys(), demo.keys());
    EXPECT_EQ(one["pages"].toArray().size(), 1);
    const QJsonValue page = one["pages"].toArray().first();
    EXPECT_EQ(page["title"].toString(), "基线扫描");
    EXPECT_EQ(page["tables"].toArray().first()["rows"].toArray().size(), 44);
    EXPECT_EQ(page["tables"].toArray().first(), demo["pages"].toArray().at(2)["tables"].toArray().first());
}

TEST_F(RunCommand, NamesTheColumnsForWhichTheTerminalHasNoRoom)
{
    const QString firstMinute = TAV_SOURCE_DIR "/share/scenarios/first-minute.jsonl"; // not every machine has so much
    const Tavctl run(
        {"play", firstMinute, "--speed", "max", "--root", demoRoot, "--page", "SubFunc_serverResourceInfo"});
    EXPECT_TRUE(run.output.contains("\n    not shown: ")) << run.output.toStdString();
    const QStringList lines = run.output.mid(run.output.indexOf("devices (")).section("not shown", 0, 0).split('\n');
    for (const QString &line : lines) {
        EXPECT_LE(line.size(), 120);
    }
}

TEST_F(RunCommand, APageThatTheCatalogueDoesNotHaveIsNamed)
{
    const Tavctl run({"run", "--root", demoRoot, "--page", "SubFunc_LogAudi"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.startsWith("tavctl: --page: the catalogue has no page \"SubFunc_LogAudi\"; it has "));
    EXPECT_TRUE(run.errors.contains("SubFunc_LogAudit"));
}

TEST_F(RunCommand, AMissingCatalogueIsNamed)
{
    const Tavctl run({"run", "--root", directory.path()});
    EXPECT_EQ(run.exitCode, 6);
    EXPECT_TRUE(
        run.errors.endsWith("tavctl: " + directory.filePath("etc/tavsec.d/funcTypeConfig.json")
                            + ": there is no navigation catalogue; put one there or name another system root with "
                              "--root\n"));
}

TEST_F(RunCommand, ACatalogueWithoutPagesIsNamed)
{
    const QString file = put("etc/tavsec.d/funcTypeConfig.json", QByteArray("[]").toBase64());
    const Tavctl run({"run", "--root", directory.path()});
    EXPECT_EQ(run.exitCode, 6);
    EXPECT_EQ(run.errors,
              "tavctl: " + file + ": holds no page; it must be the Base64 text of a JSON array of functions\n");
}

TEST_F(RunCommand, ShowsWhatItCanWithoutTheFilesOfProcessesAndSaysSo)
{
    if (Program(withoutProcessFiles + QStringList{"true"}).exitCode != 0) {
        GTEST_SKIP() << "only the administrator can take them away";
    }
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs them itself";
#endif
    const QString line
        = "tavctl: /proc is not mounted; nothing is known of processes, memory and devices, which is not "
          "to say that there are none; mount it with \"mount -t proc proc /proc\"\n";
    const QStringList command{"run", "--root", demoRoot};
    for (const QStringList &more : {QStringList{"--json"}, QStringList{"--json", "--page", "SubFunc_BaselineScan"}}) {
        const Tavctl run(command + more, "/dev/null", withoutProcessFiles);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.errors, line);
        EXPECT_GE(run.json()["pages"].toArray().size(), 1) << "what lies elsewhere";
    }
    EXPECT_EQ(Tavctl(command).errors, "");
}
