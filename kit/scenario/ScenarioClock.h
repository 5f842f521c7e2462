#pragma once

#include <QDeadlineTimer>

#include <algorithm>
#include <chrono>

/// @brief The time in a scenario, in microseconds from its start. Goes at a speed; stands while it is paused, and at
/// the fastest speed, a speed of 0, at which it is that of the last line. Used by one thread at a time.
class ScenarioClock
{
public:
    ScenarioClock(double speed, bool isPaused) : m_speed(speed), m_isPaused(isPaused)
    {
    }

    bool isPaused() const
    {
        return m_isPaused;
    }

    bool isFastest() const
    {
        return !(m_speed > 0);
    }

    double now() const
    {
        if (m_isPaused || isFastest()) {
            return m_time;
        }
        return m_time + m_speed * std::chrono::duration<double, std::micro>(Clock::now() - m_since).count();
    }

    void set(double time)
    {
        m_time = time;
        m_since = Clock::now();
    }

    void setPaused(bool isPaused)
    {
        set(now());
        m_isPaused = isPaused;
    }

    void setSpeed(double speed)
    {
        set(now());
        m_speed = speed;
    }

    /// A line of the time @p time begins now: a clock that stands is put forward to it.
    void lineBegins(double time)
    {
        if (m_isPaused || isFastest()) {
            m_time = std::max(m_time, time);
        }
    }

    /// When to look again whether @p time has come; not at the fastest speed.
    QDeadlineTimer due(double time) const
    {
        if (m_isPaused) {
            return QDeadlineTimer::Forever;
        }
        constexpr double longest = 3600; // seconds; a speed may be so low that the time is beyond what a timer holds
        const std::chrono::duration<double> left(std::min((time - now()) / m_speed / 1e6, longest));
        return {std::chrono::ceil<std::chrono::microseconds>(left), Qt::PreciseTimer};
    }

private:
    using Clock = std::chrono::steady_clock;

    double m_speed;
    bool m_isPaused;
    double m_time = 0; // when it was set last
    Clock::time_point m_since; // when that was
};
