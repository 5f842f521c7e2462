#pragma once

#include "TavCommonExport.h"

#include <QHash>
#include <QMutex>

#include <atomic>
#include <memory>

class QThread;
class TavBaseEvent;

/**
 * @brief The event bus: runs events in the threads that they belong to. Any thread may call any operation.
 *
 * Events for one thread run in the order in which they were added, from that thread's event loop, or from one that a
 * running function has started. What else is posted to the thread keeps no order with them. An exception that leaves an
 * event's function is logged and goes no further.
 */
class TAV_COMMON_EXPORT TavEventNotifyMgr
{
public:
    /// The one instance; it is never destroyed.
    static TavEventNotifyMgr *getInstance();

    /// Takes @p event over, whatever becomes of it: it is run once in its thread and deleted, or deleted unrun when
    /// it has no thread or its thread has ended or ends first. A thread not yet started runs it once it starts.
    void addEventNotify(TavBaseEvent *event);

    /// Number of events taken over and neither run to their end nor deleted unrun.
    [[nodiscard]] int pendingCount() const;

private:
    class Mailbox;
    struct Disposal;
    using OwnedEvent = std::unique_ptr<TavBaseEvent, Disposal>;

    TavEventNotifyMgr() = default;
    ~TavEventNotifyMgr() = default;

    Mailbox *mailboxOf(QThread *thread);
    void closeMailbox(QThread *thread);

    QMutex m_mutex;
    QHash<QThread *, Mailbox *> m_mailboxes; // of all threads met that have not been destroyed; null when closed
    std::atomic<int> m_pending = 0;
};
