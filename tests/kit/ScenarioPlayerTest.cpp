#include "TavScenarioPlayer.h"

#include "Deadline.h"
#include "ITavFuncTypeMgr.h"
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
#include <QJsonDocument>
#include <QScopeGuard>
#include <QSemaphore>
#include <qtestsupport_core.h>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <optional>
#include <stdexcept>
#include <vector>

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

/// A scenario that is played while the test looks on.
class WatchedPlay
{
public:
    WatchedPlay(TavPluginHost &host, const QList<QByteArray> &lines, const TavPlayOptions &options)
        : m_text(scenarioOf(lines)), m_options(options)
    {
        m_buffer.open(QIODevice::ReadOnly);
        m_options.observer = [this](const TavPlayedCall &played) {
            const QMutexLocker lock(&m_mutex);
            m_numbers.push_back(played.line.number);
        };
        player.emplace(host, m_buffer, m_options);
    }

    /// The numbers of the lines that have been played, in their order.
    std::vector<int> numbers() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_numbers;
    }

    /// Whether exactly so many lines are played, now and a while later.
    bool standsAt(int count) const
    {
        const bool hasCome = QTest::qWaitFor([&] { return int(numbers().size()) >= count; });
        QTest::qWait(50);
        return hasCome && int(numbers().size()) == count;
    }

private:
    QByteArray m_text;
    QBuffer m_buffer{&m_text};
    TavPlayOptions m_options;
    mutable QMutex m_mutex;
    std::vector<int> m_numbers;

public:
    std::optional<TavScenarioPlayer> player; ///< last, since its threads use the others
};

/// Counts what is read of it, and knows the name of the thread that reads.
class CountedBuffer : public QBuffer
{
public:
    using QBuffer::QBuffer;

    std::atomic<qint64> bytesRead = 0;
    QString reader; ///< known at the end

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (reader.isEmpty()) {
            reader = QThread::currentThread()->objectName();
        }
        const qint64 count = QBuffer::readData(data, size);
        bytesRead += std::max<qint64>(count, 0);
        return count;
    }

    /// Not letter by letter, as where there is no buffer.
    qint64 readLineData(char *data, qint64 size) override
    {
        const char *const begin = buffer().constData() + pos();
        const char *const end = std::find(begin, begin + std::min(size, this->size() - pos()), '\n');
        return readData(data, std::min(size, qint64(end - begin) + 1));
    }
};

/// Has no memory to be read into.
class ScarceBuffer : public QBuffer
{
public:
    using QBuffer::QBuffer;

protected:
    qint64 readData(char *, qint64) override
    {
        throw std::runtime_error("no memory");
    }
};

TavPlayOptions paused(double speed)
{
    TavPlayOptions options = atSpeed(speed);
    options.isPaused = true;
    return options;
}
}

TEST_F(ScenarioPlayer, PlaysUncheckedOnceFromTheBeginningAtOrdinarySpeedUnlessToldOtherwise)
{
    const TavPlayOptions options;
    EXPECT_EQ(options.speed, 1);
    EXPECT_EQ(options.from, 0);
    EXPECT_FALSE(options.isLooped);
    EXPECT_FALSE(options.isChecked);
    EXPECT_FALSE(options.isPaused);
}

TEST_F(ScenarioPlayer, HasPlayedNothingAtFirst)
{
    const TavPlayReport report;
    EXPECT_EQ(report.lines, 0);
    EXPECT_EQ(report.checked, 0);
    EXPECT_EQ(report.at, 0);
    EXPECT_EQ(report.cutLine, 0);
    EXPECT_FALSE(report.isStopped);
    const TavScenario::Line line;
    EXPECT_EQ(TavPlayedCall{line}.nanoseconds, 0);
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

TEST_F(ScenarioPlayer, ComparesAListThatIsToBeEmpty)
{
    const QByteArray setDevices = R"({"manager": "ITavNetControlMgr", "operation": "setDeviceInfo", "arguments": [)";
    const QByteArray getNone = R"({"manager": "ITavNetControlMgr", "operation": "getDeviceInfo", "arguments": [], )"
                               R"("returns": {"devices": []}})";
    EXPECT_EQ(mistake({setDevices + R"({"devices": []}]})", getNone}, checked()), "");
    EXPECT_EQ(mistake({setDevices + R"({"devices": [{"state": 1}]}]})", getNone}, checked()),
              "line 3: ITavNetControlMgr getDeviceInfo returned something else at /devices/0\n  expected: nothing\n"
              "  returned: {\"state\":1}");
}

TEST_F(ScenarioPlayer, CountsNoResultOfWhichNothingIsCompared)
{
    const QByteArray getOnlineState
        = R"({"manager": "ITavSystemConfigMgr", "operation": "getOnlineState", "arguments": [], "returns": {}})";
    const TavPlayReport report = play({setState(1), getState(1), getOnlineState}, checked());
    EXPECT_EQ(report.lines, 3);
    EXPECT_EQ(report.checked, 1);
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

TEST_F(ScenarioPlayer, TellsOfACutLineThatItLeavesOut)
{
    QByteArray text = scenarioOf({setState(5), setState(6)}).chopped(7);
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TavPlayOptions options;
    options.cutLine = TavScenarioReader::CutLine::LeaveOut;
    const TavPlayReport report = TavScenarioPlayer(host, buffer, options).wait();
    EXPECT_EQ(report.lines, 1);
    EXPECT_EQ(report.cutLine, 3);
}

TEST_F(ScenarioPlayer, EndsWhereThereIsNoMemory)
{
    ScarceBuffer buffer;
    buffer.open(QIODevice::ReadOnly);
    const TavPlayReport report = TavScenarioPlayer(host, buffer).wait();
    ASSERT_TRUE(report.error);
    EXPECT_EQ(report.error->line(), 0);
    EXPECT_EQ(report.error->path(), "");
    EXPECT_EQ(report.error->problem(), "no memory");
}

TEST_F(ScenarioPlayer, NamesACallThatTheMessageLibraryRefusesAndStopsThere)
{
    const TavPlayReport report = play(
        {setState(1), R"({"manager": "ITavNetControlMgr", "operation": "reverseDeviceState", "arguments": [99]})",
         setState(2)},
        atSpeed(TavPlayOptions::fastest));
    ASSERT_TRUE(report.error);
    EXPECT_EQ(report.error->line(), 3);
    EXPECT_EQ(report.error->path(), "");
    const QString problem = report.error->problem();
    EXPECT_TRUE(problem.startsWith("ITavNetControlMgr reverseDeviceState: ")) << problem.toStdString();
    EXPECT_TRUE(problem.contains("a position must be one of the list's")) << problem.toStdString();
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
    WatchedPlay play(host, lines, atSpeed(TavPlayOptions::fastest));
    EXPECT_EQ(play.player->wait().lines, 2000);
    const std::vector<int> numbers = play.numbers();
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
}

TEST_F(ScenarioPlayer, MakesTheCallsOfOneTimeAtOnceWithoutChecks)
{
    QByteArray text = scenarioOf({setState(1), setState(2, "\"thread\": \"agent2\", ")});
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    QSemaphore begun[2];
    std::atomic<int> together = 0;
    TavPlayOptions options;
    options.announcer = [&](const TavScenario::Line &line) {
        begun[line.thread].release();
        together += begun[1 - line.thread].tryAcquire(1, 5000) ? 1 : 0;
    };
    static_cast<void>(TavScenarioPlayer(host, buffer, options).wait());
    EXPECT_EQ(together, 2);
}

TEST_F(ScenarioPlayer, MakesEachCallOnTheThreadOfItsNameWhileTheEventLoopRuns)
{
    QByteArray text = "{\"tavScenario\": 1}\n";
    QStringList named;
    for (const QString &thread : TavScenario::threads()) {
        text += setState(1, "\"thread\": \"" + thread.toUtf8() + "\", ") + '\n';
        named += thread + " on " + (thread == "gui" ? QString("test") : thread);
    }
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    QThread::currentThread()->setObjectName("test");
    QStringList called;
    TavPlayOptions options = checked(); // one call after the other
    options.observer = [&called](const TavPlayedCall &played) {
        called += TavScenario::threads()[played.line.thread] + " on " + QThread::currentThread()->objectName();
    };
    static_cast<void>(TavScenarioPlayer(host, buffer, options).wait());
    EXPECT_EQ(called, named);
}

TEST_F(ScenarioPlayer, IsPlayedToItsEndAlsoWhereTheApplicationHasBeenToldToQuit)
{
    const Deadline deadline;
    qint64 lines = 0;
    QTimer::singleShot(0, [&] {
        QCoreApplication::quit();
        lines = play({setState(1, "\"thread\": \"gui\", "), setState(2)}, checked()).lines;
    });
    QCoreApplication::exec();
    EXPECT_EQ(lines, 2);
}

TEST_F(ScenarioPlayer, SelectsAPageWithTheFunctionOfItsHostsCatalogue)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(TAV_SOURCE_DIR "/share/demo");
    host.manager<ITavFuncTypeMgr>()->loadConfig();
    TavGlobalInfoMgr::getInstance()->setSystemRoot(QString());
    ITavObjectMgr *const own = TavGlobalInfoMgr::getObjectMgr();
    TavObjectMgr other; // as if another host had been made meanwhile
    TavGlobalInfoMgr::setObjectMgr(&other);
    EXPECT_EQ(mistake({R"({"page": "SubFunc_LogAudit"})"}, checked()), "");
    TavGlobalInfoMgr::setObjectMgr(own);
    EXPECT_EQ(host.manager<ITavSelectFuncMgr>()->getCurSelSubFuncType(), CTavSubFuncTypeHeader::SubFunc_LogAudit);
    EXPECT_EQ(host.manager<ITavSelectFuncMgr>()->getCurSelFuncType(), CTavFuncTypeHeader::Func_SystemAudit);
}

TEST_F(ScenarioPlayer, WaitsForEachLinesTime)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(play({setState(1), setState(2, "\"at\": 0.6, ")}, atSpeed(2)).at, 600'000);
    EXPECT_GE(timer.elapsed(), 300);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(ScenarioPlayer, TakesNoProcessorTimeWhileItWaits)
{
    for (const bool isPaused : {false, true}) {
        TavPlayOptions options;
        options.isPaused = isPaused;
        const WatchedPlay play(host, {setState(1, "\"at\": 3600, ")}, options);
        const std::clock_t before = std::clock();
        QThread::msleep(400);
        EXPECT_LT(double(std::clock() - before) / CLOCKS_PER_SEC, 0.2) << isPaused;
    }
}

TEST_F(ScenarioPlayer, PlaysWhatIsBeforeTheBeginningAtOnceAndNothingBehindTheEnd)
{
    TavPlayOptions options;
    options.from = 1000 * qint64(1e6);
    options.until = options.from;
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

TEST_F(ScenarioPlayer, BeginsAgainUntilItIsToldNotTo)
{
    const Deadline deadline;
    TavPlayOptions options;
    options.isLooped = true;
    WatchedPlay play(host, {setState(1), setState(2, "\"at\": 0.001, ")}, options);
    EXPECT_TRUE(QTest::qWaitFor([&play] { return play.numbers().size() >= 4; }));
    play.player->setLooped(false);
    const TavPlayReport report = play.player->wait();
    EXPECT_FALSE(report.isStopped);
    EXPECT_EQ(report.lines % 2, 0);
}

TEST_F(ScenarioPlayer, EndsARoundWithoutLinesAlsoWhenItIsToBeginAgain)
{
    const Deadline deadline;
    TavPlayOptions options;
    options.isLooped = true;
    options.until = 1;
    const TavPlayReport report = play({setState(1, "\"at\": 1, ")}, options);
    EXPECT_EQ(report.lines, 0);
    EXPECT_FALSE(report.isStopped);
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

TEST_F(ScenarioPlayer, ReadsAhead1024LinesOrEightMebibytesOrOneLine)
{
    const struct {
        int bytes, lines, linesAhead;
    } rows[] = {{100, 2'000, 1'024}, {1 << 17, 100, 64}, {(8 << 20) + 1, 3, 1}};
    for (const auto &row : rows) {
        const QByteArray page = R"({"page": "SubFunc_LogAudit"})";
        const QByteArray line = page + QByteArray(row.bytes - page.size(), ' ');
        QByteArray text = scenarioOf(QVector<QByteArray>(row.lines, line).toList());
        CountedBuffer buffer(&text);
        buffer.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        QSemaphore turns;
        TavPlayOptions options = atSpeed(TavPlayOptions::fastest);
        options.announcer = [&turns](const TavScenario::Line &) { turns.acquire(); }; // keeps the first call waiting
        const TavScenarioPlayer player(host, buffer, options);
        const auto letAllCallsGo = qScopeGuard([&] { turns.release(row.lines); });
        for (const int played : {0, 1}) {
            turns.release(played);
            const qint64 lines = played + row.linesAhead + 1; // and the next one, which waits to be handed out
            const qint64 ahead = text.indexOf('\n') + 1 + lines * (line.size() + 1);
            EXPECT_TRUE(QTest::qWaitFor([&] { return buffer.bytesRead >= ahead; }, 30'000)) << row.bytes;
            QTest::qWait(100);
            EXPECT_EQ(buffer.bytesRead, ahead) << row.bytes;
        }
    }
}

TEST_F(ScenarioPlayer, ReadsOnAThreadOfItsOwn)
{
    QByteArray text = scenarioOf({setState(1)});
    CountedBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    static_cast<void>(TavScenarioPlayer(host, buffer).wait());
    EXPECT_EQ(buffer.reader, "scenario");
}

TEST_F(ScenarioPlayer, PlaysOneLineAStepWhileItIsPaused)
{
    // Those of one time may begin in any order without checks: a step takes the next in the file all the same.
    QList<QByteArray> lines;
    for (int i = 0; i < 30; ++i) {
        lines += setState(i, "\"at\": 3600, \"thread\": \"" + TavScenario::threads()[i % 9].toUtf8() + "\", ");
    }
    WatchedPlay play(host, lines, paused(1));
    EXPECT_TRUE(play.standsAt(0));
    for (int i = 0; i < lines.size(); ++i) {
        play.player->step();
        ASSERT_TRUE(QTest::qWaitFor([&] { return int(play.numbers().size()) > i; })) << i;
        EXPECT_EQ(play.numbers().back(), i + 2);
    }
    EXPECT_FALSE(play.player->wait().isStopped);
}

TEST_F(ScenarioPlayer, TakesSoManyStepsAsItIsToldAtOnce)
{
    QList<QByteArray> lines;
    for (int i = 0; i < 30; ++i) {
        lines += setState(i, "\"thread\": \"" + TavScenario::threads()[i % 9].toUtf8() + "\", ");
    }
    WatchedPlay play(host, lines, paused(TavPlayOptions::fastest));
    for (int i = 0; i < 20; ++i) {
        play.player->step();
    }
    EXPECT_TRUE(play.standsAt(20));
    play.player->pause();
    play.player->resume();
    EXPECT_EQ(play.player->wait().lines, 30);
}

TEST_F(ScenarioPlayer, PlaysWhatIsBeforeTheBeginningAlsoWhileItIsPaused)
{
    QList<QByteArray> lines;
    for (int i = 0; i < 30; ++i) {
        lines += setState(i,
                          "\"at\": " + QByteArray::number(i) + ", \"thread\": \""
                              + TavScenario::threads()[i % 9].toUtf8() + "\", ");
    }
    for (const int steps : {0, 1, 3}) {
        TavPlayOptions options = paused(1);
        options.from = 20 * qint64(1e6);
        WatchedPlay play(host, lines, options);
        for (int i = 0; i < steps; ++i) {
            play.player->step(); // none of them is used up by a line before the beginning
        }
        EXPECT_TRUE(play.standsAt(20 + steps)) << steps;
        play.player->step();
        EXPECT_TRUE(play.standsAt(21 + steps)) << steps;
        EXPECT_EQ(play.numbers().back(), 22 + steps);
    }
}

TEST_F(ScenarioPlayer, StepsInTheOrderOfTheFileAlsoWhereAThreadIsLate)
{
    WatchedPlay play(host, {setState(1, "\"thread\": \"gui\", "), setState(2)}, paused(TavPlayOptions::fastest));
    play.player->step();
    play.player->step();
    QThread::msleep(50); // the event loop does not run, and so the first line does not begin
    EXPECT_TRUE(play.numbers().empty());
    EXPECT_EQ(play.player->wait().lines, 2);
}

TEST_F(ScenarioPlayer, DropsStepsThatHaveNotBegunWhenItIsPausedAgain)
{
    WatchedPlay play(host, {setState(1, "\"thread\": \"gui\", "), setState(2)}, paused(TavPlayOptions::fastest));
    play.player->step();
    play.player->step();
    QThread::msleep(50); // the event loop does not run
    play.player->pause();
    EXPECT_TRUE(play.standsAt(0));
}

TEST_F(ScenarioPlayer, BeginsNoLineOfTheEventLoopWhenItHasBeenStopped)
{
    WatchedPlay play(host, {setState(1, "\"thread\": \"gui\", ")}, atSpeed(TavPlayOptions::fastest));
    QThread::msleep(50); // the line waits for the event loop
    play.player->stop();
    EXPECT_EQ(play.player->wait().lines, 0);
    EXPECT_TRUE(play.standsAt(0));
}

TEST_F(ScenarioPlayer, IsAtItsEndOnlyWhenTheCallUnderWayHasReturned)
{
    QByteArray text = scenarioOf({setState(1)});
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    QSemaphore begun;
    QSemaphore mayGoOn;
    TavPlayOptions options;
    options.announcer = [&](const TavScenario::Line &) {
        begun.release();
        mayGoOn.acquire();
    };
    TavScenarioPlayer player(host, buffer, options);
    begun.acquire();
    player.stop();
    QTest::qWait(50);
    EXPECT_FALSE(player.isAtEnd());
    mayGoOn.release();
    EXPECT_EQ(player.wait().lines, 1);
}

TEST_F(ScenarioPlayer, BeginsNoLineWhileItIsPausedHoweverManyWait)
{
    QList<QByteArray> lines;
    for (int i = 0; i < 1000; ++i) {
        lines += setState(i, i % 2 ? "\"thread\": \"gui\", " : "");
    }
    WatchedPlay play(host, lines, atSpeed(TavPlayOptions::fastest));
    for (int i = 0; i < 5; ++i) {
        QTest::qWait(1);
        play.player->pause();
        QThread::msleep(50); // for the call under way
        const int played = int(play.numbers().size());
        EXPECT_TRUE(play.standsAt(played));
        play.player->resume();
    }
    EXPECT_EQ(play.player->wait().lines, 1000);
    EXPECT_EQ(play.numbers().size(), 1000u);
}

TEST_F(ScenarioPlayer, IsStoppedByItsObserverAtTheCallThatWasMade)
{
    QByteArray text = scenarioOf({setState(1), setState(2), setState(3), setState(4)});
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TavScenarioPlayer *watched = nullptr;
    TavPlayOptions options = paused(TavPlayOptions::fastest);
    options.observer = [&watched](const TavPlayedCall &played) {
        if (played.line.number == 3) {
            watched->pause();
        }
    };
    TavScenarioPlayer player(host, buffer, options);
    watched = &player;
    player.resume();
    EXPECT_TRUE(QTest::qWaitFor([&player] { return player.progress().lines == 2; }));
    QTest::qWait(50);
    EXPECT_EQ(state(), 2);
    EXPECT_FALSE(player.isAtEnd());
    player.resume();
    EXPECT_EQ(player.wait().lines, 4);
}

TEST_F(ScenarioPlayer, GoesOnFromWhereItWasPaused)
{
    WatchedPlay play(host, {setState(1), setState(2, "\"at\": 0.3, ")}, atSpeed(1));
    EXPECT_TRUE(play.standsAt(1));
    play.player->pause();
    QTest::qWait(500); // the time of the second line would have come
    EXPECT_EQ(play.numbers().size(), 1u);
    QElapsedTimer timer;
    timer.start();
    play.player->resume();
    EXPECT_EQ(play.player->wait().lines, 2);
    EXPECT_GE(timer.elapsed(), 100);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(ScenarioPlayer, GoesOnFromTheTimeOfTheLineThatWasTheLastStep)
{
    WatchedPlay play(host, {setState(1, "\"at\": 3600, "), setState(2, "\"at\": 3600.2, ")}, paused(1));
    play.player->step();
    EXPECT_TRUE(play.standsAt(1));
    QElapsedTimer timer;
    timer.start();
    play.player->resume();
    EXPECT_EQ(play.player->wait().lines, 2);
    EXPECT_GE(timer.elapsed(), 150);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(ScenarioPlayer, ChangesItsSpeedWhileItPlays)
{
    WatchedPlay play(host, {setState(1), setState(2, "\"at\": 3600, "), setState(3, "\"at\": 7200, ")},
                     atSpeed(1e-300)); // its times are too far away for any timer
    EXPECT_TRUE(play.standsAt(1));
    QElapsedTimer timer;
    timer.start();
    play.player->setSpeed(3600 / 0.2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return play.numbers().size() == 2u; }));
    EXPECT_GE(timer.elapsed(), 190);
    play.player->setSpeed(1);
    EXPECT_TRUE(play.standsAt(2));
    play.player->setSpeed(TavPlayOptions::fastest);
    EXPECT_EQ(play.player->wait().lines, 3);
    EXPECT_LT(timer.elapsed(), 10000);
}

TEST_F(ScenarioPlayer, GoesOnAtASpeedFromTheLineThatItPlayedTheFastest)
{
    WatchedPlay play(host,
                     {setState(1, "\"at\": 3600, "), setState(2, "\"at\": 3600.1, "), setState(3, "\"at\": 3600.3, ")},
                     paused(TavPlayOptions::fastest));
    play.player->step();
    EXPECT_TRUE(play.standsAt(1));
    play.player->setSpeed(1);
    QElapsedTimer timer;
    timer.start();
    play.player->resume();
    EXPECT_EQ(play.player->wait().lines, 3);
    EXPECT_GE(timer.elapsed(), 290);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(ScenarioPlayer, EndsAlsoWhileItIsPaused)
{
    WatchedPlay play(host, {setState(1), setState(2)}, paused(TavPlayOptions::fastest));
    play.player->step();
    EXPECT_TRUE(play.standsAt(1));
    play.player->stop();
    EXPECT_TRUE(play.player->wait().isStopped);
    play.player->step();
    play.player->resume();
    play.player->setSpeed(2);
    EXPECT_EQ(state(), 1);
}

TEST_F(ScenarioPlayer, TellsItsObserverWhatWasCalledWhereAndWhatCameOfIt)
{
    QByteArray text = scenarioOf({setState(3), getState(4, "\"thread\": \"gui\", ")});
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    QStringList told;
    const auto before = std::chrono::system_clock::now();
    TavPlayOptions options = checked();
    options.observer = [&](const TavPlayedCall &played) { // one after the other, since it checks
        EXPECT_GE(played.start, before);
        EXPECT_LE(played.start + std::chrono::nanoseconds(played.nanoseconds), std::chrono::system_clock::now());
        EXPECT_GT(played.nanoseconds, 0);
        EXPECT_EQ(QThread::currentThread() == QCoreApplication::instance()->thread(),
                  played.line.thread == TavScenario::gui);
        const QJsonObject json{{"call", played.line.subject()},
                               {"arguments", played.line.arguments},
                               {"returned", played.returned},
                               {"error", played.error ? QJsonValue(played.error->line()) : QJsonValue::Null}};
        told += QJsonDocument(json).toJson(QJsonDocument::Compact);
    };
    const TavPlayReport report = TavScenarioPlayer(host, buffer, options).wait();
    EXPECT_TRUE(report.error);
    EXPECT_EQ(
        told,
        QStringList({R"({"arguments":[{"state":3}],"call":"ITavNetControlMgr setState","error":null,)"
                     R"("returned":null})",
                     R"({"arguments":[],"call":"ITavNetControlMgr getState","error":3,"returned":{"state":3}})"}));
}

TEST_F(ScenarioPlayer, TellsItsObserverOfACallThatWasRefused)
{
    QByteArray text = scenarioOf(
        {R"({"manager": "ITavNetControlMgr", "operation": "reverseDeviceState", "arguments": {"index": 99}})"});
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    QString told;
    TavPlayOptions options;
    options.observer = [&told](const TavPlayedCall &played) {
        EXPECT_TRUE(played.returned.isUndefined());
        told = played.error ? played.error->what() : "";
    };
    const TavPlayReport report = TavScenarioPlayer(host, buffer, options).wait();
    ASSERT_TRUE(report.error);
    EXPECT_EQ(told, report.error->what());
}
