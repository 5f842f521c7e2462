#include "TavEventNotifyMgr.h"

#include "TavBaseEvent.h"
#include "TavNanolog.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <algorithm>
#include <deque>
#include <exception>
#include <iterator>
#include <utility>
#include <vector>

/// Ends an event, run or not.
struct TavEventNotifyMgr::Disposal {
    void operator()(TavBaseEvent *event) const
    {
        delete event;
        --getInstance()->m_pending;
    }
};

/// Keeps the events of one thread. It lives in that thread and is deleted, with all that was not run, when the thread
/// ends.
///
/// An event that belongs to another thread has only come here to be deleted.
///
/// Posting wakes a thread up, which costs more than all the rest. So not every event is posted: one call makes the
/// thread run all that have come in until then.
class TavEventNotifyMgr::Mailbox : public QObject
{
public:
    ~Mailbox() override
    {
        QCoreApplication::removePostedEvents(this); // while the flag to which a call refers is there
    }

    /// Called with the bus's mutex held.
    void add(OwnedEvent &&event)
    {
        call(); // first, for it may throw; the thread waits for the mutex before it looks
        m_added.push_back(std::move(event));
    }

    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        static_cast<Call *>(event)->end(); // before looking, so that what is added from here on calls again
        {
            QMutexLocker lock(&getInstance()->m_mutex);
            std::move(m_added.begin(), m_added.end(), std::back_inserter(m_due));
            m_added.clear();
        }
        while (!m_due.empty()) {
            const OwnedEvent next = std::move(m_due.front());
            m_due.pop_front();
            if (!m_due.empty()) {
                call(); // the function may start a loop, which has to get at the rest
            }
            if (next->thread() == thread()) {
                run(*next);
            }
        }
        return true;
    }

private:
    /// What is posted: it sets the flag of its mailbox for as long as it is under way, unless another one has. It may
    /// end unheard, with the application or because it could not be posted, and others have to follow it then too.
    class Call : public QEvent
    {
    public:
        explicit Call(std::atomic<bool> &isUnderWay)
            : QEvent(QEvent::User), m_isUnderWay(isUnderWay.exchange(true) ? nullptr : &isUnderWay)
        {
        }

        ~Call() override
        {
            end();
        }

        bool isTheOne() const
        {
            return m_isUnderWay;
        }

        void end()
        {
            if (m_isUnderWay) {
                *std::exchange(m_isUnderWay, nullptr) = false;
            }
        }

    private:
        std::atomic<bool> *m_isUnderWay;
    };

    /// Has the thread's loop call event(). One call at a time is enough.
    void call()
    {
        if (!m_isCallUnderWay) {
            auto call = std::make_unique<Call>(m_isCallUnderWay);
            if (call->isTheOne()) {
                QCoreApplication::postEvent(this, call.release());
            }
        }
    }

    static void run(const TavBaseEvent &event)
    {
        try {
            event.run();
        } catch (const std::exception &exception) {
            report(QString::fromLocal8Bit(exception.what()));
        } catch (...) {
            report(QStringLiteral("not a std::exception"));
        }
    }

    static void report(const QString &what)
    {
        if (TavNanolog::is_logged(1)) {
            TavNanolog::TavNanoLogLine line(1, "TavEventNotifyMgr", "event", __LINE__);
            line.encode(QStringLiteral("exception in an event's function: ") + what);
            TavNanolog::NanoLog(line);
        }
    }

    std::atomic<bool> m_isCallUnderWay = false;
    std::vector<OwnedEvent> m_added; // guarded by the bus's mutex
    std::deque<OwnedEvent> m_due; // the thread's own
};

TavEventNotifyMgr *TavEventNotifyMgr::getInstance()
{
    // Never destroyed, so that threads still running while the process exits find it alive.
    static auto *const instance = new TavEventNotifyMgr;
    return instance;
}

void TavEventNotifyMgr::addEventNotify(TavBaseEvent *event)
{
    if (!event) {
        return;
    }
    event->setParent(nullptr); // or its parent would delete it too
    ++m_pending;
    OwnedEvent owned(event); // ends after the lock
    QMutexLocker lock(&m_mutex);
    Mailbox *mailbox = mailboxOf(event->thread());
    if (!mailbox && dynamic_cast<TavAnnouncement *>(event) && QCoreApplication::instance()) {
        mailbox = mailboxOf(QCoreApplication::instance()->thread());
    }
    if (mailbox) {
        mailbox->add(std::move(owned));
    }
}

int TavEventNotifyMgr::pendingCount() const
{
    return m_pending;
}

// What becomes of a thread's mailbox. All of it happens with the mutex held, so that each line is whole for the others.
//
//   the thread            the bus is asked for its mailbox       the thread emits finished()   the object is destroyed
//   not met before        connects to it, then as below          -                             -
//   unstarted, running    gives the mailbox, makes it if needed  takes the mailbox away        forgets the thread
//   announcing its end    gives the mailbox there is, no new one takes the mailbox away        forgets the thread
//   finished              gives none                             -                             forgets the thread
//
// A thread that is not announcing its end yet will announce it, and the connection was made before it was asked: each
// mailbox that is made is taken away. The thread itself is the context of the connections: any other object could be
// destroyed by this thread while that one is calling through it.

/// Null when @p thread is null or has ended. Called with the mutex held.
TavEventNotifyMgr::Mailbox *TavEventNotifyMgr::mailboxOf(QThread *thread)
{
    if (!thread) {
        return nullptr;
    }
    if (!m_mailboxes.contains(thread)) {
        const auto close = [this, thread] { closeMailbox(thread); };
        const auto forget = [this, thread] {
            closeMailbox(thread);
            QMutexLocker lock(&m_mutex);
            m_mailboxes.remove(thread);
        };
        QObject::connect(thread, &QThread::finished, thread, close, Qt::DirectConnection);
        QObject::connect(thread, &QObject::destroyed, thread, forget, Qt::DirectConnection);
    }
    Mailbox *&mailbox = m_mailboxes[thread];
    if (!mailbox && !thread->isFinished()) {
        mailbox = new Mailbox;
        mailbox->moveToThread(thread);
    }
    return mailbox;
}

void TavEventNotifyMgr::closeMailbox(QThread *thread)
{
    QMutexLocker lock(&m_mutex);
    Mailbox *const mailbox = std::exchange(m_mailboxes[thread], nullptr);
    lock.unlock();
    // Without the mutex: the functions that die unrun here may use the bus.
    delete mailbox;
}
