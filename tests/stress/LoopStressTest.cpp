// Deliveries into threads with event loops of their own, from eight threads at once.

#include "Contest.h"

#include "GlobalStateGuard.h"
#include "ITavSelectFuncMgr.h"
#include "LoopThread.h"
#include "TavEvents.h"
#include "TavPluginHost.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>

using testing::IsEmpty;

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

int pendingEvents()
{
    return TavEventNotifyMgr::getInstance()->pendingCount();
}

/// Hears of all selections. The values of one thread must come in order, each once; looked at in the receiver's
/// thread alone, and after that has ended.
class Subscriber
{
public:
    explicit Subscriber(QThread *thread)
        : m_thread(thread), m_id(eventFuncPageUpdate.subscribe([this](SubFuncType page) { take(page); }, thread))
    {
    }

    Q_DISABLE_COPY(Subscriber)

    ~Subscriber()
    {
        eventFuncPageUpdate.unsubscribe(m_id);
    }

    int received() const
    {
        return m_received;
    }

    int mistakes() const
    {
        return m_mistakes;
    }

private:
    void take(int value)
    {
        const bool inOrder = m_next[value % threadCount]++ == value / threadCount;
        m_mistakes += !inOrder || QThread::currentThread() != m_thread;
        ++m_received;
    }

    QThread *const m_thread;
    std::array<int, threadCount> m_next = {};
    int m_received = 0;
    int m_mistakes = 0;
    const int m_id;
};
}

TEST(LoopStress, EachSelectionReachesEachSubscriberOnceAndInItsThread)
{
    ASSERT_EQ(pendingEvents(), 0);
    const GlobalStateGuard guard;
    TavPluginHost host{TAV_PLUGIN_FILE};
    auto *const manager = host.manager<ITavSelectFuncMgr>();
    const auto token = std::make_shared<char>();
    {
        std::array<LoopThread, 3> loops;
        const Subscriber first(loops[0].thread());
        const Subscriber second(loops[1].thread());
        const Subscriber third(loops[2].thread());
        const Subscriber here(QThread::currentThread());
        const std::array<const Subscriber *, 4> subscribers = {&first, &second, &third, &here};

        const Operation select{"setCurSelType", [manager](int seed) {
                                   manager->setCurSelType(static_cast<FuncType>(seed), static_cast<SubFuncType>(seed));
                                   return true;
                               }};
        const Operation comeAndGo{"subscribe", [&loops, token](int seed) {
                                      const int id = eventFuncPageUpdate.subscribe([token](SubFuncType) {},
                                                                                   loops[seed % 3].thread());
                                      return eventFuncPageUpdate.unsubscribe(id);
                                  }};
        EXPECT_THAT(
            runContest({"eventFuncPageUpdate",
                        {select,
                         select,
                         select,
                         select,
                         comeAndGo,
                         comeAndGo,
                         {"getCurSelSubFuncType", [manager](int) { return manager->getCurSelSubFuncType() >= 0; }},
                         {"subscriberCount", [](int) { return eventFuncPageUpdate.subscriberCount() >= 4; }}}},
                       turnsOfEachCall()),
            IsEmpty());

        for (LoopThread &loop : loops) {
            loop.finish();
        }
        QCoreApplication::processEvents();
        for (const Subscriber *subscriber : subscribers) {
            EXPECT_EQ(subscriber->received(), 4 * turnsOfEachCall());
            EXPECT_EQ(subscriber->mistakes(), 0);
        }
    }
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_EQ(pendingEvents(), 0);
    EXPECT_EQ(eventFuncPageUpdate.subscriberCount(), 0);
}

TEST(LoopStress, SubscribersMayUseTheManagerThatAnnounces)
{
    ASSERT_EQ(pendingEvents(), 0);
    const GlobalStateGuard guard;
    TavPluginHost host{TAV_PLUGIN_FILE};
    auto *const manager = host.manager<ITavSelectFuncMgr>();
    std::atomic<int> calls = 0;
    LoopThread loop;
    const int id = eventFuncPageUpdate.subscribe(
        [manager, &calls](SubFuncType page) {
            manager->setCurSelFuncType(static_cast<FuncType>(page));
            calls += manager->getCurSelSubFuncType() >= 0 && manager->getCurSelFuncType() >= 0;
        },
        loop.thread());
    EXPECT_THAT(runContest({"eventFuncPageUpdate with answers",
                            {{"setCurSelType",
                              [manager](int seed) {
                                  manager->setCurSelType(static_cast<FuncType>(seed), static_cast<SubFuncType>(seed));
                                  return true;
                              }}}},
                           turnsOfEachCall()),
                IsEmpty());
    loop.finish();
    EXPECT_TRUE(eventFuncPageUpdate.unsubscribe(id));
    EXPECT_EQ(calls, threadCount * turnsOfEachCall());
    EXPECT_EQ(pendingEvents(), 0);
}

TEST(LoopStress, EventsForAThreadThatEndsAreRunOrDropped)
{
    ASSERT_EQ(pendingEvents(), 0);
    const auto token = std::make_shared<char>();
    std::atomic<int> runs = 0;
    for (int round = 0; round < 1 + turnsOfEachCall() / 20; ++round) {
        LoopThread loop;
        const auto send = [&](int) {
            auto *const event = new TavBaseEvent(nullptr);
            event->setFunc([token, &runs] { ++runs; });
            event->moveToThread(loop.thread());
            TavEventNotifyMgr::getInstance()->addEventNotify(event);
            return true;
        };
        const Operation sending{"addEventNotify", send};
        const auto quitOnce = [&loop](int) {
            loop.thread()->quit();
            return true;
        };
        EXPECT_THAT(runContest({"a thread that ends",
                                {sending, sending, sending, sending, sending, sending, sending, {"quit", quitOnce}}},
                               20),
                    IsEmpty());
        loop.thread()->wait();
        EXPECT_EQ(pendingEvents(), 0);
    }
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_LE(runs, 20 * 7 * (1 + turnsOfEachCall() / 20));
}
