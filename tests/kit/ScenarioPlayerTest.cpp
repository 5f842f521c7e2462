#include "TavScenarioPlayer.h"

#include "ITavNetControlMgr.h"
#include "ITavSelectFuncMgr.h"
#include "ITavSystemConfigMgr.h"
#include "PrintQString.h"
#include "ScenarioText.h"
#include "TavEvents.h"
#include "TavPluginHost.h"
#include "TavSubscription.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

namespace
{
QByteArray setState(int state, const QByteArray &keys = {})
{
    return '{' + keys + R"("manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": )"
        + QByteArray::number(state) + "}]}";
}

QByteArray getState(int state, const QByteArray &keys = {})
{
    return '{' + keys + R"("manager": "ITavNetControlMgr", "operation": "getState", "arguments": [], "returns": )"
        + R"({"state": )" + QByteArray::number(state) + "}}";
}

TavPlayOptions checked()
{
    TavPlayOptions options;
    options.speed = TavPlayOptions::fastest;
    options.isChecked = true;
    return options;
}

TavPlayOptions atSpeed(double speed)
{
    TavPlayOptions options;
    options.speed = speed;
    return options;
}

class ScenarioPlayer : public testing::Test
{
protected:
    TavPlayReport play(const QList<QByteArray> &lines, const TavPlayOptions &options)
    {
        QByteArray text = scenarioOf(lines);
        QBuffer buffer(&text);
        buffer.open(QIODevice::ReadOnly);
        return TavScenarioPlayer(host, buffer, options).wait();
    }

    QString mistake(const QList<QByteArray> &lines, const TavPlayOptions &options)
    {
        const TavPlayReport report = play(lines, options);
        return report.error ? report.error->what() : "";
    }

    int state()
    {
        return host.manager<ITavNetControlMgr>()->getState().state();
    }

    TavPluginHost host{TAV_PLUGIN_FILE};
};
}

TEST_F(ScenarioPlayer, MakesTheCallsInTheirOrder)
{
    const TavPlayReport report = play({setState(1), getState(1), setState(2), getState(2)}, checked());
    EXPECT_FALSE(report.error) << report.error->what();
    EXPECT_EQ(report.lines, 4);
    EXPECT_EQ(report.checked, 2);
    EXPECT_EQ(state(), 2);
}

TEST_F(ScenarioPlayer, EndsACheckedPlayAtTheFirstDifference)
{
    EXPECT_EQ(mistake({setState(1), getState(3), setState(7)}, checked()),
              "line 3: ITavNetControlMgr getState returned something else at /state\n  expected: 3\n  returned: 1");
    EXPECT_EQ(state(), 1);
}

TEST_F(ScenarioPlayer, ComparesNothingUnlessToldTo)
{
    EXPECT_EQ(mistake({setState(1), getState(3)}, atSpeed(TavPlayOptions::fastest)), "");
}

TEST_F(ScenarioPlayer, PlaysWhatStandsBeforeAMistakenLine)
{
    EXPECT_EQ(mistake({setState(5), R"({"at": "x"})", setState(6)}, atSpeed(TavPlayOptions::fastest)),
              "line 3: /at: expected seconds from 0 to 1000000000, not the text \"x\"");
    EXPECT_EQ(state(), 5);
}

TEST_F(ScenarioPlayer, NamesACallThatTheMessageLibraryRefusesAndStopsThere)
{
    const QString error = mistake(
        {setState(1), R"({"manager": "ITavNetControlMgr", "operation": "reverseDeviceState", "arguments": [99]})",
         setState(2)},
        atSpeed(TavPlayOptions::fastest));
    EXPECT_TRUE(error.startsWith("line 3: ITavNetControlMgr reverseDeviceState: ")) << error.toStdString();
    EXPECT_TRUE(error.contains("a position must be one of the list's")) << error.toStdString();
    EXPECT_EQ(state(), 1);
}

// Each line sets what the line before, on another thread, has left: any other order shows.
TEST_F(ScenarioPlayer, KeepsTheOrderOfTheFileAcrossThreadsWhenItChecks)
{
    QList<QByteArray> lines;
    for (int i = 0; i < 2000; ++i) {
        const QByteArray thread = "\"thread\": \"" + TavScenario::threads()[i % 9].toUtf8() + "\", ";
        const QByteArray next = "\"thread\": \"" + TavScenario::threads()[(i + 4) % 9].toUtf8() + "\", ";
        lines << setState(i, thread) << getState(i, next);
    }
    EXPECT_EQ(mistake(lines, checked()), "");
}

TEST_F(ScenarioPlayer, KeepsTheOrderOfTheTimesAcrossThreadsWithoutChecks)
{
    QList<QByteArray> lines;
    for (int i = 0; i < 2000; ++i) {
        lines
            += setState(i, "\"at\": " + QByteArray::number(i) + ", \"thread\": \"agent" + (i % 2 ? "" : "2") + "\", ");
    }
    EXPECT_EQ(mistake(lines, atSpeed(TavPlayOptions::fastest)), "");
    EXPECT_EQ(state(), 1999);
}

TEST_F(ScenarioPlayer, CallsOnTheNamedThreadsWhileTheEventLoopRuns)
{
    QStringList threads;
    QObject here;
    // A direct look at where the call is made is not possible from outside; a page change tells who has sent it.
    const TavSubscription subscription(eventFuncPageUpdate, &here,
                                       [&threads](auto) { threads.append(QThread::currentThread()->objectName()); });
    QThread::currentThread()->setObjectName("test");
    play({R"({"page": "SubFunc_LogAudit"})", R"({"at": 0.2, "thread": "gui", "page": "SubFunc_LogAudit"})",
          R"({"at": 0.4, "thread": "gui", "manager": "ITavPicResourceMgr", "operation": "getImageRef", )"
          R"("arguments": ["none", "none"]})"},
         atSpeed(1));
    EXPECT_EQ(threads, QStringList({"test", "test"}));
}

TEST_F(ScenarioPlayer, SelectsAPageWithTheFunctionOfTheCatalogue)
{
    EXPECT_EQ(mistake({R"({"page": "SubFunc_LogAudit"})"}, checked()), "");
    EXPECT_EQ(host.manager<ITavSelectFuncMgr>()->getCurSelSubFuncType(), CTavSubFuncTypeHeader::SubFunc_LogAudit);
}

TEST_F(ScenarioPlayer, WaitsForEachLinesTime)
{
    QElapsedTimer timer;
    timer.start();
    play({setState(1), setState(2, "\"at\": 0.6, ")}, atSpeed(2));
    EXPECT_GE(timer.elapsed(), 300);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(ScenarioPlayer, PlaysWhatIsBeforeTheBeginningAtOnceAndNothingBehindTheEnd)
{
    TavPlayOptions options;
    options.from = 1000 * qint64(1e6);
    options.until = options.from + 1;
    const TavPlayReport report
        = play({setState(1, "\"at\": 999, "), setState(2, "\"at\": 1000, "), setState(3, "\"at\": 1001, ")}, options);
    EXPECT_EQ(report.lines, 2);
    EXPECT_EQ(state(), 2);
}

TEST_F(ScenarioPlayer, BeginsAgainUntilItIsStopped)
{
    QByteArray text = scenarioOf({setState(1), setState(2, "\"at\": 0.001, ")});
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TavPlayOptions options;
    options.isLooped = true;
    TavScenarioPlayer player(host, buffer, options);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&player] {
        if (player.progress().lines >= 10) {
            player.stop();
        }
    });
    watch.start(1);
    const TavPlayReport report = player.wait();
    EXPECT_TRUE(report.isStopped);
    EXPECT_GE(report.lines, 10);
}

TEST_F(ScenarioPlayer, CanBeEndedInTheMiddle)
{
    QByteArray text = scenarioOf({setState(1), setState(2, "\"at\": 3600, \"thread\": \"gui\", ")});
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    {
        const TavScenarioPlayer player(host, buffer);
        while (player.progress().lines == 0) {
            QThread::msleep(1);
        }
    }
    EXPECT_EQ(state(), 1);
}
