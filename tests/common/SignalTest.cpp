#include "TavSignal.h"

#include "AtOnce.h"
#include "Deadline.h"
#include "LogCapture.h"
#include "LoopThread.h"
#include "TavEvents.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <numeric>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{
std::atomic<int> objectsOnHeap = 0;
thread_local int allocationsUntilRefusal = -1; ///< of the calling thread; -1 for never
}

// This program counts what is on the heap, and may refuse to put more there.
void *operator new(std::size_t size)
{
    if (allocationsUntilRefusal >= 0 && allocationsUntilRefusal-- == 0) {
        throw std::bad_alloc();
    }
    if (void *const place = std::malloc(size ? size : 1)) {
        ++objectsOnHeap;
        return place;
    }
    throw std::bad_alloc();
}

void operator delete(void *place) noexcept
{
    objectsOnHeap -= place ? 1 : 0;
    std::free(place);
}

void operator delete(void *place, std::size_t) noexcept
{
    operator delete(place);
}

namespace
{
using Signal = TavSignal<int>;

void ignore(int)
{
}

std::function<void(int)> appendTo(std::vector<int> &values)
{
    return [&values](int value) { values.push_back(value); };
}

int pendingEvents()
{
    return TavEventNotifyMgr::getInstance()->pendingCount();
}

/// A callback that does something whenever it is copied.
struct CopiedCallback {
    explicit CopiedCallback(std::function<void()> whenCopied) : m_whenCopied(std::move(whenCopied))
    {
    }

    CopiedCallback(const CopiedCallback &other) : m_whenCopied(other.m_whenCopied)
    {
        m_whenCopied();
    }

    void operator()(int) const
    {
    }

private:
    std::function<void()> m_whenCopied;
};
}

TEST(Signal, SubscriptionsHavePositiveIdsThatAreNeverReused)
{
    Signal signal;
    std::set<int> ids;
    for (int i = 0; i < 100; ++i) {
        const int id = signal.subscribe(ignore, QThread::currentThread());
        EXPECT_GT(id, 0);
        EXPECT_TRUE(ids.insert(id).second) << id;
        if (i % 3 != 0) {
            signal.unsubscribe(id);
        }
    }
}

TEST(Signal, CountsItsSubscriptions)
{
    Signal signal;
    EXPECT_EQ(signal.subscriberCount(), 0);
    const int id = signal.subscribe(ignore, QThread::currentThread());
    signal.subscribe(ignore, QThread::currentThread());
    EXPECT_EQ(signal.subscriberCount(), 2);
    signal.unsubscribe(id);
    EXPECT_EQ(signal.subscriberCount(), 1);
}

TEST(Signal, UnsubscribingIsTrueOnce)
{
    Signal signal;
    const int id = signal.subscribe(ignore, QThread::currentThread());
    EXPECT_TRUE(signal.unsubscribe(id));
    EXPECT_FALSE(signal.unsubscribe(id));
}

TEST(Signal, UnsubscribingAnUnknownIdIsFalseAndChangesNothing)
{
    Signal signal;
    const int id = signal.subscribe(ignore, QThread::currentThread());
    for (const int unknown : {0, -1, id + 1}) {
        EXPECT_FALSE(signal.unsubscribe(unknown)) << unknown;
    }
    EXPECT_EQ(signal.subscriberCount(), 1);
}

TEST(Signal, EmitWithoutSubscribersPostsNothing)
{
    const Signal signal;
    signal.Emit(1);
    EXPECT_EQ(pendingEvents(), 0);
}

TEST(Signal, EmitNeverRunsACallbackItselfNotEvenForTheEmittingThread)
{
    Signal signal;
    std::vector<int> values;
    signal.subscribe(appendTo(values), QThread::currentThread());
    signal.Emit(7);
    EXPECT_THAT(values, testing::IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_THAT(values, testing::ElementsAre(7));
}

TEST(Signal, EveryEmissionIsDeliveredAlsoOfAnEqualValue)
{
    Signal signal;
    std::vector<int> values;
    signal.subscribe(appendTo(values), QThread::currentThread());
    for (const int value : {7, 7, 8}) {
        signal.Emit(value);
    }
    QCoreApplication::processEvents();
    EXPECT_THAT(values, testing::ElementsAre(7, 7, 8));
}

TEST(Signal, DeliversInTheThreadOfEachSubscriber)
{
    Signal signal;
    LoopThread first;
    LoopThread second;
    QThread *firstRanIn = nullptr;
    QThread *secondRanIn = nullptr;
    signal.subscribe([&](int) { firstRanIn = QThread::currentThread(); }, first.thread());
    signal.subscribe([&](int) { secondRanIn = QThread::currentThread(); }, second.thread());
    signal.Emit(1);
    first.finish();
    second.finish();
    EXPECT_EQ(firstRanIn, first.thread());
    EXPECT_EQ(secondRanIn, second.thread());
}

TEST(Signal, DeliversInTheOrderOfTheList)
{
    Signal signal;
    std::vector<int> order;
    const auto subscribe = [&](int number) {
        return signal.subscribe([&order, number](int) { order.push_back(number); }, QThread::currentThread());
    };
    subscribe(1);
    const int id = subscribe(2);
    subscribe(3);
    signal.unsubscribe(id);
    subscribe(4);
    signal.Emit(0);
    QCoreApplication::processEvents();
    EXPECT_THAT(order, testing::ElementsAre(1, 3, 4));
}

TEST(Signal, ASubscriberWithoutAThreadIsLeftOut)
{
    Signal signal;
    std::vector<int> withoutThread;
    std::vector<int> values;
    signal.subscribe(appendTo(withoutThread), nullptr);
    signal.subscribe(appendTo(values), QThread::currentThread());
    signal.Emit(7);
    QCoreApplication::processEvents();
    EXPECT_THAT(withoutThread, testing::IsEmpty());
    EXPECT_THAT(values, testing::ElementsAre(7));
    EXPECT_EQ(pendingEvents(), 0);
}

TEST(Signal, AnEmptyCallbackIsLoggedAndTheOthersAreCalled)
{
    const LogCapture log;
    Signal signal;
    std::vector<int> values;
    signal.subscribe({}, QThread::currentThread());
    signal.subscribe(appendTo(values), QThread::currentThread());
    signal.Emit(7);
    QCoreApplication::processEvents();
    EXPECT_THAT(values, testing::ElementsAre(7));
    EXPECT_EQ(log.messages("tav.TavEventNotifyMgr").size(), 1);
}

TEST(Signal, AnUnsubscribedCallbackMissesLaterEmissionsOnly)
{
    Signal signal;
    std::vector<int> values;
    const int id = signal.subscribe(appendTo(values), QThread::currentThread());
    signal.Emit(1);
    signal.unsubscribe(id);
    signal.Emit(2);
    QCoreApplication::processEvents();
    EXPECT_THAT(values, testing::ElementsAre(1));
}

TEST(Signal, ASubscriberMayUnsubscribeItselfInItsCallback)
{
    const Deadline deadline;
    Signal signal;
    std::vector<int> values;
    int id = 0;
    id = signal.subscribe(
        [&](int value) {
            values.push_back(value);
            EXPECT_TRUE(signal.unsubscribe(id));
        },
        QThread::currentThread());
    for (const int value : {1, 2}) {
        signal.Emit(value);
        QCoreApplication::processEvents();
    }
    EXPECT_THAT(values, testing::ElementsAre(1));
}

TEST(Signal, WhatDiesWithItsSubscriptionMayUseTheSignal)
{
    const Deadline deadline;
    Signal signal;
    const int otherId = signal.subscribe(ignore, QThread::currentThread());
    auto endsTheOther = std::shared_ptr<void>(nullptr, [&](void *) { signal.unsubscribe(otherId); });
    const int id = signal.subscribe([endsTheOther](int) {}, QThread::currentThread());
    endsTheOther.reset();
    EXPECT_TRUE(signal.unsubscribe(id));
    EXPECT_EQ(signal.subscriberCount(), 0);
}

TEST(Signal, EmitTakesNoLockOfTheSignal)
{
    const Deadline deadline;
    Signal signal;
    bool emits = false;
    int emissions = 0;
    const auto emitOnce = [&] {
        if (std::exchange(emits, false)) {
            signal.Emit(1);
            ++emissions;
        }
    };
    signal.subscribe(CopiedCallback(emitOnce), nullptr);
    emits = true;
    // Copies the list, and with it the callback, while holding the lock.
    signal.subscribe(ignore, nullptr);
    EXPECT_EQ(emissions, 1);
    QCoreApplication::processEvents(); // the delivery that has no thread ends here
}

TEST(Signal, ACallbackWhoseCopyThrowsLeavesNothingBehind)
{
    Signal signal;
    bool throws = false;
    signal.subscribe(CopiedCallback([&throws] {
                         if (throws) {
                             throw std::runtime_error("no copy");
                         }
                     }),
                     QThread::currentThread());
    throws = true;
    EXPECT_THROW(signal.Emit(1), std::runtime_error); // whatever is made once and kept is made now
    const int before = objectsOnHeap;
    for (int i = 0; i < 100; ++i) {
        EXPECT_THROW(signal.Emit(1), std::runtime_error);
    }
    EXPECT_LE(objectsOnHeap, before); // a thread that has just ended may still free what was its own
    EXPECT_EQ(pendingEvents(), 0);
    throws = false;
}

TEST(Signal, NothingIsLeftBehindWhereverTheMemoryRunsOut)
{
    Signal signal;
    std::vector<int> values;
    values.reserve(1000);
    signal.subscribe(appendTo(values), QThread::currentThread());
    signal.subscribe(appendTo(values), QThread::currentThread());
    signal.Emit(0);
    QCoreApplication::processEvents();
    const int before = objectsOnHeap;
    int refusals = 0;
    for (bool isRefused = true; isRefused; refusals += isRefused) {
        allocationsUntilRefusal = refusals;
        try {
            signal.Emit(1);
            isRefused = false;
        } catch (const std::bad_alloc &) {
        }
        allocationsUntilRefusal = -1;
        QCoreApplication::processEvents();
        EXPECT_LE(objectsOnHeap, before + 1) << refusals; // the bus's queue grows and shrinks by a block
        EXPECT_EQ(pendingEvents(), 0) << refusals;
    }
    EXPECT_GE(refusals, 4); // two events with two functions
    values.clear();
    signal.Emit(2);
    QCoreApplication::processEvents();
    EXPECT_THAT(values, testing::ElementsAre(2, 2));
}

TEST(Signal, WhatACallbackOwnsOutlivesTheEmissionsThatWalkIt)
{
    Signal signal;
    auto owned = std::make_shared<char>();
    int id = 0;
    bool ends = false;
    bool isAliveInside = false;
    const std::weak_ptr<char> watch = owned;
    const auto endOnce = [&] {
        if (std::exchange(ends, false)) {
            signal.unsubscribe(id);
            isAliveInside = !watch.expired();
        }
    };
    signal.subscribe(CopiedCallback(endOnce), nullptr);
    id = signal.subscribe([owned = std::move(owned)](int) {}, nullptr);
    ends = true;
    signal.Emit(1);
    EXPECT_TRUE(isAliveInside);
    EXPECT_FALSE(watch.expired());
    QCoreApplication::processEvents();
    EXPECT_TRUE(watch.expired());
}

TEST(Signal, NoCopyOfACallbackThatIsUnsubscribedMeanwhileDiesInsideAnEmission)
{
    Signal signal;
    int id = 0;
    bool ends = false;
    bool isEmitting = false;
    int deaths = 0;
    struct Counted {
        const bool &isEmitting;
        int &deaths;
        ~Counted()
        {
            deaths += isEmitting;
        }
    };
    const auto endOnce = [&] {
        if (std::exchange(ends, false)) {
            signal.unsubscribe(id);
        }
    };
    signal.subscribe(CopiedCallback(endOnce), QThread::currentThread());
    id = signal.subscribe([dying = Counted{isEmitting, deaths}](int) {}, QThread::currentThread());
    ends = true;
    isEmitting = true;
    signal.Emit(1);
    isEmitting = false;
    EXPECT_FALSE(ends);
    EXPECT_EQ(deaths, 0);
    QCoreApplication::processEvents();
}

TEST(Signal, WhatDiesWithAListMayUseTheSignal)
{
    const Deadline deadline;
    Signal signal;
    bool uses = false;
    struct UsesTheSignal {
        Signal &signal;
        bool &uses;
        ~UsesTheSignal()
        {
            if (std::exchange(uses, false)) {
                signal.unsubscribe(-1);
            }
        }
    };
    const int id = signal.subscribe([dying = UsesTheSignal{signal, uses}](int) {}, nullptr);
    for (const auto &change : std::vector<std::function<void()>>{[&] { signal.subscribe(ignore, nullptr); },
                                                                 [&] { EXPECT_TRUE(signal.unsubscribe(id)); }}) {
        uses = true; // as a copy dies with the list of before
        change();
        EXPECT_FALSE(uses);
    }
    EXPECT_EQ(signal.subscriberCount(), 1);
}

TEST(Signal, TenThousandEmissionsReachFourThreadsOnceEachAndInOrder)
{
    std::vector<int> expected(10000);
    std::iota(expected.begin(), expected.end(), 0);
    Signal signal;
    std::vector<std::vector<int>> received(4);
    std::vector<LoopThread> threads(received.size());
    for (std::size_t i = 0; i < received.size(); ++i) {
        signal.subscribe(appendTo(received[i]), threads[i].thread());
    }
    for (const int value : expected) {
        signal.Emit(value);
    }
    for (LoopThread &thread : threads) {
        thread.finish();
    }
    EXPECT_THAT(received, testing::Each(expected));
    EXPECT_EQ(pendingEvents(), 0);
}

TEST(Signal, SubscriptionsMadeAndEndedByManyThreadsAtOnceAreAllCounted)
{
    constexpr int threadCount = 4;
    constexpr int subscriptionsOfEach = 300;
    Signal signal;
    std::vector<std::set<int>> ids(threadCount);
    atOnce(threadCount, [&](int number) {
        for (int i = 0; i < subscriptionsOfEach; ++i) {
            ids[number].insert(signal.subscribe(ignore, nullptr));
        }
    });
    EXPECT_EQ(signal.subscriberCount(), threadCount * subscriptionsOfEach);
    std::vector<int> refusals(threadCount, 0);
    atOnce(threadCount, [&](int number) {
        for (const int id : ids[number]) {
            refusals[number] += !signal.unsubscribe(id);
        }
    });
    EXPECT_THAT(refusals, testing::Each(0));
    EXPECT_EQ(signal.subscriberCount(), 0);
}

TEST(Signal, SubscribingAndUnsubscribingWhileOthersEmitDisturbsNobody)
{
    constexpr int emitterCount = 3;
    constexpr int emissionsOfEach = 2000;
    const auto token = std::make_shared<std::atomic<int>>(0);
    {
        Signal signal;
        LoopThread receiver;
        int received = 0;
        signal.subscribe([&received](int) { ++received; }, receiver.thread());

        std::atomic<int> emittersAtWork = emitterCount;
        std::atomic<int> failures = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < emitterCount; ++i) {
            threads.emplace_back([&] {
                for (int n = 0; n < emissionsOfEach; ++n) {
                    signal.Emit(n);
                }
                --emittersAtWork;
            });
        }
        for (int i = 0; i < 3; ++i) {
            threads.emplace_back([&] {
                while (emittersAtWork > 0) {
                    const int id = signal.subscribe([token](int) { ++*token; }, receiver.thread());
                    failures += !signal.unsubscribe(id);
                }
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        receiver.finish();
        EXPECT_EQ(received, emitterCount * emissionsOfEach);
        EXPECT_EQ(failures, 0);
        EXPECT_EQ(signal.subscriberCount(), 1);
    }
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_EQ(pendingEvents(), 0);
}

TEST(Signal, ThePageUpdateCarriesTheNewPage)
{
    using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;
    static_assert(std::is_same_v<decltype(eventFuncPageUpdate), TavSignal<const Page>>);
    std::vector<Page> pages;
    const int id
        = eventFuncPageUpdate.subscribe([&pages](Page page) { pages.push_back(page); }, QThread::currentThread());
    eventFuncPageUpdate.Emit(CTavSubFuncTypeHeader::SubFunc_BaselineScan);
    QCoreApplication::processEvents();
    eventFuncPageUpdate.unsubscribe(id);
    EXPECT_THAT(pages, testing::ElementsAre(CTavSubFuncTypeHeader::SubFunc_BaselineScan));
}
