#pragma once

#include <QObject>
#include <QString>
#include <QThread>

#include <utility>

/**
 * @brief A thread that does one piece of work after the other, such as parsing a backend's answers, which would hold
 * the GUI up.
 *
 * Made and ended in one thread, which runs an event loop. As a member, declare it behind what its work uses: it ends
 * first then.
 */
class TavWorker
{
public:
    /// What becomes of the work that has not begun when the worker ends; what is under way is always waited for.
    enum class AtEnd {
        LeaveUndone, ///< such as answers that nobody is going to read
        Finish, ///< such as a file that is to be written
    };

    /// Starts the thread under this name; it waits.
    explicit TavWorker(const QString &name, AtEnd atEnd = AtEnd::LeaveUndone) : m_atEnd(atEnd)
    {
        m_thread.setObjectName(name);
        m_there.moveToThread(&m_thread);
        m_thread.start();
    }

    /// Waits for the work as it was told to.
    ~TavWorker()
    {
        if (m_atEnd == AtEnd::LeaveUndone) {
            m_thread.requestInterruption(); // which each piece that waits asks for first
        }
        QMetaObject::invokeMethod(
            &m_there, [this] { m_thread.quit(); }, Qt::QueuedConnection); // behind all of them
        m_thread.wait();
    }

    Q_DISABLE_COPY(TavWorker) // its thread knows it

    /// Has @p work done on the thread, and returns at once. May be called from any thread. @p work must not throw.
    template<class Work>
    void post(Work work)
    {
        QMetaObject::invokeMethod(
            &m_there,
            [this, work = std::move(work)]() mutable {
                if (!m_thread.isInterruptionRequested()) {
                    work();
                }
            },
            Qt::QueuedConnection);
    }

    /// The same; then @p done is called with what @p work has returned, in the thread that made the worker, unless the
    /// worker has ended meanwhile.
    template<class Work, class Done>
    void post(Work work, Done done)
    {
        post([this, work = std::move(work), done = std::move(done)]() mutable {
            QMetaObject::invokeMethod(
                &m_here, [done = std::move(done), result = work()]() mutable { done(std::move(result)); },
                Qt::QueuedConnection);
        });
    }

private:
    const AtEnd m_atEnd;
    QObject m_here; ///< lives in the thread that made the worker
    QObject m_there; ///< lives in the worker's thread
    QThread m_thread;
};
