#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QObject>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include <ctime>

/**
 * @brief How long the thread that made it lets events wait, and how much of that it works, in milliseconds.
 *
 * A thread posts an event every millisecond, never a second one before the first has arrived; how late it comes is how
 * long the event loop was busy. The dispatcher's own signals do not enclose all work, and so do not tell. On a machine
 * that has more to do than processors, most of the wait is for a processor: the thread's own time from one beat to the
 * next is what it would be busy on an idle one.
 */
class Heartbeat
{
public:
    Heartbeat() : m_thread([this] { beat(); })
    {
    }

    ~Heartbeat()
    {
        m_isEnding = true;
        m_thread.join();
    }
    Q_DISABLE_COPY(Heartbeat)

    int beats() const
    {
        return static_cast<int>(m_receiver.late.size());
    }

    /// What the wait of this part of the beats does not exceed.
    double late(double part) const
    {
        return quantile(m_receiver.late, part);
    }

    /// What the thread's own time before this part of the beats does not exceed.
    double worked(double part) const
    {
        return quantile(m_receiver.worked, part);
    }

private:
    struct Receiver : QObject {
        bool event(QEvent *event) override
        {
            if (event->type() != QEvent::User) {
                return QObject::event(event);
            }
            late.push_back(double(sent.nsecsElapsed()) / 1e6);
            const double now = ownTime();
            worked.push_back(now - before);
            before = now;
            isWaiting = false;
            return true;
        }

        static double ownTime()
        {
            timespec time{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
            return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
        }

        QElapsedTimer sent; ///< is read when the event has been posted, and not written again before
        std::atomic_bool isWaiting = false;
        std::vector<double> late;
        std::vector<double> worked;
        double before = ownTime();
    };

    static double quantile(std::vector<double> values, double part)
    {
        std::sort(values.begin(), values.end());
        return values.empty() ? 0 : values[std::size_t(part * double(values.size() - 1))];
    }

    void beat()
    {
        while (!m_isEnding) {
            if (!m_receiver.isWaiting) {
                m_receiver.isWaiting = true;
                m_receiver.sent.start();
                QCoreApplication::postEvent(&m_receiver, new QEvent(QEvent::User), Qt::HighEventPriority);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    Receiver m_receiver;
    std::atomic_bool m_isEnding = false;
    std::thread m_thread; ///< the last: it uses the others
};
