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
    void add(OwnedEvent event)
    {
        m_added.push_back(std::move(event));
        call();
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
            run(*next);
        }
        return true;
    }

private:
    /// What is posted. It may end unheard, with the application, and others have to follow it then too.
    class Call : public QEvent
    {
    public:
        explicit Call(std::atomic<bool> &isUnderWay) : QEvent(QEvent::User), m_isUnderWay(&isUnderWay)
        {
        }

        ~Call() override
        {
            end();
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
        if (!m_isCallUnderWay.exchange(true)) {
            QCoreApplication::postEvent(this, new Call(m_isCallUnderWay));
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
    OwnedEvent owned(event);
    if (QThread *const thread = event->thread()) {
        QMutexLocker lock(&m_mutex);
        if (Mailbox *const mailbox = mailboxOf(thread)) {
            mailbox->add(std::move(owned));
        }
    }
}

int TavEventNotifyMgr::pendingCount() const
{
    return m_pending;
}

/// Null when the thread has ended. Called with the mutex held.
TavEventNotifyMgr::Mailbox *TavEventNotifyMgr::mailboxOf(QThread *thread)
{
    if (Mailbox *const mailbox = m_mailboxes.value(thread)) {
        return mailbox;
    }
    if (thread->isFinished()) {
        return nullptr;
    }
    // The thread is the context: one that this thread ends could end while the other announces its end to it.
    const auto close = [this, thread] { closeMailbox(thread); };
    QObject::connect(thread, &QThread::finished, thread, close, Qt::DirectConnection);
    QObject::connect(thread, &QObject::destroyed, thread, close, Qt::DirectConnection);
    // Asked again after connecting: a thread that ends from here on closes the mailbox, as soon as the mutex is free.
    if (thread->isFinished()) {
        return nullptr;
    }
    auto *const mailbox = new Mailbox;
    mailbox->moveToThread(thread);
    return *m_mailboxes.insert(thread, mailbox);
}

void TavEventNotifyMgr::closeMailbox(QThread *thread)
{
    QMutexLocker lock(&m_mutex);
    Mailbox *const mailbox = m_mailboxes.take(thread);
    lock.unlock();
    // Without the mutex: the functions that die unrun here may use the bus.
    delete mailbox;
}
