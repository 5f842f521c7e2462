#include "Tavctl.h"

#include <QJsonArray>
#include <QSet>
#include <QSysInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{
const QString demoRoot = QStringLiteral(TAV_SOURCE_DIR "/share/demo");

QStringList texts(const QJsonArray &rows, const char *key)
{
    QStringList found;
    for (const QJsonValue &row : rows) {
        found.append(row[QLatin1String(key)].toString());
    }
    return found;
}
}

TEST(TavctlRun, RegistersFifteenManagersInOrder)
{
    const Tavctl run({"run", "--root", demoRoot, "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    const QJsonArray registry = run.json()["registry"].toArray();
    EXPECT_EQ(texts(registry, "class"),
              QStringList({"TavFuncTypeMgr", "TavPicResourceMgr", "TavSelectFuncMgr", "TavAccessControlMgr",
                           "TavCompleteProtectMgr", "TavProtectMgr", "TavAuditMgr", "TavHostInfoMgr",
                           "TavOneReinforceMgr", "TavLineScanMgr", "TavNetControlMgr", "TavAuthInfoMgr",
                           "TavSystemConfigMgr", "TavDevCtlMgr", "TavProExceptionMgr"}));
    for (int i = 0; i < registry.size(); ++i) {
        const QJsonObject row = registry[i].toObject();
        const QString interface = QLatin1Char('I') + row["class"].toString();
        EXPECT_EQ(row["order"].toInt(), i + 1);
        EXPECT_EQ(row["interface"].toString(), interface);
        EXPECT_EQ(row["key"].toString(), interface + "_Tav_ORG");
        EXPECT_EQ(row["id"].toInt(), -9999);
        EXPECT_TRUE(row["address"].toString().startsWith("0x"));
        EXPECT_GT(row["microseconds"].toDouble(), 0);
    }
}

TEST(TavctlRun, ShowsTheNavigationWithNestedGroupDisabledPageAndRealParents)
{
    const Tavctl run({"run", "--root", demoRoot, "--json"});
    const QJsonArray functions = run.json()["navigation"].toArray();
    EXPECT_EQ(texts(functions, "title"), QStringList({"主机信息", "加固方案", "完整性度量", "访问控制", "系统保护"}));
    const QJsonArray nested = functions.last()["nested"].toArray();
    EXPECT_EQ(texts(nested, "title"), QStringList({"系统审计"}));
    EXPECT_EQ(texts(nested.first()["pages"].toArray(), "title"), QStringList({"审计日志"}));
    const QJsonArray access = functions[3].toObject()["pages"].toArray();
    EXPECT_EQ(texts(access, "type"),
              QStringList(
                  {"SubFunc_PrincipalSettings", "SubFunc_ObjectSetting", "SubFunc_PrincipalAdd", "SubFunc_ObjectAdd"}));
    EXPECT_EQ(texts(access, "realParent"),
              QStringList({"SubFunc_None", "SubFunc_None", "SubFunc_PrincipalSettings", "SubFunc_ObjectSetting"}));
}

TEST(TavctlRun, DeliversEveryPageOnceToEachOfThreeThreads)
{
    const Tavctl run({"run", "--root", demoRoot, "--json"});
    const QJsonArray deliveries = run.json()["deliveries"].toArray();
    EXPECT_EQ(deliveries.size(), 3 * 14);
    QSet<QString> seen;
    for (const QJsonValue &delivery : deliveries) {
        seen.insert(delivery["page"].toString() + delivery["thread"].toString());
        EXPECT_GT(delivery["microseconds"].toDouble(), 0);
    }
    EXPECT_EQ(seen.size(), 3 * 14);
}

TEST(TavctlRun, PrintsTitlesInChineseAndAligned)
{
    const Tavctl run({"run", "--root", demoRoot});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.output.contains("└─ 服务器详情      SubFunc_serverResourceInfo"));
    EXPECT_TRUE(run.output.contains("├─ 关键目录防篡改  SubFunc_KeyDirAmperProof"));
    EXPECT_FALSE(run.output.contains('\033')) << "colours belong on a terminal only";
}

TEST(TavctlRun, ShowsTheModelOfEveryPageFedByThisMachine)
{
    const QJsonObject document = Tavctl({"run", "--root", demoRoot, "--json"}).json();
    const QJsonArray pages = document["pages"].toArray();
    EXPECT_EQ(pages.size(), 14);
    for (const QJsonValue &page : pages) {
        EXPECT_FALSE(page["sections"].toArray().isEmpty()) << page["type"].toString().toStdString();
    }
    for (const QJsonValue &reading : document["backend"].toArray()) {
        EXPECT_TRUE(reading["fed"].toBool()) << reading["reading"].toString().toStdString();
    }
}

TEST(TavctlRun, ShowsThisHostsOwnNameAndUsers)
{
    const QJsonObject document = Tavctl({"run", "--root", demoRoot, "--json"}).json();
    QStringList hostFacts;
    QStringList users;
    for (const QJsonValue &page : document["pages"].toArray()) {
        for (const QJsonValue &section : page["sections"].toArray()) {
            if (section["title"] == "Host") {
                hostFacts = texts(section["rows"].toArray(), "value");
            } else if (section["title"] == "System users") {
                users = texts(section["rows"].toArray(), "name");
            }
        }
    }
    EXPECT_TRUE(hostFacts.contains(QSysInfo::machineHostName()));
    EXPECT_TRUE(users.contains("root"));
}

TEST(TavctlRun, MakesOneEditOfEachKindAndShowsItsEffect)
{
    const QJsonArray edits = Tavctl({"run", "--root", demoRoot, "--json"}).json()["edits"].toArray();
    EXPECT_EQ(texts(edits, "kind"),
              QStringList({"row by key", "row by stored index", "row by position", "all checks", "device toggled",
                           "level checked"}));
    for (const QJsonValue &edit : edits) {
        EXPECT_FALSE(edit["before"].toString().isEmpty()) << edit["kind"].toString().toStdString();
        EXPECT_NE(edit["before"], edit["after"]) << edit["kind"].toString().toStdString();
    }
}

TEST(TavctlRun, FindsEveryPictureOfTheDemo)
{
    const QJsonArray pictures = Tavctl({"run", "--root", demoRoot, "--json"}).json()["pictures"].toArray();
    EXPECT_EQ(pictures.size(), 2 * 6 * 3);
    for (const QJsonValue &picture : pictures) {
        EXPECT_EQ(picture["width"].toInt(), picture["directory"] == "navigation" ? 48 : 96)
            << picture["name"].toString().toStdString();
    }
}

TEST(TavctlRun, CutsLongListsAndShowsAPageAskedForInFull)
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

TEST(TavctlRun, ShowsOnePageAsJson)
{
    const QJsonObject page = Tavctl({"run", "--root", demoRoot, "--page", "SubFunc_BaselineScan", "--json"}).json();
    EXPECT_EQ(page["title"].toString(), "基线扫描");
    EXPECT_EQ(page["sections"].toArray().first()["rows"].toArray().size(), 44);
}

TEST(TavctlErrors, APageThatTheCatalogueDoesNotHaveIsNamed)
{
    const Tavctl run({"run", "--root", demoRoot, "--page", "SubFunc_LogAudi"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.startsWith("tavctl: --page: the catalogue has no page \"SubFunc_LogAudi\"; it has "));
    EXPECT_TRUE(run.errors.contains("SubFunc_LogAudit"));
}

TEST(TavctlRegistry, PrintsOnlyTheRegistry)
{
    const Tavctl registry({"registry"});
    EXPECT_EQ(registry.exitCode, 0);
    EXPECT_TRUE(registry.output.contains("ITavProExceptionMgr_Tav_ORG"));
    EXPECT_FALSE(registry.output.contains("Navigation"));
}

TEST(TavctlRegistry, LoadsAPluginWithARelativePath)
{
    const QString relative = QDir::current().relativeFilePath(TAV_PLUGIN_FILE);
    ASSERT_TRUE(QDir::isRelativePath(relative));
    EXPECT_EQ(Tavctl({"registry", "--plugin", relative}).exitCode, 0);
    const QByteArray inItsDirectory = QFileInfo(TAV_PLUGIN_FILE).path().toUtf8();
    const Program run(QStringList{"sh", "-c", "cd \"$1\" && shift && exec \"$@\"", "sh", inItsDirectory}
                      + tavctlCommand({"registry", "--plugin", QFileInfo(TAV_PLUGIN_FILE).fileName()}));
    EXPECT_EQ(run.exitCode, 0) << run.errors.constData();
}

TEST(TavctlErrors, TellsItsVersion)
{
    EXPECT_EQ(Tavctl({"--version"}).output, "tavctl " TAV_VERSION "\n");
}

TEST(TavctlErrors, AMissingPluginFileIsNamed)
{
    const Tavctl run({"registry", "--plugin", "/nowhere/libTavDataPlugin.so"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors,
              "tavctl: /nowhere/libTavDataPlugin.so: there is no such file; install the plugin, or name its "
              "file with --plugin\n");
}

TEST(TavctlErrors, AFileThatIsNoPluginIsSaidToBeNone)
{
    const Tavctl run({"registry", "--plugin", TAV_SOURCE_DIR "/CMakeLists.txt"});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_EQ(run.errors,
              "tavctl: " TAV_SOURCE_DIR "/CMakeLists.txt: not a shared library; name libTavDataPlugin.so with "
              "--plugin\n");
}

TEST(TavctlErrors, AnotherPluginIsNamedByItsIdentifierAndNotRun)
{
    const Tavctl run({"registry", "--plugin", TAV_OTHER_PLUGIN_FILE});
    EXPECT_EQ(run.exitCode, 5);
    EXPECT_EQ(run.errors,
              "tavctl: " TAV_OTHER_PLUGIN_FILE ": another plugin: its identifier is "
              "\"org.example.OtherPlugin\" and not \"Tav_ORG_ITavDtaPlugin\"; name libTavDataPlugin.so with "
              "--plugin\n");
}

TEST(TavctlErrors, APluginWithoutManagersIsNamed)
{
    const QString catalogue = TAV_SOURCE_DIR "/share/demo/etc/tavsec.d/funcTypeConfig.json";
    struct {
        QStringList command;
        int exitCode;
    } const rows[] = {{{"registry"}, 5}, {{"run"}, 5}, {{"catalogue", "show", catalogue}, 2}};
    for (const auto &row : rows) {
        const Tavctl run(row.command + QStringList{"--plugin", TAV_NO_MANAGERS_PLUGIN_FILE});
        EXPECT_EQ(run.exitCode, row.exitCode);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors,
                  "tavctl: " TAV_NO_MANAGERS_PLUGIN_FILE
                  ": registers no managers; install the plugin that belongs to this client\n");
    }
}

TEST(TavctlErrors, AMissingCatalogueIsNamed)
{
    const QTemporaryDir root;
    const Tavctl run({"run", "--root", root.path()});
    EXPECT_EQ(run.exitCode, 6);
    EXPECT_TRUE(
        run.errors.endsWith("tavctl: " + root.filePath("etc/tavsec.d/funcTypeConfig.json")
                            + ": there is no navigation catalogue; put one there or name another system root with "
                              "--root\n"));
}

TEST(TavctlErrors, ACatalogueWithoutPagesIsNamed)
{
    const QTemporaryDir root;
    QDir(root.path()).mkpath("etc/tavsec.d");
    QFile file(root.filePath("etc/tavsec.d/funcTypeConfig.json"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("[]").toBase64());
    file.close();
    const Tavctl run({"run", "--root", root.path()});
    EXPECT_EQ(run.exitCode, 6);
    EXPECT_EQ(run.errors,
              "tavctl: " + file.fileName()
                  + ": holds no page; it must be the Base64 text of a JSON array of functions\n");
}

TEST(TavctlErrors, AWrongCommandLineEndsWithTwo)
{
    EXPECT_EQ(Tavctl({}).exitCode, 2);
    EXPECT_EQ(Tavctl({"fly"}).exitCode, 2);
    EXPECT_EQ(Tavctl({"run", "--root", "/nowhere"}).exitCode, 2);
    EXPECT_EQ(Tavctl({"--help"}).exitCode, 0);
}
