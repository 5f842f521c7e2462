#include "PageSubscriber.h"

#include "NavigationTree.h"
#include "TavEvents.h"
#include "ThreadName.h"

#include <utility>

PageSubscriber::PageSubscriber(QString name, const QString &worker, Receive receive)
    : m_name(std::move(name)), m_receive(std::move(receive))
{
    if (!worker.isEmpty()) {
        m_thread.setObjectName(worker);
        m_thread.start();
        m_receiver.moveToThread(&m_thread);
    }
    m_subscription = TavSubscription(eventFuncPageUpdate, &m_receiver, [this](auto page) { take(page); });
}

PageSubscriber::~PageSubscriber()
{
    m_thread.quit();
    m_thread.wait();
}

void PageSubscriber::expect()
{
    QElapsedTimer clock;
    clock.start();
    const QMutexLocker lock(&m_mutex);
    m_expected.enqueue(clock);
}

void PageSubscriber::expectNoMore()
{
    const QMutexLocker lock(&m_mutex);
    if (!m_expected.isEmpty()) { // somebody else's selection may have taken its place
        m_expected.removeLast();
    }
}

void PageSubscriber::take(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    qint64 nanoseconds = -1;
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_expected.isEmpty()) {
            nanoseconds = m_expected.dequeue().nsecsElapsed();
        }
    }
    m_receive({pageKey(page), m_name, currentThreadName(), nanoseconds});
}
