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
    const QMutexLocker lock(&m_mutex);
    m_clock.start();
}

void PageSubscriber::take(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    qint64 nanoseconds = -1;
    {
        const QMutexLocker lock(&m_mutex);
        if (m_clock.isValid()) {
            nanoseconds = m_clock.nsecsElapsed();
            m_clock.invalidate();
        }
    }
    m_receive({pageKey(page), m_name, currentThreadName(), nanoseconds});
}
