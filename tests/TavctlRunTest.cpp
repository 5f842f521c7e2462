#include "Tavctl.h"

#include <QJsonArray>
#include <QSet>
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
    const QJsonArray registry = run.json()[QLatin1String("registry")].toArray();
    EXPECT_EQ(texts(registry, "class"),
              QStringList({"TavFuncTypeMgr", "TavPicResourceMgr", "TavSelectFuncMgr", "TavAccessControlMgr",
                           "TavCompleteProtectMgr", "TavProtectMgr", "TavAuditMgr", "TavHostInfoMgr",
                           "TavOneReinforceMgr", "TavLineScanMgr", "TavNetControlMgr", "TavAuthInfoMgr",
                           "TavSystemConfigMgr", "TavDevCtlMgr", "TavProExceptionMgr"}));
    for (int i = 0; i < registry.size(); ++i) {
        const QJsonObject row = registry[i].toObject();
        const QString interface = QLatin1Char('I') + row[QLatin1String("class")].toString();
        EXPECT_EQ(row[QLatin1String("order")].toInt(), i + 1);
        EXPECT_EQ(row[QLatin1String("interface")].toString(), interface);
        EXPECT_EQ(row[QLatin1String("key")].toString(), interface + "_Tav_ORG");
        EXPECT_EQ(row[QLatin1String("id")].toInt(), -9999);
        EXPECT_TRUE(row[QLatin1String("address")].toString().startsWith("0x"));
        EXPECT_GT(row[QLatin1String("microseconds")].toDouble(), 0);
    }
}

TEST(TavctlRun, ShowsTheNavigationWithNestedGroupDisabledPageAndRealParents)
{
    const Tavctl run({"run", "--root", demoRoot, "--json"});
    const QJsonArray functions = run.json()[QLatin1String("navigation")].toArray();
    EXPECT_EQ(texts(functions, "title"), QStringList({"主机信息", "加固方案", "完整性度量", "访问控制", "系统保护"}));
    const QJsonArray nested = functions.last()[QLatin1String("nested")].toArray();
    EXPECT_EQ(texts(nested, "title"), QStringList({"系统审计"}));
    EXPECT_EQ(texts(nested.first()[QLatin1String("pages")].toArray(), "title"), QStringList({"审计日志"}));
    const QJsonArray access = functions[3].toObject()[QLatin1String("pages")].toArray();
    EXPECT_EQ(texts(access, "type"),
              QStringList(
                  {"SubFunc_PrincipalSettings", "SubFunc_ObjectSetting", "SubFunc_PrincipalAdd", "SubFunc_ObjectAdd"}));
    EXPECT_EQ(texts(access, "realParent"),
              QStringList({"SubFunc_None", "SubFunc_None", "SubFunc_PrincipalSettings", "SubFunc_ObjectSetting"}));
}

TEST(TavctlRun, DeliversEveryPageOnceToEachOfThreeThreads)
{
    const Tavctl run({"run", "--root", demoRoot, "--json"});
    const QJsonArray deliveries = run.json()[QLatin1String("deliveries")].toArray();
    EXPECT_EQ(deliveries.size(), 3 * 14);
    QSet<QString> seen;
    for (const QJsonValue &delivery : deliveries) {
        seen.insert(delivery[QLatin1String("page")].toString() + delivery[QLatin1String("thread")].toString());
        EXPECT_GT(delivery[QLatin1String("microseconds")].toDouble(), 0);
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

TEST(TavctlRegistry, PrintsOnlyTheRegistry)
{
    const Tavctl registry({"registry"});
    EXPECT_EQ(registry.exitCode, 0);
    EXPECT_TRUE(registry.output.contains("ITavProExceptionMgr_Tav_ORG"));
    EXPECT_FALSE(registry.output.contains("Navigation"));
}

TEST(TavctlErrors, AMissingPluginFileIsNamed)
{
    const Tavctl run({"registry", "--plugin", "/nowhere/libTavDataPlugin.so"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors,
              "tavctl: /nowhere/libTavDataPlugin.so: there is no such file; build the plugin first or name "
              "its file with --plugin\n");
}

TEST(TavctlErrors, AFileThatIsNoPluginIsSaidToBeNone)
{
    const Tavctl run({"registry", "--plugin", TAV_SOURCE_DIR "/CMakeLists.txt"});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_TRUE(
        run.errors.startsWith("tavctl: " TAV_SOURCE_DIR "/CMakeLists.txt: not a Qt plugin of this Qt version ("));
    EXPECT_EQ(run.errors.count('\n'), 1);
}

TEST(TavctlErrors, AnotherPluginIsNamedByItsIdentifierAndNotRun)
{
    const Tavctl run({"registry", "--plugin", TAV_OTHER_PLUGIN_FILE});
    EXPECT_EQ(run.exitCode, 5);
    EXPECT_EQ(run.errors,
              "tavctl: " TAV_OTHER_PLUGIN_FILE ": another plugin, its identifier is "
              "\"org.example.OtherPlugin\" and not \"Tav_ORG_ITavDtaPlugin\"; name libTavDataPlugin.so with "
              "--plugin\n");
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
