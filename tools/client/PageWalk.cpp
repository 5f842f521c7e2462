#include "PageWalk.h"

#include "ITavFuncTypeMgr.h"
#include "ITavSelectFuncMgr.h"
#include "NavigationTree.h"
#include "TavObjectMgr.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMutex>

namespace
{
/// @brief A page that keeps the deliveries of one selection.
class NotingPage
{
public:
    explicit NotingPage(const QString &name, const QString &worker = {})
        : m_subscriber(name, worker, [this](const PageDelivery &delivery) {
            const QMutexLocker lock(&m_mutex);
            m_deliveries.append(delivery);
        })
    {
    }

    /// Forgets what was noted: a page is about to be selected.
    void restart()
    {
        m_subscriber.expect();
        const QMutexLocker lock(&m_mutex);
        m_deliveries.clear();
    }

    QVector<PageDelivery> deliveries()
    {
        const QMutexLocker lock(&m_mutex);
        return m_deliveries;
    }

private:
    QMutex m_mutex; // for the deliveries
    QVector<PageDelivery> m_deliveries;
    PageSubscriber m_subscriber; // the last: its thread uses the others
};

/// Runs the event loop until @p subscriber has a delivery, or patience is at its end; whether it has one.
bool waitFor(NotingPage &subscriber)
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
    NotingPage navigationBar("navigation bar");
    NotingPage auditPage("audit page", "audit-worker");
    NotingPage networkPage("network page", "network-worker");
    NotingPage *const subscribers[] = {&navigationBar, &auditPage, &networkPage};

    auto *const selection = tavObject<ITavSelectFuncMgr>();
    PageWalk walk;
    const QVector<TavSubFuncTypeData_> pages = tavObject<ITavFuncTypeMgr>()->getSubFuncInfo();
    for (const TavSubFuncTypeData_ &page : pages) {
        for (NotingPage *const subscriber : subscribers) {
            subscriber->restart();
        }
        selection->setCurSelType(page.funcType, page.subFuncType);
        for (NotingPage *const subscriber : subscribers) {
            if (!waitFor(*subscriber)) {
                walk.stoppedAt = pageKey(page.subFuncType);
                return walk;
            }
            walk.deliveries += subscriber->deliveries();
        }
    }
    return walk;
}
