#include "LoopThread.h"
#include "TavSubscription.h"

#include <QCoreApplication>
#include <QSemaphore>

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
/// A page that counts what it is told, and takes its subscription with it when it dies.
struct Page : QObject {
    Page(TavSignal<int> &signal, QVector<int> &received)
        : subscription(signal, this, [&received](int value) { received.append(value); })
    {
    }

    TavSubscription subscription;
};
}

TEST(Subscription, DeliversWhileItsHolderLives)
{
    TavSignal<int> signal;
    QVector<int> received;
    const Page page(signal, received);
    signal.Emit(7);
    EXPECT_TRUE(received.isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(received, QVector<int>{7});
}

TEST(Subscription, EndsWithItsHolder)
{
    TavSignal<int> signal;
    QVector<int> received;
    {
        const Page page(signal, received);
        EXPECT_EQ(signal.subscriberCount(), 1);
    }
    EXPECT_EQ(signal.subscriberCount(), 0);
}

TEST(Subscription, DropsWhatWasPostedBeforeItEnded)
{
    TavSignal<int> signal;
    QVector<int> received;
    {
        const Page page(signal, received);
        signal.Emit(7);
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(received.isEmpty());
    EXPECT_EQ(TavEventNotifyMgr::getInstance()->pendingCount(), 0);
}

TEST(Subscription, DropsWhatWasPostedToAReceiverThatDiedBeforeTheSubscription)
{
    TavSignal<int> signal;
    int calls = 0;
    auto receiver = std::make_unique<QObject>();
    const TavSubscription subscription(signal, receiver.get(), [&calls](int) { ++calls; });
    signal.Emit(7);
    receiver.reset();
    signal.Emit(8);
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
}

TEST(Subscription, ThatIsReplacedEnds)
{
    TavSignal<int> signal;
    QObject receiver;
    QVector<int> received;
    TavSubscription subscription(signal, &receiver, [&received](int value) { received.append(value); });
    signal.Emit(1);
    subscription = TavSubscription(signal, &receiver, [&received](int value) { received.append(-value); });
    signal.Emit(2);
    EXPECT_EQ(signal.subscriberCount(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(received, QVector<int>{-2});
    subscription = {};
    EXPECT_EQ(signal.subscriberCount(), 0);
}

TEST(Subscription, ThatIsMovedGoesOn)
{
    TavSignal<int> signal;
    QObject receiver;
    QVector<int> received;
    TavSubscription first(signal, &receiver, [&received](int value) { received.append(value); });
    const TavSubscription second = std::move(first);
    signal.Emit(7);
    QCoreApplication::processEvents();
    EXPECT_EQ(received, QVector<int>{7});
}

TEST(Subscription, ThatCannotBeMadeEndsNoOther)
{
    struct CannotBeCopied {
        CannotBeCopied() = default;
        CannotBeCopied(CannotBeCopied &&) = default;
        CannotBeCopied(const CannotBeCopied &)
        {
            throw std::runtime_error("not copied");
        }

        void operator()(int) const
        {
        }
    };
    TavSignal<int> signal;
    QObject receiver;
    const TavSubscription subscription(signal, &receiver, [](int) {});
    EXPECT_THROW(const TavSubscription failed(signal, &receiver, CannotBeCopied()), std::runtime_error);
    EXPECT_EQ(signal.subscriberCount(), 1);
}

TEST(Subscription, RunsInTheReceiversThread)
{
    TavSignal<int> signal;
    LoopThread loop;
    QObject receiver;
    receiver.moveToThread(loop.thread());
    QThread *called = nullptr;
    QSemaphore done;
    const TavSubscription subscription(signal, &receiver, [&](int) {
        called = QThread::currentThread();
        done.release();
    });
    signal.Emit(7);
    ASSERT_TRUE(done.tryAcquire(1, 10000));
    EXPECT_EQ(called, loop.thread());
    loop.finish();
}

TEST(Subscription, MayBeEndedByItsOwnCallback)
{
    TavSignal<int> signal;
    QObject receiver;
    int calls = 0;
    TavSubscription subscription;
    subscription = TavSubscription(signal, &receiver, [&](int) {
        ++calls;
        subscription = {};
    });
    signal.Emit(1);
    signal.Emit(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(signal.subscriberCount(), 0);
}
