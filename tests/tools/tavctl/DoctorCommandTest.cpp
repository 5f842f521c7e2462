#include "BrokenPlugins.h"
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
    EXPECT_TRUE(run.output.endsWith("\n\n5 parts checked, no findings\n")) << run.output.toStdString();
    EXPECT_FALSE(run.output.contains("Findings"));
    EXPECT_EQ(run.errors, "");
    const QJsonObject plugin = Tavctl({"doctor", "--root", demoRoot, "--json"}).json()["plugin"].toObject();
    const QString qt = QString("%1.%2").arg(QT_VERSION_MAJOR).arg(QT_VERSION_MINOR);
    const QString machine = QSysInfo::buildCpuArchitecture() == "arm64" ? "AArch64" : "x86-64";
    const QString origin = "none below " + demoRoot + "; beside tavctl";
    EXPECT_EQ(plugin,
              (QJsonObject{{"origin", origin},
                           {"identifier", "Tav_ORG_ITavDtaPlugin"},
                           {"qtVersion", qt},
                           {"machine", machine},
                           {"limits", "loaded with the libraries of this system"}}));
    const QString line
        = "\nplugin: " + origin + ": Tav_ORG_ITavDtaPlugin, built with Qt " + qt + " for " + machine + "; ";
    EXPECT_TRUE(run.output.contains(line + "loaded with the libraries of this system\n"));
    EXPECT_TRUE(Tavctl({"doctor", "--root", demoRoot, "--no-load"})
                    .output.contains(line + "not loaded: its libraries and managers were not looked at\n"));
}

TEST_F(DoctorCommand, NamesEveryPlantedMistakeAndNoOther)
{
    QStringList expected;
    for (const Mistake &mistake : rootMistakes) {
        expected.append(lineFor(mistake, brokenRoot + '/' + mistake.file));
    }
    const Tavctl text({"doctor", "--root", brokenRoot});
    EXPECT_EQ(text.exitCode, 1);
    const QString summary = "5 parts checked, 65 findings: 48 errors, 16 warnings, 1 note";
    EXPECT_EQ(text.output.section("\nFindings\n", 1).split('\n'), expected + QStringList({summary, ""}));
    const Tavctl json({"doctor", "--root", brokenRoot, "--json"});
    EXPECT_EQ(json.exitCode, 1);
    EXPECT_EQ(findingLines(json), expected);
    EXPECT_EQ(json.json()["summary"].toString(), summary);
    QVector<int> counts;
    for (const QJsonValue &part : json.json()["parts"].toArray()) {
        counts.append(part["findings"].toInt());
    }
    EXPECT_EQ(counts, QVector<int>({0, 21, 32, 12, 0})) << "plugin, catalogue, baseline, pictures, permissions";
    const QJsonObject ignoring = Tavctl({"doctor", "--root", brokenRoot, "--json", "--ignore", "TAV211,TAV301"}).json();
    int shown = 0;
    for (const QJsonValue &part : ignoring["parts"].toArray()) {
        shown += part["findings"].toInt();
    }
    EXPECT_EQ(shown, ignoring["findings"].toArray().size());
    EXPECT_LT(shown, 65);
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
    EXPECT_TRUE(run.output.endsWith("5 parts checked, 3 findings: 3 errors\n")) << "the plugin is not among them";
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
    const QString own = isPluginForArm() ? "AArch64" : "x86-64";
    const QString other = isPluginForArm() ? "x86-64" : "AArch64";
    const QString noManagers = "; the client has none of the managers; ";
    const QString name = "name libTavDataPlugin.so with --plugin";
    const QString qt = QString(qVersion()).section('.', 0, 1);
    struct {
        QString file;
        QString finding;
    } const rows[] = {
        {directory.filePath("none"),
         ": error: TAV601: there is no such file" + noManagers + "install the plugin, or name its file with --plugin"},
        {TAV_SOURCE_DIR "/CMakeLists.txt", ": error: TAV603: not a shared library" + noManagers + name},
        {TAV_TAVCTL_FILE, ": error: TAV607: not a Qt plugin" + noManagers + name},
        {TAV_OTHER_PLUGIN_FILE,
         ": error: TAV608: another plugin: its identifier is \"org.example.OtherPlugin\" and not "
         "\"Tav_ORG_ITavDtaPlugin\""
             + noManagers + name},
        {put("newer.so", pluginOfNewerQt()),
         QString(": error: TAV609: built with Qt 5.99, but this is Qt %1; Qt refuses to load it: it takes plugins of "
                 "its own or an "
                 "earlier minor version; build the plugin with Qt %2")
             .arg(qVersion(), qt)},
        {put("machine.so", pluginForOtherMachine()),
         QString(": error: TAV605: built for %1, but this program for %2; no client for %2 can load it; install the "
                 "plugin for %2")
             .arg(other, own)},
        {put("incomplete.so", pluginWithoutLibraries()),
         ": error: TAV610: cannot be loaded: it lacks libTavComm0n.so.1, libstdc--.so.6" + noManagers
             + "install what it lacks"},
        {"/tmp", ": error: TAV602: not a regular file" + noManagers + name},
        {put("cut.so", pluginCutOff()),
         ": error: TAV604: cut off: it ends before what its headers announce" + noManagers
             + "install the plugin again"},
        {put("words.so", pluginOfOtherWordSize()),
         ": error: TAV606: built for words of 32 bits, but this program for 64; no client for " + own
             + " can load it; install the plugin for " + own},
        {TAV_UNDEFINED_SYMBOL_PLUGIN_FILE,
         ": error: TAV611: cannot be loaded: it lacks the symbol tavNowhere(int)" + noManagers
             + "install the libraries that it was built with"},
        {TAV_NO_INTERFACE_PLUGIN_FILE,
         ": error: TAV613: its root object, a NoInterfacePlugin, has no interface ITavDataPlugin" + noManagers + name},
        {TAV_NO_MANAGERS_PLUGIN_FILE,
         ": error: TAV614: registers no managers; pages do not find what they look up; install the plugin that belongs "
         "to this client"},
    };
    for (const auto &row : rows) {
        const Tavctl run({"doctor", "--root", demoRoot, "--json", "--plugin", row.file});
        EXPECT_EQ(findingLines(run), QStringList{row.file + row.finding});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, "");
    }
}

TEST_F(DoctorCommand, PassesOnAnyOtherReasonOfTheLoader)
{
    const QString file = put("version.so", pluginOfUnknownSymbolVersion());
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
    const Tavctl run = Tavctl::boundByPermissions({"doctor", "--root", demoRoot, "--json", "--plugin", file});
    EXPECT_EQ(findingLines(run),
              QStringList{
                  file
                  + QString(": error: TAV701: cannot be read: Permission denied; it belongs to the user %1; the client "
                            "has none of the managers; let this user read it")
                        .arg(geteuid())});
}

TEST_F(DoctorCommand, OutlivesAPluginThatCrashesHangsOrEndsTheProgram)
{
    struct {
        QString file;
        QString finding;
    } const rows[] = {
        {TAV_CRASHING_PLUGIN_FILE,
         ": error: TAV615: ends the process that loads it: Segmentation fault; the client crashes when it starts; "
         "install "
         "another build of the plugin"},
        {TAV_EXITING_PLUGIN_FILE,
         ": error: TAV615: ends the process that loads it: exit code 0; the client ends when it starts; install "
         "another "
         "build of the plugin"},
        {TAV_HANGING_PLUGIN_FILE,
         ": error: TAV616: does not return within 10 s of being loaded; the client hangs when it starts; install "
         "another "
         "build of the plugin"},
    };
    for (const auto &row : rows) {
        const QStringList arguments{"doctor", "--root", demoRoot, "--json", "--plugin", row.file};
        const Tavctl run(arguments);
        EXPECT_EQ(findingLines(run), QStringList{row.file + row.finding});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, "");
        EXPECT_EQ(findingLines(Tavctl(arguments + QStringList{"--no-load"})), QStringList()) << "nothing of it runs";
    }
}

namespace
{
/// @brief A copy of the demo, to be broken, that everybody may look at.
class DoctorOnACopy : public TestFiles
{
protected:
    DoctorOnACopy()
    {
        const Program copy({"cp", "-r", demoRoot + "/.", root});
        EXPECT_EQ(copy.exitCode, 0);
        EXPECT_EQ(Program({"chmod", "0755", root}).exitCode, 0);
        EXPECT_EQ(Program({"chmod", "-R", "go-w", root}).exitCode, 0);
    }

    QStringList findings() const
    {
        return withoutRoot(Tavctl({"doctor", "--root", root, "--json"}));
    }

    QStringList findingsBoundByPermissions() const
    {
        return withoutRoot(Tavctl::boundByPermissions({"doctor", "--root", root, "--json"}));
    }

    QStringList withoutRoot(const Tavctl &run) const
    {
        QStringList lines = findingLines(run);
        return lines.replaceInStrings(root, "@");
    }

    const QString root = directory.path();
    const QString scripts = root + "/opt/tavsec/script/baselineScript";
    const QString pictures = root + "/opt/tavsec/pictures";
};
}

TEST_F(DoctorOnACopy, FindsWhatOthersMayWrite)
{
    EXPECT_EQ(findings(), QStringList());
    ASSERT_EQ(Program({"chmod", "o+w", scripts + "/file-umask.sh", scripts, root + "/etc/tavsec.d/funcTypeConfig.json"})
                  .exitCode,
              0);
    const QString finding
        = ": error: TAV702: everybody may write it; others than its owner decide what the client shows "
          "and the agent runs; take the right away with \"chmod go-w\"";
    QStringList expected{"@/etc/tavsec.d/funcTypeConfig.json" + finding, "@/opt/tavsec/script/baselineScript" + finding,
                         "@/opt/tavsec/script/baselineScript/file-umask.sh" + finding};
    EXPECT_EQ(findings(), expected) << "each once";
    ASSERT_EQ(Program({"chmod", "+t", scripts}).exitCode, 0);
    EXPECT_EQ(findings(), expected) << "each may still put scripts there";
}

TEST_F(DoctorOnACopy, FindsPicturesThatOthersMayWrite)
{
    ASSERT_EQ(Program({"chmod", "o+w", pictures + "/navigation/hostIcon.png"}).exitCode, 0);
    ASSERT_EQ(Program({"chmod", "1777", pictures + "/navigation"}).exitCode, 0);
    QStringList places;
    for (const QString &line : findings()) {
        places.append(line.section(": error: TAV702: everybody may write it; ", 0, 0));
    }
    EXPECT_EQ(places,
              QStringList({"@/opt/tavsec/pictures/navigation", "@/opt/tavsec/pictures/navigation/hostIcon.png"}));
}

TEST_F(DoctorOnACopy, FindsWhoMayPutSomethingElseInTheWay)
{
    ASSERT_TRUE(QDir(root).mkpath("srv") && QDir(root).mkdir("links"));
    ASSERT_TRUE(QFile::rename(pictures, root + "/srv/pictures"));
    ASSERT_TRUE(QFile::link("/links/pictures", pictures));
    ASSERT_TRUE(QFile::link("/srv/pictures", root + "/links/pictures"));
    EXPECT_EQ(findings(), QStringList());
    ASSERT_EQ(Program({"chmod", "0777", root, root + "/links"}).exitCode, 0);
    const QStringList found = findings();
    ASSERT_EQ(found.size(), 2) << found.join('\n').toStdString();
    EXPECT_TRUE(found[0].startsWith("@: error: TAV702: everybody may write it; ")) << found[0].toStdString();
    EXPECT_TRUE(found[1].startsWith("@/links: error: TAV702: everybody may write it; ")) << found[1].toStdString();
    ASSERT_EQ(Program({"chmod", "+t", root, root + "/links"}).exitCode, 0);
    EXPECT_EQ(findings(), QStringList()) << "each may change but his own on the way";
}

TEST_F(DoctorOnACopy, FollowsLinksToPicturesAndToThePluginInsideTheRoot)
{
    ASSERT_TRUE(QDir().mkpath(root + "/usr/share/icons/extra"));
    const QString icon = pictures + "/navigation/hostIcon.png";
    ASSERT_TRUE(QFile::rename(icon, root + "/usr/share/icons/host.png"));
    ASSERT_TRUE(QFile::link("/usr/share/icons/host.png", icon));
    ASSERT_TRUE(QFile::copy(root + "/usr/share/icons/host.png", root + "/usr/share/icons/extra/icon.small.png"));
    ASSERT_TRUE(QFile::copy(root + "/usr/share/icons/host.png", root + "/usr/share/icons/extra/icon.png"));
    ASSERT_TRUE(QFile::link("/usr/share/icons/extra", pictures + "/linked"));
    ASSERT_TRUE(QFile::link("/usr/bin/env", pictures + "/navigation/env.png")); // which is outside of the root only
    ASSERT_TRUE(QFile::link("gone.png", pictures + "/navigation/far.png"));
    const QStringList found = findings();
    EXPECT_EQ(found.size(), 3) << found.join('\n').toStdString();
    EXPECT_TRUE(found.value(0).startsWith("@/opt/tavsec/pictures/linked/icon.png: error: TAV501: has the same key as "
                                          "@/opt/tavsec/pictures/linked/icon.small.png: LINKED/ICON; "))
        << found.value(0).toStdString();
    EXPECT_TRUE(found.value(1).startsWith("@/opt/tavsec/pictures/navigation/env.png: error: TAV510: "))
        << found.value(1).toStdString();
    EXPECT_TRUE(found.value(2).startsWith("@/opt/tavsec/pictures/navigation/far.png: error: TAV510: "));
    ASSERT_TRUE(QDir().mkpath(root + "/opt/tavsec/plugins"));
    writeFile(root + "/usr/share/plugin.so", contentOf(TAV_PLUGIN_FILE));
    ASSERT_TRUE(QFile::link("/usr/share/plugin.so", root + "/opt/tavsec/plugins/libTavDataPlugin.so"));
    EXPECT_EQ(Tavctl({"doctor", "--root", root, "--json"}).json()["parts"].toArray().first()["place"].toString(),
              root + "/usr/share/plugin.so");
}

TEST_F(DoctorOnACopy, FindsWhatBelongsToAStranger)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the administrator gives files away";
    }
    ASSERT_EQ(Program({"chown", "4711", root + "/etc/tavsec.d/baselineConfig/baseline.json"}).exitCode, 0);
    EXPECT_EQ(
        findings(),
        QStringList{"@/etc/tavsec.d/baselineConfig/baseline.json: error: TAV703: belongs to the user 4711; this user "
                    "decides what the client shows and the agent runs; give it to the administrator with \"chown "
                    "root\""});
    ASSERT_EQ(Program({"chown", "-R", "4711", root}).exitCode, 0);
    EXPECT_EQ(findings(), QStringList()) << "the whole root is this user's";
}

TEST_F(DoctorOnACopy, ReportsWhatItMayNotReadAsThat)
{
    ASSERT_EQ(Program({"chmod", "0", root + "/etc/tavsec.d/funcTypeConfig.json", pictures + "/navigation/hostIcon.png",
                       pictures + "/navigationLarge"})
                  .exitCode,
              0);
    ASSERT_EQ(Program({"chmod", "0100", scripts + "/file-umask.sh"}).exitCode, 0);
    const QStringList found = findingsBoundByPermissions();
    QStringList starts;
    for (const QString &line : found) {
        starts.append(line.section(';', 0, 0).section(" it belongs", 0, 0));
    }
    const QString denied = "cannot be read: Permission denied";
    ASSERT_EQ(starts.size(), 4) << found.join('\n').toStdString();
    EXPECT_EQ(starts[0], "@/etc/tavsec.d/funcTypeConfig.json: error: TAV701: " + denied);
    EXPECT_TRUE(starts[1].contains(": error: TAV701: /enableConfig/")) << starts[1].toStdString();
    EXPECT_TRUE(starts[1].endsWith("/file-umask.sh\" " + denied)) << starts[1].toStdString();
    EXPECT_EQ(starts[2], "@/opt/tavsec/pictures/navigation/hostIcon.png: error: TAV701: cannot be read");
    EXPECT_EQ(starts[3], "@/opt/tavsec/pictures/navigationLarge: error: TAV701: cannot be listed");
    ASSERT_EQ(Program({"chmod", "0", root + "/etc/tavsec.d", pictures, root + "/opt/tavsec/script"}).exitCode, 0);
    QStringList codes;
    for (const QString &line : findingsBoundByPermissions()) {
        codes.append(line.section(": ", 0, 0) + ' ' + line.section(": ", 2, 2));
    }
    EXPECT_EQ(codes,
              QStringList({"@/etc/tavsec.d/funcTypeConfig.json TAV701",
                           "@/etc/tavsec.d/baselineConfig/baseline.json TAV701", "@/opt/tavsec/pictures TAV701"}))
        << "nothing is called missing";
}

TEST_F(DoctorOnACopy, TellsWhoseTheDirectoryIsThatItMayNotPass)
{
    ASSERT_EQ(Program({"chmod", "0", root + "/opt/tavsec"}).exitCode, 0);
    const QString owner = QString("@/opt/tavsec belongs to the user %1; ").arg(geteuid());
    const QStringList found = findingsBoundByPermissions();
    ASSERT_EQ(found.size(), 2) << found.join('\n').toStdString();
    EXPECT_TRUE(found[0].contains(": error: TAV701: /enableConfig: the script directory "
                                  "\"@/opt/tavsec/script/baselineScript\" cannot be seen; "
                                  + owner))
        << found[0].toStdString();
    EXPECT_TRUE(found[1].startsWith("@/opt/tavsec/pictures: error: TAV701: cannot be listed; " + owner))
        << found[1].toStdString();
}

TEST_F(DoctorOnACopy, ReadsNoOtherFileInPlaceOfOneThatIsMissing)
{
    const QByteArray catalogue = contentOf(root + "/etc/tavsec.d/funcTypeConfig.json");
    ASSERT_TRUE(QDir(root + "/etc").removeRecursively());
    put("etc/tavsec.d", catalogue);
    const QStringList found = findings();
    ASSERT_EQ(found.size(), 2) << found.join('\n').toStdString();
    EXPECT_TRUE(found[0].startsWith("@/etc/tavsec.d/funcTypeConfig.json: error: TAV620: cannot be read: Not a "
                                    "directory; "))
        << found[0].toStdString();
}

TEST_F(DoctorOnACopy, FindsIconsWithoutPicturesInTheOrderOfTheText)
{
    const QByteArray pages = R"("subFunList": [{"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "P",
        "subFuncClassName": "I"}])";
    const QByteArray json = R"([{"funcType": "Func_HostInfo", "funcTitle": "A", "funcList": [
        {"funcType": "Func_SystemAudit", "funcTitle": "B", "funcIcon": "gone", )"
        + pages + R"(, "funcList": [{"funcType": "Func_LineScan", "funcTitle": "C", "funcIcon": "notRead"}]},
        {"funcTitle": "D", "funcIcon": "notRead", "funcList": [
            {"funcType": "Func_LineScan", "funcTitle": "E", "funcIcon": "notRead"}]}], "funcIcon": "goneToo"}])";
    const QString file = put("etc/tavsec.d/funcTypeConfig.json", json.toBase64());
    const QStringList found = findings().filter(": TAV211: ");
    const auto start = [&](const char *icon, const QString &path) {
        const QByteArray before = json.left(json.indexOf(QByteArray(1, '"') + icon + '"'));
        const QString place
            = QString("%1:%2").arg(before.count('\n') + 1).arg(before.size() - before.lastIndexOf('\n'));
        return QString("@/etc/tavsec.d/funcTypeConfig.json:%1: error: TAV211: in the JSON text %2: %3: ")
            .arg(placeInBase64(place, file), place, path);
    };
    ASSERT_EQ(found.size(), 2) << found.join('\n').toStdString();
    EXPECT_TRUE(found[0].startsWith(start("gone", "/0/funcList/0/funcIcon"))) << found[0].toStdString();
    EXPECT_TRUE(found[1].startsWith(start("goneToo", "/0/funcIcon"))) << found[1].toStdString();
}

TEST_F(DoctorOnACopy, SeesAPictureBeyondMeasureWithoutDecodingIt)
{
    // A header of 30000 × 30000 pixels before the data of a few.
    const char *const picture
        = "89504e470d0a1a0a0000000d49484452000075300000753008060000006627f8ba0000001149444154789c63601805a36014"
          "0c77000003e80001b3a6d3460000000049454e44ae426082";
    put("opt/tavsec/pictures/large/icon.png", QByteArray::fromHex(picture));
    const QStringList found = findings();
    ASSERT_EQ(found.size(), 1) << found.join('\n').toStdString();
    EXPECT_TRUE(
        found[0].startsWith("@/opt/tavsec/pictures/large/icon.png: error: TAV514: has 30000 × 30000 pixels; the "
                            "plugin takes 3433 MiB of memory for it; "))
        << found[0].toStdString();
    const Tavctl pictures({"pictures", "--json", root + "/opt/tavsec/pictures/large"});
    EXPECT_EQ(pictures.exitCode, 1);
    EXPECT_EQ(pictures.json()["pictures"].toArray().size(), 0) << "nor does the plugin";
}

TEST_F(DoctorOnACopy, NamesAnEmptyPictureDirectoryAndAPipe)
{
    ASSERT_TRUE(QDir(pictures).mkdir("empty"));
    ASSERT_EQ(mkfifo((pictures + "/navigation/pipe.png").toUtf8().constData(), 0600), 0);
    EXPECT_EQ(
        findings(),
        QStringList({"@/opt/tavsec/pictures/empty: warning: TAV511: a picture directory without pictures; pages find "
                     "nothing in it; put pictures there, or remove it",
                     "@/opt/tavsec/pictures/navigation/pipe.png: error: TAV504: not a regular file; the plugin "
                     "passes over it; put a PNG picture in its place"}));
}

TEST_F(DoctorOnACopy, NamesPagesWhoseControllerNoPagePluginRegisters)
{
    const QString plugins = root + "/opt/tavsec/plugins/";
    writeFile(plugins + "libTavDataPlugin.so", contentOf(TAV_PLUGIN_FILE));
    EXPECT_EQ(findings(), QStringList()) << "without page plugins nothing is known of controllers";
    writeFile(plugins + "notes.so", "no plugin");
    writeFile(plugins + "other.so", contentOf(TAV_OTHER_PLUGIN_FILE));
    EXPECT_EQ(findings(), QStringList());
    writeFile(plugins + "pages.so", contentOf(TAV_PAGE_PLUGIN_FILE));
    const QStringList found = findings();
    EXPECT_EQ(found.filter(": warning: TAV215: ").size(), found.size());
    EXPECT_GE(found.size(), 2);
    EXPECT_EQ(found.filter("\"ITavHostInfoController\"").size(), 0) << "which it registers";
    EXPECT_EQ(
        found
            .filter("/2/subFunList/0/subFuncClassName: no page plugin registers the controller "
                    "\"ITavStaticMeasureController\"; the page cannot be opened, unless the client itself has the "
                    "controller; install the plugin of the page, or correct the name")
            .size(),
        1)
        << found.join('\n').toStdString();
    EXPECT_EQ(findingLines(Tavctl({"doctor", "--root", root, "--json", "--no-load"})), QStringList())
        << "nothing of it runs";
    writeFile(plugins + "crash.so", contentOf(TAV_CRASHING_PLUGIN_FILE));
    EXPECT_EQ(findings().filter("@/opt/tavsec/plugins/crash.so: error: TAV615: ").size(), 1);
}

TEST_F(DoctorOnACopy, NamesThePluginThatHasAnotherName)
{
    const QString file = root + "/opt/tavsec/plugins/TavDataPlugin.so";
    writeFile(file, contentOf(TAV_PLUGIN_FILE));
    ASSERT_TRUE(QDir().mkpath(root + "/usr/share"));
    const QStringList expected{
        "@/opt/tavsec/plugins/TavDataPlugin.so: error: TAV618: the data plugin under another name; the "
        "client does not find it and has none of the managers; rename it to libTavDataPlugin.so"};
    EXPECT_EQ(findings(), expected);
    ASSERT_TRUE(QFile::rename(file, root + "/usr/share/plugin"));
    ASSERT_TRUE(QFile::link("/usr/share/plugin", file));
    EXPECT_EQ(findings(), expected) << "behind a link as well";
}

TEST_F(DoctorOnACopy, TakesNoOffenceAtAnImageForAnotherMachine)
{
    const bool isArm = isPluginForArm();
    writeFile(root + "/opt/tavsec/plugins/libTavDataPlugin.so", pluginForOtherMachine());
    const QString file = "@/opt/tavsec/plugins/libTavDataPlugin.so";
    EXPECT_TRUE(findings().value(0).startsWith(file + ": error: TAV605: ")) << "no word of what the image is for";
    writeFile(root + "/bin/sh", pluginForOtherMachine());
    ASSERT_EQ(Program({"chmod", "0755", root + "/bin/sh"}).exitCode, 0) << "it is what runs the scripts";
    EXPECT_EQ(findings(),
              QStringList{file
                          + QString(": note: TAV617: built for %1, but this program for %2, as the system root is; "
                                    "whether it can be loaded there and registers its managers is not known; check it "
                                    "on such a machine")
                                .arg(isArm ? "x86-64" : "AArch64", isArm ? "AArch64" : "x86-64")});
    writeFile(root + "/bin/sh", contentOf(TAV_PLUGIN_FILE));
    EXPECT_TRUE(findings().value(0).startsWith(file + ": error: TAV605: "));
}

TEST_F(DoctorCommand, SaysThatTheFilesOfProcessesAreNotThere)
{
    if (Program(withoutProcessFiles + QStringList{"true"}).exitCode != 0) {
        GTEST_SKIP() << "only the administrator can take them away";
    }
    const QString finding = "/proc: error: TAV704: is not mounted; nothing is known of processes, memory and devices, "
                            "which is not to say that there are none; mount it with \"mount -t proc proc /proc\"";
    EXPECT_TRUE(findingLines(Tavctl({"doctor", "--json"}, "/dev/null", withoutProcessFiles)).contains(finding));
    EXPECT_FALSE(findingLines(Tavctl({"doctor", "--json"})).contains(finding));
    EXPECT_FALSE(findingLines(Tavctl({"doctor", "--root", demoRoot, "--json"}, "/dev/null", withoutProcessFiles))
                     .contains(finding))
        << "an image has none";
}

TEST_F(DoctorOnACopy, TakesWhatHasThePluginsNameForThePlugin)
{
    const QString file = root + "/opt/tavsec/plugins/libTavDataPlugin.so";
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    ASSERT_TRUE(QFile::link("gone.so", file));
    const QStringList dangling = findings();
    ASSERT_EQ(dangling.size(), 1) << dangling.join('\n').toStdString();
    EXPECT_TRUE(dangling[0].startsWith("@/opt/tavsec/plugins/gone.so: error: TAV601: there is no such file; "))
        << dangling[0].toStdString();
    ASSERT_TRUE(QFile::remove(file) && QDir().mkdir(file));
    const QStringList directory = findings();
    ASSERT_EQ(directory.size(), 1) << directory.join('\n').toStdString();
    EXPECT_TRUE(
        directory[0].startsWith("@/opt/tavsec/plugins/libTavDataPlugin.so: error: TAV602: not a regular file; "))
        << directory[0].toStdString();
}

TEST_F(DoctorOnACopy, NamesTheScriptDirectoryOnceThatIsNone)
{
    ASSERT_TRUE(QDir(scripts).removeRecursively());
    writeFile(scripts, "");
    const QStringList found = findings();
    ASSERT_EQ(found.size(), 1) << found.join('\n').toStdString();
    EXPECT_TRUE(found[0].contains(": error: TAV412: /enableConfig: the script directory "
                                  "\"@/opt/tavsec/script/baselineScript\" is no directory; "))
        << found[0].toStdString();
}

TEST_F(DoctorOnACopy, SaysWhereTheLinkOfAScriptLeads)
{
    const QString script = scripts + "/file-umask.sh";
    ASSERT_TRUE(QDir(root).mkpath("usr/lib") && QFile::remove(script) && QFile::link("/usr/lib/umask.sh", script));
    EXPECT_EQ(findings()
                  .filter(": error: TAV403: ")
                  .filter("does not exist: a link leads away, and /usr/lib/umask.sh is missing; ")
                  .size(),
              1);
    ASSERT_TRUE(QFile::remove(script) && QFile::link("file-umask.sh", script));
    EXPECT_EQ(findings().filter(": error: TAV403: ").filter("is a link that leads to itself; ").size(), 1);
}

TEST_F(DoctorOnACopy, NamesDirectoriesThatAreMeantForPicturesAndPassedOver)
{
    const QByteArray png = contentOf(pictures + "/navigation/hostIcon.png");
    ASSERT_TRUE(QDir(pictures).mkpath(".git") && QDir(pictures).mkpath(".old") && QDir(pictures).mkpath("extra "));
    writeFile(pictures + "/.old/icon.png", png);
    writeFile(pictures + "/.git/index", "no picture");
    writeFile(pictures + "/extra /icon.png", png);
    ASSERT_TRUE(QFile::link("/usr/share/gone", pictures + "/linked"));
    const QStringList found = findings();
    ASSERT_EQ(found.size(), 3) << found.join('\n').toStdString();
    EXPECT_EQ(
        found[0],
        "@/opt/tavsec/pictures/extra /icon.png: warning: TAV512: a blank at the edge of its directory's name; the "
        "plugin holds it under the key \"EXTRA /ICON\", blank included; rename it");
    EXPECT_EQ(
        found[1],
        "@/opt/tavsec/pictures/.old: warning: TAV509: a hidden picture directory; the client passes over it; give "
        "it a name without a dot before it, or remove it");
    EXPECT_TRUE(found[2].startsWith("@/opt/tavsec/pictures/linked: error: TAV510: a link to nothing: "))
        << found[2].toStdString();
}

TEST_F(DoctorOnACopy, FollowsAbsoluteLinksInsideTheRoot)
{
    ASSERT_TRUE(QDir(root).mkdir("data"));
    for (const char *const name : {"etc", "opt"}) {
        ASSERT_TRUE(QFile::rename(root + '/' + name, root + "/data/" + name));
        ASSERT_TRUE(QFile::link(QString("/data/") + name, root + '/' + name));
    }
    EXPECT_EQ(findings(), QStringList());
    put("data/opt/tavsec/pictures/navigation/broken.png", "no picture");
    put("data/opt/tavsec/pictures/stray.png", "no picture");
    QStringList starts;
    for (const QString &line : findings()) {
        starts.append(line.section(": ", 0, 2));
    }
    EXPECT_EQ(starts,
              QStringList({"@/opt/tavsec/pictures/navigation/broken.png: error: TAV503",
                           "@/opt/tavsec/pictures/stray.png: warning: TAV506"}))
        << "what lies behind the links is looked at";
}

TEST_F(DoctorOnACopy, AsksForTheRootOnceWhenThereIsNoScriptDirectory)
{
    const QString list = put("baseline.json", contentOf(demoRoot + "/etc/tavsec.d/baselineConfig/baseline.json"));
    const QDir empty(directory.filePath("none"));
    ASSERT_TRUE(QDir(root).mkdir("none"));
    const Tavctl run({"baseline", "check", list, "--root", empty.path(), "--json"});
    const QStringList lines = findingLines(run);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].contains(": error: TAV412: /enableConfig: the script directory \"" + empty.path()
                                  + "/opt/tavsec/script/baselineScript\" does not exist; "));
    EXPECT_EQ(Tavctl({"baseline", "check", root + "/etc/tavsec.d/baselineConfig/baseline.json"}).output,
              "1 file checked with the scripts below " + root + ", no findings\n");
}
