#include "PageWalk.h"

#include "ITavFuncTypeMgr.h"
#include "ITavSelectFuncMgr.h"
#include "NavigationTree.h"
#include "TavEvents.h"
#include "TavObjectMgr.h"
#include "TavSubscription.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMutex>
#include <QThread>

#include <utility>

namespace
{
/// @brief A page that notes every change with its thread and its time.
class PageSubscriber
{
public:
    /// @p worker names the thread of its own on which it is called; without one, that is the calling thread.
    explicit PageSubscriber(QString name, const QString &worker = {}) : m_name(std::move(name))
    {
        if (!worker.isEmpty()) {
            m_thread.setObjectName(worker);
            m_thread.start();
            m_receiver.moveToThread(&m_thread);
        }
        m_subscription = TavSubscription(eventFuncPageUpdate, &m_receiver, [this](auto page) {
            const QMutexLocker lock(&m_mutex);
            m_deliveries.append(
                {pageKey(page), m_name, QThread::currentThread()->objectName(), m_clock.nsecsElapsed()});
        });
    }

    ~PageSubscriber()
    {
        m_thread.quit();
        m_thread.wait();
    }
    Q_DISABLE_COPY(PageSubscriber)

    /// Forgets what was noted; the clock of the deliveries to come starts.
    void restart()
    {
        const QMutexLocker lock(&m_mutex);
        m_deliveries.clear();
        m_clock.start();
    }

    QVector<PageDelivery> deliveries()
    {
        const QMutexLocker lock(&m_mutex);
        return m_deliveries;
    }

private:
    const QString m_name;
    QMutex m_mutex; // for the clock and the deliveries
    QElapsedTimer m_clock;
    QVector<PageDelivery> m_deliveries;
    QThread m_thread;
    QObject m_receiver; // lives in the thread, and so is called there
    TavSubscription m_subscription;
};

/// Runs the event loop until @p subscriber has a delivery, or patience is at its end; whether it has one.
bool waitFor(PageSubscriber &subscriber)
{
    QElapsedTimer timer;
    timer.start();
    while (subscriber.deliveries().isEmpty() && timer.elapsed() < 1000LL * PageWalk::patience) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return !subscriber.deliveries().isEmpty();
}
}

PageWalk walkPages()
{
    QThread::currentThread()->setObjectName("gui");
    PageSubscriber navigationBar("navigation bar");
    PageSubscriber auditPage("audit page", "audit-worker");
    PageSubscriber networkPage("network page", "network-worker");
    PageSubscriber *const subscribers[] = {&navigationBar, &auditPage, &networkPage};

    auto *const selection = tavObject<ITavSelectFuncMgr>();
    PageWalk walk;
    const QVector<TavSubFuncTypeData_> pages = tavObject<ITavFuncTypeMgr>()->getSubFuncInfo();
    for (const TavSubFuncTypeData_ &page : pages) {
        for (PageSubscriber *const subscriber : subscribers) {
            subscriber->restart();
        }
        selection->setCurSelType(page.funcType, page.subFuncType);
        for (PageSubscriber *const subscriber : subscribers) {
            if (!waitFor(*subscriber)) {
                walk.stoppedAt = pageKey(page.subFuncType);
                return walk;
            }
            walk.deliveries += subscriber->deliveries();
        }
    }
    return walk;
}
