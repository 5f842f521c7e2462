#pragma once

#include "Deadline.h"

#include <QObject>
#include <QThread>

/// A thread with an event loop, running from the start.
class LoopThread
{
public:
    LoopThread()
    {
        m_quitter.moveToThread(&m_thread);
        m_thread.start();
    }

    ~LoopThread()
    {
        finish();
    }

    LoopThread(const LoopThread &) = delete;
    LoopThread &operator=(const LoopThread &) = delete;

    QThread *thread()
    {
        return &m_thread;
    }

    /// Returns when all that was posted to the thread before has been delivered and the thread has ended.
    void finish()
    {
        const Deadline deadline;
        QMetaObject::invokeMethod(
            &m_quitter, [this] { m_thread.quit(); }, Qt::QueuedConnection);
        m_thread.wait();
    }

private:
    QThread m_thread;
    QObject m_quitter;
};
