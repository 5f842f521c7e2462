#include "Program.h"

#include "../tavctl/ScenarioFiles.h"

#include <QDir>
#include <QImage>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{
/// The real program, run to its end, under an emulator when the tests are.
Program runDesk(const QStringList &arguments)
{
    const QStringList emulator = QString(TAV_EMULATOR).split(' ', Qt::SkipEmptyParts);
    return Program(emulator + QStringList{TAV_TAVDESK_FILE} + arguments);
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

TEST(CommandLine, IsExplainedAndMistakesAreNamed)
{
    EXPECT_EQ(runDesk({"--help"}).exitCode, 0);
    const Program desk = runDesk({"--rot", "/"});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("--rot")) << desk.errors.toStdString();
}
