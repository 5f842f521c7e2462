#include "TestWindow.h"

#include "../tavctl/ScenarioFiles.h"
#include "AgentFeeder.h"
#include "ITavNetControlMgr.h"
#include "Recording.h"
#include "ScenarioPlay.h"

#include <QDockWidget>
#include <QTabBar>

namespace
{
/// Calls on four threads for a long time.
QByteArray longScenario()
{
    QByteArray lines;
    for (int i = 0; i < 20'000; ++i) {
        lines += "{\"at\": " + QByteArray::number(i / 1000.0) + R"(, "thread": "agent)"
            + (i % 4 == 0 ? "" : QByteArray::number(i % 4 + 1))
            + R"(", "manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": )"
            + QByteArray::number(i) + "}]}\n";
    }
    return lines;
}
}

TEST(Closing, EndsWellAtAnyMomentOfAPlay)
{
    const ScenarioFile file(longScenario());
    for (const int milliseconds : {0, 1, 5, 20, 100, 300, 700}) {
        const TestWindow client;
        client.window->play().open(file.path(), ScenarioPlay::Opened::Play);
        QTest::qWait(milliseconds);
        client.window->close();
    }
}

TEST(Closing, EndsWellAtAnyMomentOfAFeedingThatIsRecorded)
{
    const QTemporaryDir directory;
    for (const int milliseconds : {0, 1, 5, 20, 100, 300}) {
        const TestWindow client;
        client.window->recording().begin(directory.filePath("recorded.jsonl"));
        client.window->feeder().repeat(1);
        QTest::qWait(milliseconds);
        client.window->close();
    }
}

TEST(Closing, KeepsThePlaceOfTheDocks)
{
    {
        const TestWindow client;
        client.window->findChild<QDockWidget *>("registry")->hide();
        client.window->close();
    }
    const TestWindow client;
    EXPECT_TRUE(client.window->findChild<QDockWidget *>("registry")->toggleViewAction()->isChecked());
    client.window->restorePlace();
    EXPECT_FALSE(client.window->findChild<QDockWidget *>("registry")->toggleViewAction()->isChecked());
    client.window->findChild<QDockWidget *>("registry")->show();
    client.window->close();
}

TEST(Closing, OfTheNewerOfTwoWindowsLeavesTheOlderItsValues)
{
    TestWindow older;
    auto newer = std::make_unique<TestWindow>();
    auto &net = *older.session.host().manager<ITavNetControlMgr>();
    net.setUIData({{false, 1, "a"}});
    newer->session.host().manager<ITavNetControlMgr>()->setUIData({{false, 1, "a"}, {false, 2, "b"}});
    older.click(CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
    ASSERT_TRUE(older.waitForPage(CTavSubFuncTypeHeader::SubFunc_serverResourceInfo));
    const auto shows = [&older](const QString &title) {
        const QList<QTabBar *> bars = older.window->pages().findChildren<QTabBar *>();
        return std::any_of(bars.begin(), bars.end(), [&title](const QTabBar *bar) {
            for (int tab = 0; tab < bar->count(); ++tab) {
                if (bar->tabText(tab) == title) {
                    return true;
                }
            }
            return false;
        });
    };
    EXPECT_TRUE(waitUntil([&] { return shows("Network rows (1)"); })) << "each window shows its own";
    newer.reset();
    net.setUIData({{false, 1, "a"}, {false, 2, "b"}, {false, 3, "c"}});
    EXPECT_TRUE(waitUntil([&] { return shows("Network rows (3)"); })) << "and goes on";
}

TEST(Closing, LeavesTheOtherOfTwoWindowsAlone)
{
    auto first = std::make_unique<TestWindow>();
    TestWindow second;
    first.reset();
    second.click(CTavSubFuncTypeHeader::SubFunc_LogAudit);
    EXPECT_TRUE(second.waitForPage(CTavSubFuncTypeHeader::SubFunc_LogAudit));
}
