#include "TestWindow.h"

#include "AgentFeeder.h"
#include "Recording.h"
#include "TavScenarioPlayer.h"

#include <QMessageBox>
#include <QTableView>

namespace
{
using State = Recording::State;

bool waitForState(const Recording &recording, State state)
{
    return waitUntil([&] { return recording.state() == state; });
}
}

TEST(Recording, WritesTheCallsOfAgentAndWindowAsAScenarioThatPlays)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath("recorded.jsonl");
    {
        TestWindow client;
        Recording &recording = client.window->recording();
        recording.begin(file);
        ASSERT_TRUE(waitForState(recording, State::On));
        client.action("Feed")->trigger();
        ASSERT_TRUE(waitUntil([&] { return !client.window->feeder().isFeeding(); }));
        client.session.call("ITavNetControlMgr", "setState", QJsonArray{QJsonObject{{"state", 42}}});
        client.action("Record…")->trigger();
        ASSERT_TRUE(waitForState(recording, State::Off));
        EXPECT_FALSE(client.window->findChild<QMessageBox *>());
    }
    TavPluginHost host(TAV_PLUGIN_FILE);
    QFile input(file);
    ASSERT_TRUE(input.open(QIODevice::ReadOnly));
    TavPlayOptions options;
    options.speed = TavPlayOptions::fastest;
    const TavPlayReport report = TavScenarioPlayer(host, input, options).wait();
    EXPECT_FALSE(report.error) << report.error->what();
    EXPECT_GT(report.lines, 20) << "what the agent has fed is in it";
    const QJsonValue state
        = TavCall::call(host.managerObject("ITavNetControlMgr"), "ITavNetControlMgr", "getState", QJsonArray());
    EXPECT_EQ(state["state"].toInt(), 42);
}

TEST(Recording, SaysWhenTheFileCannotBeWritten)
{
    const TestWindow client;
    client.window->recording().begin("/proc/no/such/folder.jsonl");
    EXPECT_TRUE(waitUntil([&] { return client.window->findChild<QMessageBox *>() != nullptr; }));
    EXPECT_EQ(client.window->recording().state(), State::Off);
}

TEST(Recording, IsNotOnWhenNobodyHasWaitedForItsBeginning)
{
    const TestWindow client;
    const QTemporaryDir directory;
    Recording &recording = client.window->recording();
    recording.begin(directory.filePath("left.jsonl"));
    recording.leave();
    EXPECT_EQ(recording.state(), State::Off);
    recording.begin(directory.filePath("next.jsonl"));
    EXPECT_TRUE(waitUntil([&recording] { return recording.state() == State::On; }));
    EXPECT_TRUE(recording.file().endsWith("next.jsonl"));
    recording.end();
    recording.leave();
    EXPECT_EQ(recording.state(), State::Off) << "the file is ended by itself";
}

TEST(Feeding, BeginsWithItsKeyWhereverTheFocusIs)
{
    const TestWindow client;
    client.click(CTavSubFuncTypeHeader::SubFunc_LogAudit);
    ASSERT_TRUE(client.waitForPage(CTavSubFuncTypeHeader::SubFunc_LogAudit));
    QTableView *list = nullptr;
    ASSERT_TRUE(waitUntil([&] { return (list = client.window->pages().findChild<QTableView *>()) != nullptr; }));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F5);
    EXPECT_TRUE(client.window->feeder().isFeeding());
}

TEST(Feeding, IsRepeatedUntilItIsSwitchedOff)
{
    const TestWindow client;
    int fed = 0;
    QObject::connect(&client.window->feeder(), &AgentFeeder::fed, client.window.get(), [&fed] { ++fed; });
    client.window->feeder().repeat(1);
    EXPECT_TRUE(waitUntil([&] { return fed >= 2; }));
    client.window->feeder().repeat(0);
    EXPECT_FALSE(client.window->feeder().isRepeating());
}

TEST(Feeding, IsGivenUpAtOnce)
{
    const TestWindow client;
    int fed = 0;
    QObject::connect(&client.window->feeder(), &AgentFeeder::fed, client.window.get(), [&fed] { ++fed; });
    client.window->feeder().feed();
    client.window->feeder().stop();
    EXPECT_FALSE(client.window->feeder().isFeeding());
    client.window->feeder().feed();
    EXPECT_TRUE(waitUntil([&] { return fed == 1; }));
    QTest::qWait(300);
    EXPECT_EQ(fed, 1) << "the word of the feeding that was given up does not count";
}
