#include "TestWindow.h"

#include "../tavctl/ScenarioFiles.h"
#include "ITavNetControlMgr.h"
#include "ScenarioPlay.h"

#include <QComboBox>
#include <QDockWidget>
#include <QDropEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QRegularExpression>
#include <QSlider>
#include <QStatusBar>
#include <QThread>

namespace
{
using State = ScenarioPlay::State;

/// Three states, a second from one to the next.
const QByteArray threeStates = R"({"manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 1}]}
{"at": 1, "manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 2}]}
{"at": 2, "thread": "gui", "manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 3}]}
)";

/// The same, with an hour from one to the next: what is played of them shows where the play began.
const QByteArray distantStates
    = R"({"manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 1}]}
{"at": 3600, "manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 2}]}
{"at": 7200, "manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 3}]}
)";
constexpr qint64 hour = 3'600'000'000; // microseconds

/// @brief The window with a scenario open.
struct TestPlay : TestWindow {
    explicit TestPlay(const QByteArray &lines = threeStates) : file(lines)
    {
        play().open(file.path());
        EXPECT_TRUE(waitUntil([this] { return play().state() == State::Ready; }));
    }

    ScenarioPlay &play() const
    {
        return window->play();
    }

    int heldState()
    {
        return session.host().manager<ITavNetControlMgr>()->getState().state();
    }

    bool waitForState(State state) const
    {
        return waitUntil([this, state] { return play().state() == state; });
    }

    const ScenarioFile file;
};

/// @brief Sees whether a widget is asked if it takes what is dragged over it.
struct DragWatch : QObject {
    bool eventFilter(QObject *, QEvent *event) override
    {
        isAsked = isAsked || event->type() == QEvent::DragEnter;
        return false;
    }

    bool isAsked = false;
};
}

TEST(Play, ShowsHowLongTheScenarioIs)
{
    const TestPlay test;
    EXPECT_EQ(test.named<QSlider>("Place in the scenario")->maximum(), 2000);
    EXPECT_TRUE(labelTexts(*test.window).contains("0:00.0 / 0:02.0"));
}

TEST(Play, PlaysAScenarioThatIsDroppedOnTheWindow)
{
    const TestWindow client;
    const ScenarioFile file(threeStates);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file.path())});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(client.window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(client.window.get(), &drop);
    EXPECT_TRUE(waitUntil([&] { return client.window->play().state() == State::Ready; }));
}

TEST(Play, PlaysAScenarioThatIsDroppedOnAField)
{
    const TestWindow client;
    const QTemporaryDir directory;
    const QString file = directory.filePath("LOUD.JSONL");
    writeFile(file, "{\"tavScenario\": 1}\n");
    client.window->findChild<QDockWidget *>("calls")->raise();
    auto *const filter = client.named<QLineEdit>("Filter of Calls");
    DragWatch watch;
    filter->installEventFilter(&watch);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    data.setText(file); // as file managers do
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(filter, &enter);
    EXPECT_FALSE(watch.isAsked);
    EXPECT_TRUE(enter.isAccepted()) << "by the window, which is where the drop goes";
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(client.window.get(), &drop);
    EXPECT_TRUE(waitUntil([&] { return client.window->play().state() == State::Ready; }));
}

TEST(Play, LeavesAFieldTheTextThatIsDroppedOnIt)
{
    const TestWindow client;
    auto *const filter = client.named<QLineEdit>("Filter of Calls");
    QMimeData data;
    data.setText("setState");
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(filter, &enter);
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(filter, &drop);
    EXPECT_EQ(filter->text(), "setState");
}

TEST(Play, CountsNoCallsBeforeItHasReadTheScenario)
{
    const TestWindow client;
    const ScenarioFile file(threeStates);
    client.window->play().open(file.path());
    ASSERT_EQ(client.window->play().state(), State::Opening);
    EXPECT_FALSE(labelTexts(*client.window->statusBar()).contains("0 of 0"));
    ASSERT_TRUE(waitUntil([&] { return client.window->play().state() == State::Ready; }));
    EXPECT_TRUE(labelTexts(*client.window->statusBar()).contains("0 of 3"));
}

TEST(Play, MakesTheCallsAndNotesThemInTheLog)
{
    TestPlay test;
    test.play().setSpeed(TavPlayOptions::fastest);
    test.action("Play")->trigger();
    EXPECT_TRUE(test.waitForState(State::Ready));
    EXPECT_EQ(test.heldState(), 3);
    const auto calls = test.session.calls().from(0).entries;
    ASSERT_EQ(calls.size(), 3);
    EXPECT_EQ(calls[0].operation, "setState");
    EXPECT_EQ(calls[0].thread, "agent");
    EXPECT_EQ(calls[2].thread, "gui");
    EXPECT_GT(calls[0].bytes, 0);
}

TEST(Play, StandsWhilePausedAndMakesOneCallAStep)
{
    TestPlay test;
    test.action("Step")->trigger();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 1; }));
    EXPECT_EQ(test.play().state(), State::Paused);
    test.action("Step")->trigger();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 2; }));
    QTest::qWait(1200);
    EXPECT_EQ(test.heldState(), 2) << "the third call is not made while the play stands";
    test.action("Play")->trigger();
    EXPECT_TRUE(test.waitForState(State::Ready));
    EXPECT_EQ(test.heldState(), 3);
}

TEST(Play, GoesToThePlaceOfTheSlider)
{
    TestPlay test;
    test.named<QSlider>("Place in the scenario")->setValue(1500);
    EXPECT_EQ(test.play().position(), 1'500'000);
    test.action("Play")->trigger();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 2; })) << "what is before is made at once";
    test.play().stop();
    EXPECT_TRUE(test.waitForState(State::Ready));
}

TEST(Play, MakesTheCallsBeforeAPlaceAlsoWhereItBeginsWithAStep)
{
    TestPlay test(distantStates);
    test.play().seek(hour + 1);
    test.play().step();
    EXPECT_TRUE(test.waitForState(State::Ready)) << "the third call is the last";
    EXPECT_EQ(test.heldState(), 3);
}

TEST(Play, BeginsAtTheVeryEnd)
{
    TestPlay test(distantStates);
    test.play().seek(2 * hour);
    test.play().play();
    EXPECT_TRUE(test.waitForState(State::Ready));
    EXPECT_EQ(test.heldState(), 3);
}

TEST(Play, GoesToTheLastOfThePlacesThatWereAskedForAtOnce)
{
    TestPlay test(distantStates);
    test.play().step();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 1; }));
    test.play().seek(1);
    test.play().seek(hour + 1);
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 2; }));
    EXPECT_EQ(test.play().state(), State::Paused) << "as it was before";
    EXPECT_EQ(test.play().position(), hour + 1);
}

TEST(Play, DoesNotFallBackToTheCallThatWasMadeLast)
{
    TestPlay test(distantStates);
    test.play().setLooped(true);
    test.play().seek(hour + 1);
    test.play().play();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 2; }));
    QTest::qWait(200);
    EXPECT_EQ(test.play().position(), hour + 1);
}

TEST(Play, BeginsAgainAtItsEndWhenThatIsAskedForWhileItPlays)
{
    TestPlay test;
    test.play().setSpeed(10);
    test.action("Play")->trigger();
    EXPECT_EQ(test.play().state(), State::Playing);
    test.action("Loop")->trigger();
    EXPECT_TRUE(waitUntil([&] { return test.play().turn() >= 3; }));
    EXPECT_TRUE(labelTexts(*test.window).contains(QRegularExpression(": [0-3] of 3 call.*, turn \\d+\n")))
        << labelTexts(*test.window).toStdString();
    test.action("Loop")->trigger();
    EXPECT_TRUE(test.waitForState(State::Ready)) << "it ends with the turn under way";
    EXPECT_EQ(test.play().linesPlayed(), 3);
}

TEST(Play, StopsAndBeginsAgain)
{
    TestPlay test;
    test.action("Play")->trigger();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 1; }));
    test.action("Stop")->trigger();
    EXPECT_TRUE(test.waitForState(State::Ready));
    EXPECT_LT(test.heldState(), 3);
    test.play().seek(0);
    test.play().setSpeed(TavPlayOptions::fastest);
    test.action("Play")->trigger();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 3; }));
}

TEST(Play, StandsAtTheEndWhenItHasEndedAndBeginsAnewFromThere)
{
    TestPlay test;
    auto *const slider = test.named<QSlider>("Place in the scenario");
    test.play().setSpeed(TavPlayOptions::fastest);
    test.action("Play")->trigger();
    EXPECT_TRUE(test.waitForState(State::Ready));
    EXPECT_EQ(test.heldState(), 3);
    EXPECT_TRUE(waitUntil([&] { return slider->value() == slider->maximum(); }));
    EXPECT_TRUE(labelTexts(*test.window).contains("0:02.0 / 0:02.0"));
    test.action("Step")->trigger();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 1; })) << "the first line is played again";
    EXPECT_TRUE(waitUntil([&] { return slider->value() == 0; }));
}

TEST(Play, OpensThePagesThatTheScenarioSelects)
{
    TestPlay test(R"({"thread": "gui", "page": "SubFunc_LogAudit"})");
    test.action("Play")->trigger();
    EXPECT_TRUE(test.waitForPage(CTavSubFuncTypeHeader::SubFunc_LogAudit));
    EXPECT_TRUE(test.waitForState(State::Ready));
    EXPECT_EQ(test.session.calls().from(0).entries.value(0).operation, "setCurSelType");
}

TEST(Play, SaysWhatIsWrongWithAScenario)
{
    const TestWindow client;
    const ScenarioFile file("{\"at\": -1}\n");
    client.window->play().open(file.path());
    QMessageBox *box = nullptr;
    ASSERT_TRUE(waitUntil([&] { return (box = client.window->findChild<QMessageBox *>()) != nullptr; }));
    EXPECT_TRUE(box->text().contains(file.path()));
    EXPECT_TRUE(box->informativeText().contains("line 2: /at"));
    EXPECT_EQ(client.window->play().state(), State::Empty);
}

TEST(Play, SaysWhichLineHasEndedThePlay)
{
    TestPlay test(R"({"manager": "ITavNetControlMgr", "operation": "reverseDeviceState", "arguments": [99]})");
    test.action("Play")->trigger();
    QMessageBox *box = nullptr;
    ASSERT_TRUE(waitUntil([&] { return (box = test.window->findChild<QMessageBox *>()) != nullptr; }));
    EXPECT_TRUE(box->informativeText().contains("line 2"));
}

TEST(Play, IsReadyAgainAtOnceWhenNobodyWaitsForItsLastCalls)
{
    TestPlay test;
    test.play().play();
    test.play().stop();
    EXPECT_EQ(test.play().state(), State::Stopping);
    test.play().leave();
    EXPECT_EQ(test.play().state(), State::Ready);
    test.play().setSpeed(TavPlayOptions::fastest);
    test.play().play();
    EXPECT_TRUE(waitUntil([&] { return test.heldState() == 3; }));
    EXPECT_TRUE(test.waitForState(State::Ready));
}

TEST(Play, IsEmptyWhenItIsStoppedAsTheReadingEnds)
{
    const TestWindow client;
    const ScenarioFile file(threeStates);
    client.window->play().open(file.path(), ScenarioPlay::Opened::Play);
    QThread::msleep(300); // it has been read, and this thread is not told yet
    client.action("Stop")->trigger();
    ASSERT_TRUE(waitUntil([&] { return client.window->play().state() != State::Opening; }));
    EXPECT_EQ(client.window->play().state(), State::Empty);
    EXPECT_FALSE(client.window->findChild<QMessageBox *>());
}

TEST(Play, ShowsTheSpeedThatAnybodyHasSet)
{
    const TestWindow client;
    const auto *const speed = client.named<QComboBox>("Speed");
    EXPECT_EQ(speed->currentText(), QString::fromUtf8("1×"));
    client.window->play().setSpeed(TavPlayOptions::fastest);
    EXPECT_EQ(speed->currentText(), "fastest");
    client.window->play().setSpeed(10);
    EXPECT_EQ(speed->currentText(), QString::fromUtf8("10×"));
}
