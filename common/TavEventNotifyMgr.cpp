#include "TavEventNotifyMgr.h"

#include "TavBaseEvent.h"
#include "TavNanolog.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <exception>

/// An event on its way. Qt's queue owns it, so an event dies with its delivery, run or not.
class TavEventNotifyMgr::Delivery : public QEvent
{
public:
    Delivery(TavBaseEvent *event, std::atomic<int> &pending) : QEvent(QEvent::User), m_event(event), m_pending(pending)
    {
        ++m_pending;
    }

    ~Delivery() override
    {
        m_event.reset();
        --m_pending;
    }

    void run() const
    {
        m_event->run();
    }

private:
    std::unique_ptr<TavBaseEvent> m_event;
    std::atomic<int> &m_pending;
};

/// Receives the deliveries of one thread. It lives in that thread and is deleted, with all that was not run, when the
/// thread ends.
class TavEventNotifyMgr::Mailbox : public QObject
{
public:
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        try {
            static_cast<Delivery *>(event)->run();
        } catch (const std::exception &exception) {
            report(QString::fromLocal8Bit(exception.what()));
        } catch (...) {
            report(QStringLiteral("not a std::exception"));
        }
        return true;
    }

private:
    static void report(const QString &what)
    {
        if (TavNanolog::is_logged(1)) {
            TavNanolog::TavNanoLogLine line(1, "TavEventNotifyMgr", "event", __LINE__);
            line.encode(QStringLiteral("exception in an event's function: ") + what);
            TavNanolog::NanoLog(line);
        }
    }
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
    auto delivery = std::make_unique<Delivery>(event, m_pending);
    if (QThread *const thread = event->thread()) {
        QMutexLocker lock(&m_mutex);
        if (Mailbox *const mailbox = mailboxOf(thread)) {
            QCoreApplication::postEvent(mailbox, delivery.release());
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
    auto mailbox = std::make_unique<Mailbox>();
    const auto close = [this, thread] { closeMailbox(thread); };
    QObject::connect(thread, &QThread::finished, mailbox.get(), close, Qt::DirectConnection);
    QObject::connect(thread, &QObject::destroyed, mailbox.get(), close, Qt::DirectConnection);
    // Asked after connecting: a thread that ends from here on closes the mailbox, as soon as the mutex is free.
    if (thread->isFinished()) {
        return nullptr;
    }
    mailbox->moveToThread(thread);
    return *m_mailboxes.insert(thread, mailbox.release());
}

void TavEventNotifyMgr::closeMailbox(QThread *thread)
{
    QMutexLocker lock(&m_mutex);
    Mailbox *const mailbox = m_mailboxes.take(thread);
    lock.unlock();
    // Without the mutex: the functions that die unrun here may use the bus.
    delete mailbox;
}
