#include "TestWindow.h"

#include "../tavctl/ScenarioFiles.h"
#include "AgentFeeder.h"
#include "Recording.h"
#include "ScenarioPlay.h"

#include <QDockWidget>

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

TEST(Closing, LeavesTheOtherOfTwoWindowsAlone)
{
    auto first = std::make_unique<TestWindow>();
    TestWindow second;
    first.reset();
    second.click(CTavSubFuncTypeHeader::SubFunc_LogAudit);
    EXPECT_TRUE(second.waitForPage(CTavSubFuncTypeHeader::SubFunc_LogAudit));
}
