#pragma once

#include <QObject>
#include <QThread>

#include <utility>

/**
 * @brief A thread that does one piece of work after the other for the thread that made it, which goes on meanwhile.
 *
 * Made, used and ended in one thread, which runs an event loop.
 */
class Worker
{
public:
    /// Starts the thread under this name; it waits.
    explicit Worker(const QString &name)
    {
        m_thread.setObjectName(name);
        m_there.moveToThread(&m_thread);
        m_thread.start();
    }

    /// Waits until all work is done, also what has not begun: a file that was to be written is written.
    ~Worker()
    {
        QMetaObject::invokeMethod(
            &m_there, [this] { m_thread.quit(); }, Qt::QueuedConnection);
        m_thread.wait();
    }
    Q_DISABLE_COPY(Worker) // its thread knows it

    /// Has @p work done on the thread, and then @p done called here with what it has returned, unless the worker has
    /// ended meanwhile. @p work must not throw.
    template<class Work, class Done>
    void run(Work work, Done done)
    {
        QMetaObject::invokeMethod(
            &m_there,
            [this, work = std::move(work), done = std::move(done)]() mutable {
                QMetaObject::invokeMethod(
                    &m_here, [done, result = work()] { done(result); }, Qt::QueuedConnection);
            },
            Qt::QueuedConnection);
    }

private:
    QObject m_here; ///< lives in the thread that made the worker
    QObject m_there; ///< lives in the worker's thread
    QThread m_thread;
};
