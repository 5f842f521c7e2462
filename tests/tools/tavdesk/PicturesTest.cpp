#include "Program.h"
#include "TextFile.h"

#include "../tavctl/ScenarioFiles.h"

#include <QDir>
#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace
{
/// The real program, run to its end by the command @p runner, under an emulator when the tests are.
Program runDesk(const QStringList &arguments, const QStringList &runner = {})
{
    const QStringList emulator = QString(TAV_EMULATOR).split(' ', Qt::SkipEmptyParts);
    return Program(runner + emulator + QStringList{TAV_TAVDESK_FILE} + arguments);
}

/// Whether there are two colours in the middle of a picture, where it would be empty if nothing had been drawn.
bool isDrawnOn(const QImage &picture)
{
    const QImage middle
        = picture.copy(picture.width() / 4, picture.height() / 4, picture.width() / 2, picture.height() / 2);
    QImage empty = middle;
    empty.fill(middle.pixelColor(0, 0));
    return middle != empty;
}

const QStringList onDemo{"--root", TAV_SOURCE_DIR "/share/demo"};
const QStringList played{"--play", TAV_SOURCE_DIR "/share/scenarios/access-control.jsonl"};
// Without OpenGL, which the window does not draw with: the drivers of a system that has them leave memory behind.
const QStringList onDisplay{
    "xvfb-run", "-a", "-s", "-screen 0 1600x1200x24", "env", "QT_QPA_PLATFORM=xcb", "QT_XCB_GL_INTEGRATION=none"};

/// Whether a program can be given a display of its own.
bool hasDisplay()
{
    return !QStandardPaths::findExecutable("xvfb-run").isEmpty() && !QStandardPaths::findExecutable("xauth").isEmpty();
}

/// @brief The program while it takes its pictures.
class Tour
{
public:
    explicit Tour(const QStringList &arguments, const QStringList &runner = {}, const QString &directory = {})
        : m_directory(directory.isEmpty() ? m_ownDirectory.path() : directory)
        , m_desk(std::async(std::launch::async, runDesk,
                            onDemo + arguments + QStringList{"--pictures", m_directory.path()}, runner)
                     .share())
    {
    }

    /// How it ended; waits for that.
    const Program &ended() const
    {
        return m_desk.get();
    }

    const QDir &directory() const
    {
        return m_directory;
    }

    QStringList files() const
    {
        return m_directory.entryList(QDir::Files);
    }

private:
    const QTemporaryDir m_ownDirectory;
    const QDir m_directory;
    const std::shared_future<Program> m_desk;
};

const QByteArray keptSettings = "[window]\ndocks=@ByteArray(kept)\n";

/// The file with the window's settings, written.
QString withSettings(const QTemporaryDir &config)
{
    const QString file = config.filePath("tavsec/tavdesk.conf");
    writeFile(file, keptSettings);
    return file;
}

/// @brief What the tests look at. A tour takes ten seconds, most of which it waits for its pages to be read: all of
/// them are under way at once.
struct Tours {
    const QTemporaryDir config;
    const QString settings = withSettings(config);
    const QStringList sharing{"env", "XDG_CONFIG_HOME=" + config.path()};
    const ScenarioFile broken{"{\"at\": -1}\n"};
    const Tour onDisplay{{}, ::onDisplay};
    const Tour first{played, sharing};
    const Tour second{played, sharing};
    const Tour unwritable{{}, {}, "/proc/no/such"};
    const Tour withoutPlugin{{"--plugin", "/nonexistent.so"}};
    const Tour withoutPage{{"--page", "/nonexistent.so"}};
    const Tour withBrokenScenario{{"--play", broken.path()}};
    const Tour withThrowingPage{{"--page", TAV_THROWING_WIDGET_FILE}};
    const Tour withoutWidget{{"--page", TAV_THROWING_PAGE_FILE}};
};

class Pictures : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        tours = std::make_unique<Tours>();
    }

    static void TearDownTestSuite()
    {
        tours.reset();
    }

    static void expectProblem(const Tour &tour, const char *problem)
    {
        EXPECT_EQ(tour.ended().exitCode, 2);
        EXPECT_TRUE(tour.ended().errors.contains(problem)) << tour.ended().errors.toStdString();
    }

    static inline std::unique_ptr<Tours> tours;
};
}

TEST_F(Pictures, AreSavedOfEachPageEachDockAndTheWindow)
{
    const Tour &tour = tours->first;
    EXPECT_EQ(tour.ended().exitCode, 0) << tour.ended().errors.toStdString();
    const QStringList files = tour.files();
    EXPECT_EQ(files.filter("page-").size(), 14) << files.join(' ').toStdString();
    EXPECT_EQ(files.filter("dock-").size(), 7) << files.join(' ').toStdString();
    EXPECT_EQ(QImage(tour.directory().filePath("window.png")).size(), QSize(1280, 860));
    for (const QString &file : files) {
        EXPECT_TRUE(isDrawnOn(QImage(tour.directory().filePath(file)))) << file.toStdString();
    }
}

TEST_F(Pictures, AreTakenOfAWindowOnADisplay)
{
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no xvfb-run: the window is not tried on a display";
    }
    const Tour &tour = tours->onDisplay;
    EXPECT_EQ(tour.ended().exitCode, 0) << tour.ended().errors.toStdString();
    EXPECT_EQ(QImage(tour.directory().filePath("window.png")).size(), QSize(1280, 860));
}

TEST_F(Pictures, AreTakenByTwoProgramsAtOnceThatShareTheirSettings)
{
    for (const Tour *const tour : {&tours->first, &tours->second}) {
        EXPECT_EQ(tour->ended().exitCode, 0) << tour->ended().errors.toStdString();
    }
    EXPECT_EQ(tours->first.files().size(), 22);
    EXPECT_EQ(tours->first.files(), tours->second.files());
    EXPECT_EQ(contentOf(tours->settings), keptSettings) << "nobody has moved a window";
}

TEST_F(Pictures, EndWithTwoWhenTheyCannotBeWritten)
{
    expectProblem(tours->unwritable, "cannot be written");
}

TEST_F(Pictures, EndWithTwoWhenThereIsNoPlugin)
{
    expectProblem(tours->withoutPlugin, "/nonexistent.so");
}

TEST_F(Pictures, EndWithTwoWhenAPageIsRefused)
{
    expectProblem(tours->withoutPage, "/nonexistent.so is not shown");
}

TEST_F(Pictures, EndWithTwoWhenTheScenarioIsBroken)
{
    expectProblem(tours->withBrokenScenario, "line 2: /at");
}

TEST_F(Pictures, GoOnWhenAPageThrowsAndEndWithTwo)
{
    expectProblem(tours->withThrowingPage, "ThrowingWidget threw: no light today");
    EXPECT_TRUE(tours->withThrowingPage.files().contains("window.png"));
}

TEST_F(Pictures, GoOnWhenAPageCannotBeMadeAndEndWithTwo)
{
    expectProblem(tours->withoutWidget, "The page cannot be shown: ");
    EXPECT_TRUE(tours->withoutWidget.files().contains("window.png"));
}

TEST(Window, OpensOnADisplayAndEndsTheProgramWhenItIsClosed)
{
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no xvfb-run: the window is not tried on a display";
    }
    const QTemporaryDir config;
    const Program desk = runDesk(onDemo + played + QStringList{"--page", TAV_CLOSING_PAGE_FILE},
                                 onDisplay + QStringList{"XDG_CONFIG_HOME=" + config.path()});
    EXPECT_EQ(desk.exitCode, 0) << desk.errors.toStdString();
    EXPECT_TRUE(contentOf(config.filePath("tavsec/tavdesk.conf")).contains("place="))
        << "where the window was is kept for the next start";
}

TEST(CommandLine, IsExplainedAndMistakesAreNamed)
{
    EXPECT_EQ(runDesk({"--help"}).exitCode, 0);
    const Program desk = runDesk({"--rot", "/"});
    EXPECT_EQ(desk.exitCode, 2);
    EXPECT_TRUE(desk.errors.contains("--rot")) << desk.errors.toStdString();
}
