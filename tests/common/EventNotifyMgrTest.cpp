#include "TavEventNotifyMgr.h"

#include "AtOnce.h"
#include "GlobalStateGuard.h"
#include "LogCapture.h"
#include "LoopThread.h"
#include "TavBaseEvent.h"
#include "TavNanolog.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QSemaphore>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{
TavEventNotifyMgr &bus()
{
    return *TavEventNotifyMgr::getInstance();
}

TavBaseEvent *newEvent(QThread *thread, std::function<void()> function)
{
    auto *const event = new TavBaseEvent(nullptr);
    event->moveToThread(thread);
    event->setFunc(std::move(function));
    return event;
}

void add(QThread *thread, std::function<void()> function)
{
    bus().addEventNotify(newEvent(thread, std::move(function)));
}

/// Counts the runs of the functions that it gives, and knows when the last of them is gone.
class Probe
{
public:
    std::function<void()> function() const
    {
        return [runs = m_runs] { ++*runs; };
    }

    int runs() const
    {
        return *m_runs;
    }

    bool isFreed() const
    {
        return m_runs.use_count() == 1;
    }

private:
    std::shared_ptr<std::atomic<int>> m_runs = std::make_shared<std::atomic<int>>(0);
};

/// A thread without an event loop, which lives until let go.
class LooplessThread
{
public:
    LooplessThread() : m_thread(QThread::create([this] { m_end.acquire(); }))
    {
        m_thread->start();
    }

    ~LooplessThread()
    {
        finish();
    }

    QThread *thread()
    {
        return m_thread.get();
    }

    void finish()
    {
        const Deadline deadline;
        m_end.release();
        m_thread->wait();
    }

private:
    QSemaphore m_end;
    std::unique_ptr<QThread> m_thread;
};

/// A std::thread, which Qt adopts; it lives until let go.
class AdoptedThread
{
public:
    AdoptedThread()
    {
        m_stdThread = std::thread([this] {
            m_thread = QThread::currentThread();
            m_started.release();
            m_end.acquire();
        });
        m_started.acquire();
    }

    ~AdoptedThread()
    {
        finish();
    }

    QThread *thread()
    {
        return m_thread;
    }

    void finish()
    {
        const Deadline deadline;
        m_end.release();
        if (m_stdThread.joinable()) {
            m_stdThread.join();
        }
    }

private:
    QSemaphore m_started;
    QSemaphore m_end;
    QThread *m_thread = nullptr;
    std::thread m_stdThread;
};

/// Returns when what was added for the running @p thread before has run and the thread has ended.
void finish(QThread &thread)
{
    const Deadline deadline;
    add(&thread, [&thread] { thread.quit(); });
    thread.wait();
}

/// Every test must leave the bus with nothing pending.
class EventNotifyMgr : public testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(bus().pendingCount(), 0);
    }
};

struct FaultyFunction {
    const char *name;
    std::function<void()> function;
    std::string reason;
};

class EventNotifyMgrFaults : public testing::TestWithParam<FaultyFunction>
{
};
}

TEST_F(EventNotifyMgr, AnEventRunsInItsThread)
{
    LoopThread loop;
    QThread *ranIn = nullptr;
    add(loop.thread(), [&ranIn] { ranIn = QThread::currentThread(); });
    loop.finish();
    EXPECT_EQ(ranIn, loop.thread());
}

TEST_F(EventNotifyMgr, AnEventRunsOnceAndIsThenDeleted)
{
    LoopThread loop;
    const Probe probe;
    const QPointer<TavBaseEvent> event = newEvent(loop.thread(), probe.function());
    bus().addEventNotify(event);
    loop.finish();
    EXPECT_EQ(probe.runs(), 1);
    EXPECT_TRUE(probe.isFreed());
    EXPECT_TRUE(event.isNull());
}

TEST_F(EventNotifyMgr, AnEventForTheAddingThreadWaitsForItsLoop)
{
    const Probe probe;
    add(QThread::currentThread(), probe.function());
    EXPECT_EQ(probe.runs(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(probe.runs(), 1);
}

TEST_F(EventNotifyMgr, AnEventWithoutAThreadIsFreedUnrun)
{
    const Probe probe;
    const QPointer<TavBaseEvent> event = newEvent(nullptr, probe.function());
    bus().addEventNotify(event);
    EXPECT_EQ(probe.runs(), 0);
    EXPECT_TRUE(probe.isFreed());
    EXPECT_TRUE(event.isNull());
}

TEST_F(EventNotifyMgr, AnEventForAThreadThatEndsFirstIsFreedUnrun)
{
    LooplessThread loopless;
    const Probe probe;
    add(loopless.thread(), probe.function());
    loopless.finish();
    EXPECT_EQ(probe.runs(), 0);
    EXPECT_TRUE(probe.isFreed());
}

TEST_F(EventNotifyMgr, AnEventForAFinishedThreadIsFreedUnrun)
{
    LoopThread loop;
    loop.finish();
    const Probe probe;
    add(loop.thread(), probe.function());
    EXPECT_EQ(probe.runs(), 0);
    EXPECT_TRUE(probe.isFreed());
}

TEST_F(EventNotifyMgr, AnEventForAThreadNotYetStartedRunsOnceItStarts)
{
    QThread thread;
    const Probe probe;
    add(&thread, probe.function());
    EXPECT_EQ(probe.runs(), 0);
    thread.start();
    finish(thread);
    EXPECT_EQ(probe.runs(), 1);
}

TEST_F(EventNotifyMgr, AnEventForANeverStartedThreadIsFreedWithTheThread)
{
    auto thread = std::make_unique<QThread>();
    const Probe probe;
    add(thread.get(), probe.function());
    EXPECT_FALSE(probe.isFreed());
    thread.reset();
    EXPECT_EQ(probe.runs(), 0);
    EXPECT_TRUE(probe.isFreed());
}

TEST_F(EventNotifyMgr, ARestartedThreadRunsItsEvents)
{
    QThread thread;
    for (int round = 0; round < 3; ++round) {
        thread.start();
        const Probe probe;
        add(&thread, probe.function());
        finish(thread);
        EXPECT_EQ(probe.runs(), 1);
    }
}

TEST_F(EventNotifyMgr, AThreadStartedAgainAndAgainIsConnectedToOnce)
{
    struct WatchedThread : QThread {
        int connections() const
        {
            return receivers(SIGNAL(finished())) + receivers(SIGNAL(destroyed(QObject *)));
        }
    };
    WatchedThread thread;
    for (int round = 0; round < 5; ++round) {
        thread.start();
        add(&thread, [] {});
        finish(thread);
        add(&thread, [] {});
        EXPECT_EQ(thread.connections(), 2);
    }
}

TEST_F(EventNotifyMgr, AThreadInThePlaceOfADestroyedOneIsMetAnew)
{
    std::optional<QThread> thread;
    for (int round = 0; round < 3; ++round) {
        thread.emplace();
        const Probe unrun;
        add(&*thread, unrun.function());
        thread.emplace();
        EXPECT_TRUE(unrun.isFreed());
        const Probe probe;
        add(&*thread, probe.function());
        thread->start();
        finish(*thread);
        EXPECT_EQ(probe.runs(), 1);
        EXPECT_EQ(unrun.runs(), 0);
    }
}

TEST_F(EventNotifyMgr, AnAnnouncementThatCannotBeRunIsDeletedByTheApplicationsLoop)
{
    LoopThread ended;
    ended.finish();
    for (QThread *const thread : {ended.thread(), static_cast<QThread *>(nullptr)}) {
        const Probe probe;
        const QPointer<TavBaseEvent> event = new TavAnnouncement(nullptr);
        event->setFunc(probe.function());
        event->moveToThread(thread);
        bus().addEventNotify(event);
        EXPECT_FALSE(event.isNull());
        EXPECT_EQ(bus().pendingCount(), 1);
        QCoreApplication::processEvents();
        EXPECT_TRUE(event.isNull());
        EXPECT_TRUE(probe.isFreed());
        EXPECT_EQ(probe.runs(), 0);
    }
}

TEST_F(EventNotifyMgr, AnAnnouncementRunsWhereItCan)
{
    LoopThread loop;
    const Probe probe;
    auto *const event = new TavAnnouncement(nullptr);
    event->setFunc(probe.function());
    event->moveToThread(loop.thread());
    bus().addEventNotify(event);
    loop.finish();
    EXPECT_EQ(probe.runs(), 1);
}

TEST_F(EventNotifyMgr, ARestartedThreadDoesNotRunWhatWasAddedWhileItWasFinished)
{
    QThread thread;
    thread.start();
    finish(thread);
    const Probe probe;
    add(&thread, probe.function());
    EXPECT_TRUE(probe.isFreed());
    thread.start();
    finish(thread);
    EXPECT_EQ(probe.runs(), 0);
}

TEST_F(EventNotifyMgr, AnEventForAStdThreadRunsInItsLoop)
{
    QSemaphore added;
    QSemaphore started;
    QThread *adopted = nullptr;
    QThread *ranIn = nullptr;
    std::thread stdThread([&] {
        adopted = QThread::currentThread();
        started.release();
        added.acquire();
        QEventLoop().processEvents();
    });
    started.acquire();
    add(adopted, [&ranIn] { ranIn = QThread::currentThread(); });
    added.release();
    stdThread.join();
    EXPECT_NE(ranIn, nullptr);
    EXPECT_EQ(ranIn, adopted);
}

TEST_F(EventNotifyMgr, AnEventForAStdThreadThatEndsFirstIsFreedUnrun)
{
    AdoptedThread adopted;
    const Probe probe;
    add(adopted.thread(), probe.function());
    EXPECT_FALSE(probe.isFreed());
    adopted.finish();
    EXPECT_EQ(probe.runs(), 0);
    EXPECT_TRUE(probe.isFreed());
}

TEST_P(EventNotifyMgrFaults, LeaveTheLoopAliveAndAreLogged)
{
    const GlobalStateGuard guard;
    TavNanolog::setLevel(1);
    const LogCapture log;
    LoopThread loop;
    const Probe later;
    const QPointer<TavBaseEvent> event = newEvent(loop.thread(), GetParam().function);
    bus().addEventNotify(event);
    add(loop.thread(), later.function());
    loop.finish();

    EXPECT_EQ(later.runs(), 1);
    EXPECT_TRUE(event.isNull());
    EXPECT_EQ(bus().pendingCount(), 0);
    const QVector<LogCapture::Message> messages = log.messages("tav.TavEventNotifyMgr");
    ASSERT_EQ(messages.size(), 1);
    EXPECT_EQ(messages[0].type, QtCriticalMsg);
    EXPECT_EQ(messages[0].function, "event");
    EXPECT_THAT(messages[0].text.toStdString(),
                testing::EndsWith("exception in an event's function: " + std::string(GetParam().reason)));
}

INSTANTIATE_TEST_SUITE_P(Kinds, EventNotifyMgrFaults,
                         testing::Values(FaultyFunction{"Exception", [] { throw std::runtime_error("the cause"); },
                                                        "the cause"},
                                         FaultyFunction{"OtherType", [] { throw 7; }, "not a std::exception"},
                                         FaultyFunction{"EmptyFunction", {}, std::bad_function_call().what()}),
                         [](const auto &info) { return info.param.name; });

TEST_F(EventNotifyMgr, AFaultBelowTheThresholdOfTheLogLeavesTheLoopAliveToo)
{
    const LogCapture log;
    LoopThread loop;
    const Probe later;
    TavNanolog::setLevel(0);
    add(loop.thread(), [] { throw std::runtime_error("the cause"); });
    add(loop.thread(), later.function());
    loop.finish();
    TavNanolog::setLevel(3);

    EXPECT_EQ(later.runs(), 1);
    EXPECT_TRUE(log.messages("tav.TavEventNotifyMgr").isEmpty());
}

TEST_F(EventNotifyMgr, EventsOfOneThreadRunInTheOrderOfAdding)
{
    LoopThread loop;
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    std::vector<int> ran;
    for (const int number : expected) {
        add(loop.thread(), [&ran, number] { ran.push_back(number); });
    }
    loop.finish();
    EXPECT_EQ(ran, expected);
}

TEST_F(EventNotifyMgr, ManyWaitingEventsTakeTheLoopFewCalls)
{
    struct Calls : QObject {
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::User;
            return false;
        }

        int count = 0;
    };
    Calls calls;
    QCoreApplication::instance()->installEventFilter(&calls);
    const Probe probe;
    for (int i = 0; i < 1000; ++i) {
        add(QThread::currentThread(), probe.function());
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(probe.runs(), 1000);
    EXPECT_LE(calls.count, 2); // for the first, which might start a loop, and for the rest
}

TEST_F(EventNotifyMgr, AnEventWhoseCallWasRemovedRunsWithTheNext)
{
    const Probe probe;
    add(QThread::currentThread(), probe.function());
    QCoreApplication::removePostedEvents(nullptr, QEvent::User);
    add(QThread::currentThread(), probe.function());
    QCoreApplication::processEvents();
    EXPECT_EQ(probe.runs(), 2);
}

TEST_F(EventNotifyMgr, AFunctionMayAddAnEventForItsOwnThread)
{
    const Deadline deadline;
    LoopThread loop;
    QSemaphore done;
    std::vector<int> order;
    add(loop.thread(), [&] {
        add(loop.thread(), [&] {
            order.push_back(2);
            done.release();
        });
        order.push_back(1);
    });
    done.acquire();
    loop.finish();
    EXPECT_THAT(order, testing::ElementsAre(1, 2));
}

TEST_F(EventNotifyMgr, ALoopInsideAFunctionGetsLaterEvents)
{
    LoopThread loop;
    bool cameInside = false;
    add(loop.thread(), [&cameInside, &loop] {
        QEventLoop inner;
        add(loop.thread(), [&inner] { inner.exit(1); });
        QTimer::singleShot(10000, &inner, &QEventLoop::quit);
        cameInside = inner.exec() == 1;
    });
    loop.finish();
    EXPECT_TRUE(cameInside);
}

TEST_F(EventNotifyMgr, AnEventIsPendingUntilItHasRun)
{
    QThread thread;
    int whileRunning = 0;
    add(&thread, [&whileRunning] { whileRunning = bus().pendingCount(); });
    EXPECT_EQ(bus().pendingCount(), 1);
    add(&thread, [&thread] { thread.quit(); });
    EXPECT_EQ(bus().pendingCount(), 2);
    const Deadline deadline;
    thread.start();
    thread.wait();
    EXPECT_EQ(whileRunning, 2);
    EXPECT_EQ(bus().pendingCount(), 0);
}

TEST_F(EventNotifyMgr, ANullEventIsIgnored)
{
    bus().addEventNotify(nullptr);
    EXPECT_EQ(bus().pendingCount(), 0);
}

TEST_F(EventNotifyMgr, AFunctionThatDiesWithItsThreadMayUseTheBus)
{
    const Deadline deadline;
    const Probe probe;
    auto addsAsItDies
        = std::shared_ptr<void>(nullptr, [&, main = QThread::currentThread()](void *) { add(main, probe.function()); });
    {
        LooplessThread loopless;
        add(loopless.thread(), [addsAsItDies] {});
        addsAsItDies.reset();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(probe.runs(), 1);
}

TEST_F(EventNotifyMgr, AFunctionRefusedForItsFinishedThreadMayUseTheBus)
{
    const Deadline deadline;
    const Probe probe;
    auto addsAsItDies
        = std::shared_ptr<void>(nullptr, [&, main = QThread::currentThread()](void *) { add(main, probe.function()); });
    LoopThread loop;
    loop.finish();
    add(loop.thread(), [addsAsItDies = std::move(addsAsItDies)] {});
    QCoreApplication::processEvents();
    EXPECT_EQ(probe.runs(), 1);
}

TEST_F(EventNotifyMgr, EventsAddedFromManyThreadsAllRunInTheOrderOfEachAdder)
{
    constexpr int adderCount = 8;
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    std::vector<std::vector<int>> ran(adderCount);
    LoopThread loop;
    atOnce(adderCount, [&](int number) {
        for (const int value : expected) {
            add(loop.thread(), [&mine = ran[number], value] { mine.push_back(value); });
        }
    });
    loop.finish();
    EXPECT_THAT(ran, testing::Each(expected));
}

TEST_F(EventNotifyMgr, NothingIsLostWhenAThreadEndsWhileOthersAddForIt)
{
    constexpr int adderCount = 3;
    constexpr int eventsOfEach = 200;
    for (int round = 0; round < 100; ++round) {
        const Probe probe;
        LooplessThread loopless;
        QSemaphore added;
        std::vector<std::thread> adders;
        for (int i = 0; i < adderCount; ++i) {
            adders.emplace_back([&] {
                for (int n = 0; n < eventsOfEach; ++n) {
                    add(loopless.thread(), probe.function());
                    added.release();
                }
            });
        }
        added.acquire(adderCount * eventsOfEach / 2);
        loopless.finish();
        for (std::thread &adder : adders) {
            adder.join();
        }
        ASSERT_EQ(probe.runs(), 0);
        ASSERT_TRUE(probe.isFreed());
        ASSERT_EQ(bus().pendingCount(), 0);
    }
}

TEST_F(EventNotifyMgr, AnEventThatHadAParentBelongsToTheBusAlone)
{
    auto parent = std::make_unique<QObject>();
    int runs = 0;
    auto *const event = new TavBaseEvent(parent.get());
    event->setFunc([&runs] { ++runs; });
    TavEventNotifyMgr::getInstance()->addEventNotify(event);
    parent.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(TavEventNotifyMgr::getInstance()->pendingCount(), 0);
}

TEST_F(EventNotifyMgr, ALoopStartedByTheFirstOfSeveralWaitingEventsRunsTheRestInOrder)
{
    std::vector<int> order;
    QEventLoop loop;
    const auto add = [](std::function<void()> function) {
        auto *const event = new TavBaseEvent(nullptr);
        event->setFunc(std::move(function));
        TavEventNotifyMgr::getInstance()->addEventNotify(event);
    };
    add([&] {
        order.push_back(1);
        loop.exec();
        order.push_back(4);
    });
    add([&] { order.push_back(2); });
    add([&] {
        order.push_back(3);
        loop.quit();
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3, 4}));
}
