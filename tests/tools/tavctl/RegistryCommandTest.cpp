#include "PrintQString.h"
#include "Tavctl.h"
#include "TextsOf.h"

#include <QDir>

#include <gtest/gtest.h>

TEST(RegistryCommand, RegistersFifteenManagersInOrder)
{
    const Tavctl run({"registry", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    const QJsonArray registry = run.json()["registry"].toArray();
    EXPECT_EQ(textsOf(registry, "class"),
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

TEST(RegistryCommand, PrintsOnlyTheRegistry)
{
    const Tavctl registry({"registry"});
    EXPECT_EQ(registry.exitCode, 0);
    EXPECT_TRUE(registry.output.contains("ITavProExceptionMgr_Tav_ORG"));
    EXPECT_FALSE(registry.output.contains("Navigation"));
}

TEST(RegistryCommand, LoadsAPluginWithARelativePath)
{
    const QString relative = QDir::current().relativeFilePath(TAV_PLUGIN_FILE);
    ASSERT_TRUE(QDir::isRelativePath(relative));
    EXPECT_EQ(Tavctl({"registry", "--plugin", relative}).exitCode, 0);
    const QByteArray inItsDirectory = QFileInfo(TAV_PLUGIN_FILE).path().toUtf8();
    const Program run(QStringList{"sh", "-c", "cd \"$1\" && shift && exec \"$@\"", "sh", inItsDirectory}
                      + tavctlCommand({"registry", "--plugin", QFileInfo(TAV_PLUGIN_FILE).fileName()}));
    EXPECT_EQ(run.exitCode, 0) << run.errors.constData();
}

TEST(RegistryCommand, AMissingPluginFileIsNamed)
{
    const Tavctl run({"registry", "--plugin", "/nowhere/libTavDataPlugin.so"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors,
              "tavctl: /nowhere/libTavDataPlugin.so: there is no such file; install the plugin, or name its "
              "file with --plugin\n");
}

TEST(RegistryCommand, AFileThatIsNoPluginIsSaidToBeNone)
{
    const Tavctl run({"registry", "--plugin", TAV_SOURCE_DIR "/CMakeLists.txt"});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_EQ(run.errors,
              "tavctl: " TAV_SOURCE_DIR "/CMakeLists.txt: not a shared library; name libTavDataPlugin.so with "
              "--plugin\n");
}

TEST(RegistryCommand, AnotherPluginIsNamedByItsIdentifierAndNotRun)
{
    const Tavctl run({"registry", "--plugin", TAV_OTHER_PLUGIN_FILE});
    EXPECT_EQ(run.exitCode, 5);
    EXPECT_EQ(run.errors,
              "tavctl: " TAV_OTHER_PLUGIN_FILE ": another plugin: its identifier is "
              "\"org.example.OtherPlugin\" and not \"Tav_ORG_ITavDtaPlugin\"; name libTavDataPlugin.so with "
              "--plugin\n");
}

TEST(RegistryCommand, APluginThatEndsTheProgramIsNamed)
{
    const Tavctl run({"registry", "--plugin", TAV_EXITING_PLUGIN_FILE});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              "tavctl: " TAV_EXITING_PLUGIN_FILE
              ": ends the process that loads it; install another build of the plugin\n");
}

TEST(RegistryCommand, APluginWithoutManagersIsNamed)
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
