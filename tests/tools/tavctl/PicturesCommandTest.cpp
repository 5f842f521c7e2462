#include "FindingLines.h"
#include "PrintQString.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <sys/stat.h>

using PicturesCommand = TestFiles;

TEST_F(PicturesCommand, ShowsWhatThePluginHolds)
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
    EXPECT_TRUE(text.output.endsWith("\n\n1 directory checked, no findings\n"));
    EXPECT_FALSE(text.output.contains("Findings"));
}

TEST_F(PicturesCommand, NamesEachMistake)
{
    const QString pictures = broken + "/pictures/";
    struct {
        QStringList directories;
        QString finding;
    } const rows[] = {
        {{"same-key"},
         pictures + "same-key/icon.hover.png: error: TAV501: has the same key as " + pictures
             + "same-key/icon.png: SAME-KEY/ICON; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"first/common", "second/common"},
         pictures + "first/common/x.png: error: TAV501: has the same key as " + pictures
             + "second/common/x.png: COMMON/X; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"second/common", "first/common"},
         pictures + "second/common/x.png: error: TAV501: has the same key as " + pictures
             + "first/common/x.png: COMMON/X; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"first/common", "second/common", "first/common"},
         pictures + "second/common/x.png: error: TAV501: has the same key as " + pictures
             + "first/common/x.png: COMMON/X; the other one wins: the plugin loads it later, and this picture is "
               "never found; give one of them a name that differs before its first dot"},
        {{"undecodable"},
         pictures
             + "undecodable/icon.png: error: TAV503: cannot be decoded: Unsupported image format; the plugin holds an "
               "empty "
               "picture for the key UNDECODABLE/ICON; put a PNG picture in its place"},
        {{"subdirectory"},
         pictures
             + "subdirectory/large: warning: TAV505: a directory inside a picture directory; the plugin does not scan "
               "it; move it "
               "beside the directory that it is in"},
    };
    for (const auto &row : rows) {
        QStringList arguments{"pictures"};
        for (const QString &name : row.directories) {
            arguments.append(pictures + name);
        }
        const Tavctl text(arguments);
        EXPECT_TRUE(text.output.contains("\nFindings\n" + row.finding + "\n")) << text.output.toStdString();
        EXPECT_EQ(text.exitCode, 1);
        EXPECT_EQ(findingLines(Tavctl(arguments + QStringList{"--json"})), QStringList{row.finding});
    }
}

TEST_F(PicturesCommand, TheWinnerNamedIsTheOneThatThePluginHolds)
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

TEST_F(PicturesCommand, FollowsThePluginsWayThroughDirectories)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    put("all/more.png/icon.PNG", png);
    put("all/apart/icon.png", png);
    put("all/.hidden/icon.png", png);
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

TEST_F(PicturesCommand, FindsNothingInADesktopsIconTheme)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    QStringList arguments{"pictures", "--json"};
    for (const QString &kind : QStringList{"actions", "apps", "places"}) {
        for (const QString &name : QStringList{"folder", "folder-open", "text-x-c++", "a_b.symbolic", "图标"}) {
            for (const QString &size : QStringList{"16x16", "48x48", "48x48@2"}) {
                put("theme/" + size + '/' + kind + '/' + name + ".png", png);
            }
            put("theme/48x48/" + kind + '/' + name + ".svg", "<svg/>"); // from which the picture was made
        }
        ASSERT_TRUE(QFile::link("folder.png", directory.filePath("theme/48x48/" + kind + "/folder-remote.png")));
        ASSERT_TRUE(QFile::link("../apps/folder.png", directory.filePath("theme/48x48/" + kind + "/linked.png")));
        put("theme/48x48/" + kind + "/icon-theme.cache", "cache");
        put("theme/48x48/" + kind + "/cursors/left_ptr", "Xcur");
        arguments.append(directory.filePath("theme/48x48/" + kind));
    }
    put("theme/index.theme", "[Icon Theme]\n");
    const Tavctl run(arguments);
    EXPECT_EQ(findingLines(run), QStringList());
    EXPECT_EQ(run.json()["pictures"].toArray().size(), 3 * 7);
    // Of the whole theme the plugin holds nothing, and that is said.
    EXPECT_EQ(findingLines(Tavctl({"pictures", "--json", directory.filePath("theme")})).filter("TAV505").size(), 3);
}

TEST_F(PicturesCommand, ListsADirectoryOnceForEachNameUnderWhichItIsReached)
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

TEST_F(PicturesCommand, ReportsADirectoryThatIsNamedTwiceOnce)
{
    for (const char *const name : {"same-key", "undecodable", "subdirectory"}) {
        const QString path = broken + "/pictures/" + name;
        EXPECT_EQ(findingLines(Tavctl({"pictures", "--json", path, path})).size(), 1) << name;
    }
}

TEST_F(PicturesCommand, TakesAFileThatItReachesTwiceForOne)
{
    put("all/icon.png", contentOf(broken + "/pictures/same-key/icon.png"));
    ASSERT_TRUE(QDir(directory.path()).mkdir("other"));
    ASSERT_TRUE(QFile::link(directory.filePath("all"), directory.filePath("other/all")));
    const Tavctl run({"pictures", "--json", directory.filePath("all"), directory.filePath("other/all")});
    EXPECT_EQ(findingLines(run), QStringList());
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
}

TEST_F(PicturesCommand, LeavesNamesThatDifferInCaseToChanceAndSpecialFilesClosed)
{
    const QByteArray png = contentOf(broken + "/pictures/same-key/icon.png");
    put("case/icon.png", png);
    put("case/Icon.png", png);
    const Tavctl byCase({"pictures", "--json", directory.filePath("case")});
    ASSERT_EQ(findingLines(byCase).size(), 1);
    EXPECT_TRUE(findingLines(byCase).first().contains(": error: TAV502: "));
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
                          + ": error: TAV504: not a regular file; the plugin holds an empty picture for the key "
                            "PIPES/ICON; put a PNG "
                            "picture in its place"});
}
