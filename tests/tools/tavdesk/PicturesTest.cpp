#include "Program.h"
#include "TextFile.h"

#include "../tavctl/ScenarioFiles.h"

#include <QDir>
#include <QImage>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <future>
#include <vector>

namespace
{
/// The real program, run to its end by the command @p runner, under an emulator when the tests are.
Program runDesk(const QStringList &arguments, const QStringList &runner = {})
{
    const QStringList emulator = QString(TAV_EMULATOR).split(' ', Qt::SkipEmptyParts);
    return Program(runner + emulator + QStringList{TAV_TAVDESK_FILE} + arguments);
}

/// How many colours there are in the middle of a picture, where it would be empty if nothing had been drawn.
int coloursInside(const QImage &picture)
{
    QSet<QRgb> colours;
    for (int y = picture.height() / 4; y < picture.height() * 3 / 4; ++y) {
        for (int x = picture.width() / 4; x < picture.width() * 3 / 4; ++x) {
            colours.insert(picture.pixel(x, y));
        }
    }
    return colours.size();
}

const QStringList onDemo{"--root", TAV_SOURCE_DIR "/share/demo"};
const QStringList played{"--play", TAV_SOURCE_DIR "/share/scenarios/access-control.jsonl"};
}

TEST(Pictures, AreSavedOfEachPageEachDockAndTheWindow)
{
    const QTemporaryDir directory;
    const Program desk = runDesk(onDemo + QStringList{"--pictures", directory.path()});
    EXPECT_EQ(desk.exitCode, 0) << desk.errors.toStdString();
    const QStringList files = QDir(directory.path()).entryList(QDir::Files);
    EXPECT_EQ(files.filter("page-").size(), 14) << files.join(' ').toStdString();
    EXPECT_EQ(files.filter("dock-").size(), 7) << files.join(' ').toStdString();
    EXPECT_EQ(QImage(directory.filePath("window.png")).size(), QSize(1280, 860));
    for (const QString &file : files) {
        EXPECT_GT(coloursInside(QImage(directory.filePath(file))), 1) << file.toStdString();
    }
}

/// On a display of its own; skipped where there is none to be had.
class OnDisplay : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const QString &program : {QStringLiteral("xvfb-run"), QStringLiteral("xauth")}) {
            if (QStandardPaths::findExecutable(program).isEmpty()) {
                GTEST_SKIP() << "there is no " << program.toStdString() << ": the window is not tried on a display";
            }
        }
    }

    const QTemporaryDir directory;
    const QStringList display{"xvfb-run", "-a", "-s", "-screen 0 1600x1200x24", "env", "QT_QPA_PLATFORM=xcb"};
};

TEST_F(OnDisplay, PicturesAreTakenOfTheWindow)
{
    const Program desk = runDesk(onDemo + played + QStringList{"--pictures", directory.path()}, display);
    EXPECT_EQ(desk.exitCode, 0) << desk.errors.toStdString();
    const QImage window(directory.filePath("window.png"));
    EXPECT_EQ(window.size(), QSize(1280, 860));
}

TEST_F(OnDisplay, TheWindowOpensAndTheProgramEndsWhenItIsClosed)
{
    const QString settings = directory.filePath("tavsec/tavdesk.conf");
    const Program desk = runDesk(onDemo + played + QStringList{"--page", TAV_CLOSING_PAGE_FILE},
                                 display + QStringList{"XDG_CONFIG_HOME=" + directory.path()});
    EXPECT_EQ(desk.exitCode, 0) << desk.errors.toStdString();
    EXPECT_TRUE(contentOf(settings).contains("place=")) << "where the window was is kept for the next start";
}

TEST(Pictures, AreTakenByTwoProgramsAtOnceThatShareTheirSettings)
{
    const QTemporaryDir directory;
    const QString settings = directory.filePath("config/tavsec/tavdesk.conf");
    const QByteArray kept = "[window]\ndocks=@ByteArray(kept)\n";
    writeFile(settings, kept);
    std::vector<std::future<Program>> desks;
    for (const QString &name : {QStringLiteral("first"), QStringLiteral("second")}) {
        desks.push_back(std::async(std::launch::async, [&directory, name] {
            return runDesk(onDemo + played + QStringList{"--pictures", directory.filePath(name)},
                           {"env", "XDG_CONFIG_HOME=" + directory.filePath("config")});
        }));
    }
    for (auto &desk : desks) {
        const Program ended = desk.get();
        EXPECT_EQ(ended.exitCode, 0) << ended.errors.toStdString();
    }
    const auto filesOf
        = [&directory](const QString &name) { return QDir(directory.filePath(name)).entryList(QDir::Files); };
    EXPECT_EQ(filesOf("first").size(), 22);
    EXPECT_EQ(filesOf("first"), filesOf("second"));
    EXPECT_EQ(contentOf(settings), kept) << "nobody has moved a window";
}

TEST(Pictures, EndWithTwoWhenTheyCannotBeWritten)
{
    const Program desk = runDesk(onDemo + QStringList{"--pictures", "/proc/no/such"});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("cannot be written")) << desk.errors.toStdString();
}

TEST(Pictures, EndWithTwoWhenThereIsNoPlugin)
{
    const QTemporaryDir directory;
    const Program desk = runDesk(onDemo + QStringList{"--plugin", "/nonexistent.so", "--pictures", directory.path()});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("/nonexistent.so")) << desk.errors.toStdString();
}

TEST(Pictures, EndWithTwoWhenAPageIsRefused)
{
    const QTemporaryDir directory;
    const Program desk = runDesk(onDemo + QStringList{"--page", "/nonexistent.so", "--pictures", directory.path()});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("/nonexistent.so is not shown")) << desk.errors.toStdString();
}

TEST(Pictures, EndWithTwoWhenTheScenarioIsBroken)
{
    const QTemporaryDir directory;
    const ScenarioFile broken("{\"at\": -1}\n");
    const Program desk = runDesk(onDemo + QStringList{"--play", broken.path(), "--pictures", directory.path()});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("line 2: /at")) << desk.errors.toStdString();
}

TEST(Pictures, GoOnWhenAPageThrowsAndEndWithTwo)
{
    const QTemporaryDir directory;
    const Program desk
        = runDesk(onDemo + QStringList{"--page", TAV_THROWING_WIDGET_FILE, "--pictures", directory.path()});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("ThrowingWidget threw: no light today")) << desk.errors.toStdString();
    EXPECT_TRUE(QFile::exists(directory.filePath("window.png")));
}

TEST(Pictures, GoOnWhenAPageCannotBeMadeAndEndWithTwo)
{
    const QTemporaryDir directory;
    const Program desk
        = runDesk(onDemo + QStringList{"--page", TAV_THROWING_PAGE_FILE, "--pictures", directory.path()});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("The page cannot be shown: ")) << desk.errors.toStdString();
    EXPECT_TRUE(QFile::exists(directory.filePath("window.png")));
}

TEST(CommandLine, IsExplainedAndMistakesAreNamed)
{
    EXPECT_EQ(runDesk({"--help"}).exitCode, 0);
    const Program desk = runDesk({"--rot", "/"});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("--rot")) << desk.errors.toStdString();
}
