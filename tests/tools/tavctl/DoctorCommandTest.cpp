#include "FindingLines.h"
#include "PrintQString.h"
#include "RootMistakes.h"

#include <QJsonArray>
#include <QSysInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>

using DoctorCommand = TestFiles;

TEST_F(DoctorCommand, FindsNothingInTheDemo)
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

TEST_F(DoctorCommand, NamesEveryPlantedMistakeAndNoOther)
{
    QStringList expected;
    for (const Mistake &mistake : rootMistakes) {
        expected.append(lineFor(mistake, brokenRoot + '/' + mistake.file));
    }
    const Tavctl text({"doctor", "--root", brokenRoot});
    EXPECT_EQ(text.exitCode, 1);
    const QString summary = "4 parts checked, 33 findings: 28 errors, 5 warnings";
    EXPECT_EQ(text.output.section("\nFindings\n", 1).split('\n'), expected + QStringList({summary, ""}));
    const Tavctl json({"doctor", "--root", brokenRoot, "--json"});
    EXPECT_EQ(json.exitCode, 1);
    EXPECT_EQ(findingLines(json), expected);
    EXPECT_EQ(json.json()["summary"].toString(), summary);
    QVector<int> counts;
    for (const QJsonValue &part : json.json()["parts"].toArray()) {
        counts.append(part["findings"].toInt());
    }
    EXPECT_EQ(counts, QVector<int>({0, 13, 17, 3})) << "plugin, catalogue, baseline, pictures";
}

TEST_F(DoctorCommand, MissesWhatAnEmptyInstallationLacks)
{
    const QString root = directory.path();
    const QString advice = ", or name another system root with --root";
    EXPECT_EQ(
        findingLines(Tavctl({"doctor", "--root", root, "--json"})),
        QStringList(
            {root
                 + "/etc/tavsec.d/funcTypeConfig.json: error: TAV620: there is no such file; the navigation is empty; "
                   "put "
                   "it there"
                 + advice,
             root
                 + "/etc/tavsec.d/baselineConfig/baseline.json: error: TAV620: there is no such file; the plugin loads "
                   "no check item; put it there"
                 + advice,
             root
                 + "/opt/tavsec/pictures: error: TAV507: there is no such directory; the pages have no pictures; put "
                   "the picture directories there"
                 + advice}));
    ASSERT_TRUE(QDir(root).mkpath("opt/tavsec/pictures"));
    EXPECT_TRUE(findingLines(Tavctl({"doctor", "--root", root, "--json"}))
                    .value(2)
                    .startsWith(root + "/opt/tavsec/pictures: error: TAV507: there is no directory in it; "));
    ASSERT_TRUE(QDir(root).mkpath("etc/tavsec.d"));
    ASSERT_EQ(mkfifo((root + "/etc/tavsec.d/funcTypeConfig.json").toUtf8().constData(), 0600), 0);
    EXPECT_TRUE(findingLines(Tavctl({"doctor", "--root", root, "--json"}))
                    .value(0)
                    .startsWith(root + "/etc/tavsec.d/funcTypeConfig.json: error: TAV620: not a regular file; "));
}

TEST_F(DoctorCommand, ChecksThePluginOfTheInstallationWhenItHasOne)
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
    EXPECT_TRUE(run.output.endsWith("4 parts checked, 3 findings: 3 errors\n")) << "the plugin is not among them";
}

TEST_F(DoctorCommand, NamesPicturesThatLieBesideThePictureDirectories)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    put("opt/tavsec/pictures/common/icon.png", png);
    const QString stray = put("opt/tavsec/pictures/stray.small.png", png);
    const Tavctl run({"doctor", "--root", directory.path(), "--json"});
    EXPECT_EQ(
        findingLines(run).mid(2),
        QStringList{
            stray
            + ": warning: TAV506: a picture outside of every picture directory; the plugin holds it only for a client "
              "that loads "
            + directory.path()
            + "/opt/tavsec/pictures itself, under the key "
              "PICTURES/STRAY; move it into a picture directory"});
}

TEST_F(DoctorCommand, SaysWhatIsWrongWithAPluginFile)
{
    const QByteArray plugin = contentOf(TAV_PLUGIN_FILE);
    QByteArray ofNewerQt = plugin;
    ofNewerQt[plugin.indexOf("QTMETADATA !") + 14] = 99; // behind the mark: format, major version, minor version
    QByteArray forOtherMachine = plugin;
    const bool isArm = plugin[18] == char(183);
    forOtherMachine[18] = char(isArm ? 62 : 183);
    QByteArray ofOtherWordSize = plugin;
    ofOtherWordSize[4] = 1;
    const QString own = isArm ? "AArch64" : "x86-64";
    const QString other = isArm ? "x86-64" : "AArch64";
    const QString noManagers = "; the client has none of the managers; ";
    const QString name = "name libTavDataPlugin.so with --plugin";
    const QString qt = QString(qVersion()).section('.', 0, 1);
    struct {
        QString file;
        QString code;
        QString finding;
    } const rows[] = {
        {directory.filePath("none"), "TAV601",
         "there is no such file" + noManagers + "install the plugin, or name its file with --plugin"},
        {TAV_SOURCE_DIR "/CMakeLists.txt", "TAV603", "not a shared library" + noManagers + name},
        {TAV_TAVCTL_FILE, "TAV607", "not a Qt plugin" + noManagers + name},
        {TAV_OTHER_PLUGIN_FILE, "TAV608",
         "another plugin: its identifier is \"org.example.OtherPlugin\" and not \"Tav_ORG_ITavDtaPlugin\"" + noManagers
             + name},
        {put("newer.so", ofNewerQt), "TAV609",
         QString("built with Qt 5.99.0, but this is Qt %1; Qt refuses to load it: it takes plugins of its own or an "
                 "earlier minor version; build the plugin with Qt %2")
             .arg(qVersion(), qt)},
        {put("machine.so", forOtherMachine), "TAV605",
         QString("built for %1, but this program for %2; no client for %2 can load it; install the plugin for %2")
             .arg(other, own)},
        {put("incomplete.so",
             QByteArray(plugin)
                 .replace("libTavCommon.so.1", "libTavComm0n.so.1")
                 .replace("libstdc++.so.6", "libstdc--.so.6")),
         "TAV610",
         "cannot be loaded: it lacks libTavComm0n.so.1, libstdc--.so.6" + noManagers + "install what it lacks"},
        {"/tmp", "TAV602", "not a regular file" + noManagers + name},
        {put("cut.so", plugin.left(plugin.size() - 1)), "TAV604",
         "cut off: it ends before what its headers announce" + noManagers + "install the plugin again"},
        {put("words.so", ofOtherWordSize), "TAV606",
         "built for words of 32 bits, but this program for 64; no client for " + own
             + " can load it; install the plugin for " + own},
        {TAV_UNDEFINED_SYMBOL_PLUGIN_FILE, "TAV611",
         "cannot be loaded: it lacks the symbol tavNowhere(int)" + noManagers
             + "install the libraries that it was built with"},
        {TAV_NO_INTERFACE_PLUGIN_FILE, "TAV613",
         "its root object, a NoInterfacePlugin, has no interface ITavDataPlugin" + noManagers + name},
        {TAV_NO_MANAGERS_PLUGIN_FILE, "TAV614",
         "registers no managers; pages do not find what they look up; install the plugin that belongs to this client"},
    };
    for (const auto &row : rows) {
        const Tavctl run({"doctor", "--root", demoRoot, "--json", "--plugin", row.file});
        EXPECT_EQ(findingLines(run), QStringList{row.file + ": error: " + row.code + ": " + row.finding});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, "");
    }
}

TEST_F(DoctorCommand, PassesOnAnyOtherReasonOfTheLoader)
{
    const QString file
        = put("version.so", contentOf(TAV_PLUGIN_FILE).replace(QByteArray("\0Qt_5\0", 6), QByteArray("\0Qt_9\0", 6)));
    const QStringList lines = findingLines(Tavctl({"doctor", "--root", demoRoot, "--json", "--plugin", file}));
    EXPECT_TRUE(lines.value(0).startsWith(file + ": error: TAV612: cannot be loaded: "))
        << lines.value(0).toStdString();
    EXPECT_EQ(lines.size(), 1);
}

TEST_F(DoctorCommand, TakesNoJsonTextForTheInstalledCatalogue)
{
    const QString file = put("etc/tavsec.d/funcTypeConfig.json", onePage);
    EXPECT_EQ(findingLines(Tavctl({"doctor", "--root", directory.path(), "--json"})).value(0),
              file
                  + ":1:1: error: TAV107: not Base64: this is the JSON text itself; the plugin reads nothing, and the "
                    "navigation is empty; encode it with \"tavctl catalogue encode\"");
}

TEST_F(DoctorCommand, SaysThatItMayNotReadThePlugin)
{
    const QString file = put("plugin.so", contentOf(TAV_PLUGIN_FILE));
    ASSERT_TRUE(QFile::setPermissions(directory.path(), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QFile::setPermissions(file, {}));
    const Tavctl run = Tavctl::byStranger({"doctor", "--root", demoRoot, "--json", "--plugin", file});
    EXPECT_EQ(
        findingLines(run),
        QStringList{file
                    + ": error: TAV701: cannot be read: Permission denied; the client has none of the managers; let "
                      "this user read it"});
}
