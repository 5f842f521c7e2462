#pragma once

#include "CTavSubFuncTypeHeader.h"
#include "TavSubscription.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QQueue>
#include <QThread>

/// @brief One page change as one subscriber received it.
struct PageDelivery {
    QString page; ///< key of the page's type
    QString subscriber;
    QString thread; ///< name of the thread in which the subscriber was called
    qint64 nanoseconds; ///< from just before the selection to the subscriber's call; -1 where that is not known
};

/// @brief A page that tells every page change that it receives, with the time that it took.
class PageSubscriber
{
public:
    using Receive = std::function<void(const PageDelivery &)>;

    /// Has @p receive called for each delivery. @p worker names the thread of its own on which that happens; without
    /// one, that is the calling thread.
    PageSubscriber(QString name, const QString &worker, Receive receive);
    ~PageSubscriber();
    Q_DISABLE_COPY(PageSubscriber)

    /// A page is about to be selected: the time of its delivery, the first that nobody expects yet, counts from here.
    /// Any thread.
    void expect();

    /// The selection that was expected last has been refused. Any thread.
    void expectNoMore();

private:
    void take(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);

    const QString m_name;
    const Receive m_receive;
    QMutex m_mutex; ///< for what follows
    QQueue<QElapsedTimer> m_expected; ///< run from the selections whose deliveries are on their way
    QThread m_thread;
    QObject m_receiver; ///< lives in the thread, and so is called there
    TavSubscription m_subscription;
};
