#include "BackgroundCalls.h"
#include "Deadline.h"
#include "GlobalStateGuard.h"
#include "ITavSelectFuncMgr.h"
#include "LoopThread.h"
#include "TavEvents.h"
#include "TavPluginHost.h"

#include <QCoreApplication>
#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Func = CTavFuncTypeHeader;
using SubFunc = CTavSubFuncTypeHeader;
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

namespace
{
/// @brief Writes down what eventFuncPageUpdate announces, and in which thread. To be read in the thread it subscribes
/// for, or when that has ended.
struct Subscriber {
    explicit Subscriber(QThread *thread, const std::function<void()> &whenCalled = {})
        : id(eventFuncPageUpdate.subscribe(
            [this, whenCalled](SubFuncType value) {
                values.push_back(value);
                threads.push_back(QThread::currentThread());
                if (whenCalled) {
                    whenCalled();
                }
            },
            thread))
    {
    }

    Q_DISABLE_COPY(Subscriber)

    ~Subscriber()
    {
        eventFuncPageUpdate.unsubscribe(id);
    }

    std::vector<SubFuncType> values;
    std::vector<QThread *> threads;
    const int id;
};

/// @brief A callback that runs a function the next time it is copied, which is done for each delivery while it is
/// announced.
struct CopyWatch {
    explicit CopyWatch(std::function<void()> *whenCopied) : whenCopied(whenCopied)
    {
    }

    CopyWatch(const CopyWatch &other) : whenCopied(other.whenCopied)
    {
        // Once only: what it runs may announce, and so copy, again.
        if (const std::function<void()> action = std::exchange(*whenCopied, nullptr)) {
            action();
        }
    }

    CopyWatch(CopyWatch &&) = default;
    CopyWatch &operator=(const CopyWatch &) = delete;
    CopyWatch &operator=(CopyWatch &&) = delete;
    ~CopyWatch() = default;

    void operator()(SubFuncType) const
    {
    }

    std::function<void()> *whenCopied;
};

int pendingEvents()
{
    return TavEventNotifyMgr::getInstance()->pendingCount();
}

class SelectFuncMgr : public testing::Test
{
protected:
    SelectFuncMgr()
    {
        EXPECT_EQ(eventFuncPageUpdate.subscriberCount(), 0);
        EXPECT_EQ(pendingEvents(), 0);
    }

    GlobalStateGuard guard;
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavSelectFuncMgr *const mgr = host.manager<ITavSelectFuncMgr>();
};
}

TEST_F(SelectFuncMgr, SelectsNothingAtFirst)
{
    EXPECT_EQ(mgr->getCurSelFuncType(), Func::Func_None);
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_None);
}

TEST_F(SelectFuncMgr, KeepsTheFunctionWithoutAnnouncingIt)
{
    const Subscriber subscriber(QThread::currentThread());
    mgr->setCurSelFuncType(Func::Func_SystemAudit);
    EXPECT_EQ(mgr->getCurSelFuncType(), Func::Func_SystemAudit);
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_None);
    EXPECT_EQ(pendingEvents(), 0);
    QCoreApplication::processEvents();
    EXPECT_THAT(subscriber.values, IsEmpty());
}

TEST_F(SelectFuncMgr, KeepsThePageWithoutAnnouncingIt)
{
    const Subscriber subscriber(QThread::currentThread());
    mgr->setCurSelSubFuncType(SubFunc::SubFunc_LogAudit);
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_LogAudit);
    EXPECT_EQ(mgr->getCurSelFuncType(), Func::Func_None);
    EXPECT_EQ(pendingEvents(), 0);
    QCoreApplication::processEvents();
    EXPECT_THAT(subscriber.values, IsEmpty());
}

TEST_F(SelectFuncMgr, KeepsBothOfASelection)
{
    mgr->setCurSelFuncType(Func::Func_HostInfo);
    mgr->setCurSelSubFuncType(SubFunc::SubFunc_serverResourceInfo);
    mgr->setCurSelType(Func::Func_AccessControl, SubFunc::SubFunc_ObjectAdd);
    EXPECT_EQ(mgr->getCurSelFuncType(), Func::Func_AccessControl);
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_ObjectAdd);
}

TEST_F(SelectFuncMgr, KeepsTypesThatTheEnumerationsDoNotName)
{
    for (const int value : {-1, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        mgr->setCurSelType(static_cast<FuncType>(value), static_cast<SubFuncType>(value));
        EXPECT_EQ(mgr->getCurSelFuncType(), value);
        EXPECT_EQ(mgr->getCurSelSubFuncType(), value);
    }
}

TEST_F(SelectFuncMgr, PostsNothingWithoutSubscribers)
{
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    EXPECT_EQ(pendingEvents(), 0);
    EXPECT_EQ(mgr->getCurSelFuncType(), Func::Func_SystemAudit);
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_LogAudit);
}

TEST_F(SelectFuncMgr, AnnouncesTheNewPage)
{
    const Subscriber subscriber(QThread::currentThread());
    mgr->setCurSelType(Func::Func_AccessControl, SubFunc::SubFunc_ObjectAdd);
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    QCoreApplication::processEvents();
    EXPECT_THAT(subscriber.values, ElementsAre(SubFunc::SubFunc_ObjectAdd, SubFunc::SubFunc_LogAudit));
}

TEST_F(SelectFuncMgr, AnnouncesAlsoWhenNothingHasChanged)
{
    const Subscriber subscriber(QThread::currentThread());
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    QCoreApplication::processEvents();
    EXPECT_THAT(subscriber.values, ElementsAre(SubFunc::SubFunc_LogAudit, SubFunc::SubFunc_LogAudit));
}

TEST_F(SelectFuncMgr, AnnouncesTheNonePage)
{
    const Subscriber subscriber(QThread::currentThread());
    mgr->setCurSelType(Func::Func_None, SubFunc::SubFunc_None);
    QCoreApplication::processEvents();
    EXPECT_THAT(subscriber.values, ElementsAre(SubFunc::SubFunc_None));
}

TEST_F(SelectFuncMgr, CallsNoSubscriberInsideTheCallNotEvenInItsOwnThread)
{
    const Subscriber subscriber(QThread::currentThread());
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    EXPECT_THAT(subscriber.values, IsEmpty());
    EXPECT_EQ(pendingEvents(), 1);
    QCoreApplication::processEvents();
    EXPECT_THAT(subscriber.values, SizeIs(1));
    EXPECT_EQ(pendingEvents(), 0);
}

TEST_F(SelectFuncMgr, CallsEachSubscriberOnceInItsOwnThread)
{
    LoopThread one;
    LoopThread other;
    const Subscriber inOne(one.thread());
    const Subscriber inOther(other.thread());
    const Subscriber here(QThread::currentThread());
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    one.finish();
    other.finish();
    QCoreApplication::processEvents();
    for (const Subscriber *const subscriber : {&inOne, &inOther, &here}) {
        EXPECT_THAT(subscriber->values, ElementsAre(SubFunc::SubFunc_LogAudit));
    }
    EXPECT_THAT(inOne.threads, ElementsAre(one.thread()));
    EXPECT_THAT(inOther.threads, ElementsAre(other.thread()));
    EXPECT_THAT(here.threads, ElementsAre(QThread::currentThread()));
}

TEST_F(SelectFuncMgr, AnnouncesSelectionsOfAnyThread)
{
    const Subscriber subscriber(QThread::currentThread());
    std::thread([this] { mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit); }).join();
    QCoreApplication::processEvents();
    EXPECT_THAT(subscriber.values, ElementsAre(SubFunc::SubFunc_LogAudit));
    EXPECT_THAT(subscriber.threads, ElementsAre(QThread::currentThread()));
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_LogAudit);
}

TEST_F(SelectFuncMgr, LeavesSubscribersWhoseTimeIsOverAlone)
{
    const Subscriber staying(QThread::currentThread());
    {
        const Subscriber leaving(QThread::currentThread());
    }
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    EXPECT_EQ(pendingEvents(), 1);
    QCoreApplication::processEvents();
    EXPECT_THAT(staying.values, SizeIs(1));
}

TEST_F(SelectFuncMgr, LetsSubscribersCallBack)
{
    LoopThread thread;
    FuncType func = Func::Func_None;
    SubFuncType page = SubFunc::SubFunc_None;
    const auto callBack = [&] {
        func = mgr->getCurSelFuncType();
        page = mgr->getCurSelSubFuncType();
        mgr->setCurSelFuncType(Func::Func_HostInfo);
        mgr->setCurSelSubFuncType(SubFunc::SubFunc_serverResourceInfo);
    };
    const Subscriber subscriber(thread.thread(), callBack);
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    thread.finish();
    EXPECT_EQ(func, Func::Func_SystemAudit);
    EXPECT_EQ(page, SubFunc::SubFunc_LogAudit);
    EXPECT_EQ(mgr->getCurSelFuncType(), Func::Func_HostInfo);
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_serverResourceInfo);
}

TEST_F(SelectFuncMgr, LetsASubscriberSelectAnotherPage)
{
    const auto redirect = [this] {
        if (mgr->getCurSelSubFuncType() != SubFunc::SubFunc_LogAudit) {
            mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
        }
    };
    const Subscriber subscriber(QThread::currentThread(), redirect);
    mgr->setCurSelType(Func::Func_AccessControl, SubFunc::SubFunc_ObjectAdd);
    while (pendingEvents() > 0) {
        QCoreApplication::processEvents();
    }
    EXPECT_THAT(subscriber.values, ElementsAre(SubFunc::SubFunc_ObjectAdd, SubFunc::SubFunc_LogAudit));
}

TEST_F(SelectFuncMgr, HoldsItsLockWhileItAnnounces)
{
    std::function<void()> whenCopied;
    const int id = eventFuncPageUpdate.subscribe(CopyWatch(&whenCopied), QThread::currentThread());

    std::vector<std::size_t> returned;
    std::unique_ptr<BackgroundCalls> calls;
    whenCopied = [&] {
        calls = std::make_unique<BackgroundCalls>(std::vector<std::function<void()>>{
            [this] { mgr->setCurSelFuncType(Func::Func_HostInfo); },
            [this] { static_cast<void>(mgr->getCurSelFuncType()); },
            [this] { mgr->setCurSelSubFuncType(SubFunc::SubFunc_SelfProtect); },
            [this] { static_cast<void>(mgr->getCurSelSubFuncType()); },
            [this] { mgr->setCurSelType(Func::Func_HostInfo, SubFunc::SubFunc_SelfProtect); },
        });
        returned = calls->returned();
    };
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    ASSERT_NE(calls, nullptr);
    EXPECT_THAT(returned, IsEmpty());

    calls.reset();
    eventFuncPageUpdate.unsubscribe(id);
    QCoreApplication::processEvents();
}

TEST_F(SelectFuncMgr, KeepsTheSelectionAndFreesItsLockWhenACallbackCannotBeCopied)
{
    const Deadline deadline;
    std::function<void()> whenCopied;
    const int id = eventFuncPageUpdate.subscribe(CopyWatch(&whenCopied), QThread::currentThread());
    whenCopied = [] { throw std::runtime_error("no copy"); };
    EXPECT_THROW(mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit), std::runtime_error);
    EXPECT_EQ(mgr->getCurSelFuncType(), Func::Func_SystemAudit);
    EXPECT_EQ(mgr->getCurSelSubFuncType(), SubFunc::SubFunc_LogAudit);
    eventFuncPageUpdate.unsubscribe(id);
}

TEST_F(SelectFuncMgr, LetsWhatACallbackOwnsAskForTheSelectionAsItDies)
{
    const Deadline deadline;
    LoopThread ended;
    ended.finish();
    for (QThread *const thread : {ended.thread(), static_cast<QThread *>(nullptr), QThread::currentThread()}) {
        int asked = 0;
        struct AsksAsItDies {
            ITavSelectFuncMgr *mgr;
            int *asked;
            ~AsksAsItDies()
            {
                *asked += mgr->getCurSelSubFuncType() == SubFunc::SubFunc_LogAudit;
            }
        };
        // Each copy of the callback asks, those that the announcement makes among them.
        const int id = eventFuncPageUpdate.subscribe([dying = AsksAsItDies{mgr, &asked}](auto) {}, thread);
        asked = 0;
        mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
        QCoreApplication::processEvents();
        EXPECT_GT(asked, 0);
        EXPECT_EQ(pendingEvents(), 0);
        eventFuncPageUpdate.unsubscribe(id);
    }
}

TEST_F(SelectFuncMgr, LetsASubscriberThatLeavesDuringAnAnnouncementAskAsItDies)
{
    const Deadline deadline;
    std::function<void()> whenCopied;
    int asked = 0;
    auto dying = std::shared_ptr<void>(nullptr, [&](void *) { asked += mgr->getCurSelSubFuncType() >= 0; });
    const int watching = eventFuncPageUpdate.subscribe(CopyWatch(&whenCopied), QThread::currentThread());
    const int leaving = eventFuncPageUpdate.subscribe([dying](auto) {}, QThread::currentThread());
    dying.reset();
    whenCopied = [leaving] { eventFuncPageUpdate.unsubscribe(leaving); };
    mgr->setCurSelType(Func::Func_SystemAudit, SubFunc::SubFunc_LogAudit);
    QCoreApplication::processEvents();
    eventFuncPageUpdate.unsubscribe(watching);
    EXPECT_EQ(asked, 1);
}

TEST_F(SelectFuncMgr, AnnouncesConcurrentSelectionsToAllInTheOrderInWhichTheyWereMade)
{
    constexpr int selections = 2000;
    LoopThread one;
    LoopThread other;
    const Subscriber inOne(one.thread());
    const Subscriber inOther(other.thread());
    const auto select = [this](int first) {
        for (int i = first; i < first + selections; ++i) {
            mgr->setCurSelType(static_cast<FuncType>(i), static_cast<SubFuncType>(i));
        }
    };
    std::thread low(select, 0);
    std::thread high(select, selections);
    low.join();
    high.join();
    one.finish();
    other.finish();

    ASSERT_THAT(inOne.values, SizeIs(2 * selections));
    EXPECT_EQ(inOther.values, inOne.values);
    EXPECT_EQ(inOne.values.back(), mgr->getCurSelSubFuncType());
    // Both halves of a selection are stored as one.
    EXPECT_EQ(static_cast<int>(mgr->getCurSelFuncType()), static_cast<int>(mgr->getCurSelSubFuncType()));
}
