#include "TavScenarioPlayer.h"

#include "TavPluginHost.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QHash>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <array>
#include <chrono>
#include <deque>

using Clock = std::chrono::steady_clock;

struct TavScenarioPlayer::State {
    static constexpr int threadCount = TavScenario::gui + 1;
    static constexpr qint64 mostWaitingBytes = 8 << 20; ///< one line is taken whatever its length
    static constexpr int mostWaitingLines = 1024;

    /// @brief A thread of the scenario with the lines that wait for it.
    struct Performer {
        std::deque<TavScenario::Line> waiting; ///< the first one stays here while it is played
        QWaitCondition arrived;
        std::unique_ptr<QThread> thread; ///< none for the GUI thread, and before its first line
    };

    State(TavPluginHost &host, QIODevice &device, const TavPlayOptions &options) : m_device(device), m_options(options)
    {
        const QStringList names = TavCall::managers();
        for (const QString &name : names) {
            m_managers.insert(name, host.managerObject(name.toUtf8().constData()));
        }
        m_conductor.reset(QThread::create([this] { conduct(); }));
        m_conductor->setObjectName("scenario");
        m_conductor->start();
    }

    ~State()
    {
        stop();
        m_conductor->wait();
    }

    Q_DISABLE_COPY(State)

    void stop()
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_isAtEnd) {
            m_report.isStopped = true;
            end();
        }
    }

    /// From now on no line is begun. The mutex is held.
    void end()
    {
        m_isEnding = true;
        m_changed.wakeAll();
        for (Performer &performer : m_performers) {
            performer.arrived.wakeAll();
        }
    }

    /// Ends the play with what is wrong; of several mistakes the first in the file counts. The mutex is held.
    void fail(const TavScenarioError &error)
    {
        if (!m_report.error || error.line() < m_report.error->line()) {
            m_report.error = error;
        }
        end();
    }

    // --- on the conductor's thread: reads, and hands out each line when it may begin

    void conduct()
    {
        try {
            do {
                conductRound();
            } while (m_options.isLooped && rewind());
        } catch (const TavScenarioError &error) {
            waitUntilAllEnded(); // one of the lines before it may fail
            const QMutexLocker lock(&m_mutex);
            fail(error);
        } catch (const std::exception &error) { // no memory
            const QMutexLocker lock(&m_mutex);
            fail(TavScenarioError(0, {}, error.what()));
        }
        endThreads();
        const QMutexLocker lock(&m_mutex);
        m_isAtEnd = true;
        QMetaObject::invokeMethod(
            &m_gui, [this] { m_loop.quit(); }, Qt::QueuedConnection);
    }

    void conductRound()
    {
        TavScenarioReader reader(m_device, m_options.cutLine);
        const Clock::time_point start = Clock::now();
        TavScenario::Line line;
        while (reader.next(line) && line.at <= m_options.until) {
            if (m_options.speed > 0 && line.at > m_options.from) {
                const std::chrono::duration<double, std::micro> due(double(line.at - m_options.from) / m_options.speed);
                waitUntil(start + std::chrono::duration_cast<Clock::duration>(due));
            }
            if (!handOut(line)) {
                return;
            }
        }
        waitUntilAllEnded();
        const QMutexLocker lock(&m_mutex);
        m_report.cutLine = reader.cutLine();
    }

    bool rewind()
    {
        const QMutexLocker lock(&m_mutex);
        return !m_isEnding && m_device.seek(0);
    }

    void waitUntil(Clock::time_point due)
    {
        const QMutexLocker lock(&m_mutex);
        const QDeadlineTimer deadline(due, Qt::PreciseTimer);
        while (!m_isEnding && !deadline.hasExpired()) {
            m_changed.wait(&m_mutex, deadline);
        }
    }

    void waitUntilAllEnded()
    {
        const QMutexLocker lock(&m_mutex);
        while (!m_isEnding && m_waitingLines > 0) {
            m_changed.wait(&m_mutex);
        }
    }

    /// Whether every line that must end before @p line has done so, and there is room. The mutex is held.
    bool mayBeHandedOut(const TavScenario::Line &line) const
    {
        if (m_waitingLines >= mostWaitingLines
            || (m_waitingLines > 0 && m_waitingBytes + line.bytes > mostWaitingBytes)) {
            return false;
        }
        for (int thread = 0; thread < threadCount; ++thread) {
            const auto &waiting = m_performers[thread].waiting;
            if (thread != line.thread && !waiting.empty() && (m_options.isChecked || waiting.front().at < line.at)) {
                return false;
            }
        }
        return true;
    }

    /// Waits until @p line may begin, and gives it to its thread; false when the play ends.
    bool handOut(TavScenario::Line &line)
    {
        const QMutexLocker lock(&m_mutex);
        while (!m_isEnding && !mayBeHandedOut(line)) {
            m_changed.wait(&m_mutex);
        }
        if (m_isEnding) {
            return false;
        }
        const int thread = line.thread;
        Performer &performer = m_performers[thread];
        ++m_waitingLines;
        m_waitingBytes += line.bytes;
        performer.waiting.push_back(std::move(line));
        if (thread == TavScenario::gui) {
            QMetaObject::invokeMethod(
                &m_gui, [this] { playOne(m_performers[TavScenario::gui]); }, Qt::QueuedConnection);
        } else if (performer.thread) {
            performer.arrived.wakeOne();
        } else {
            performer.thread.reset(QThread::create([this, &performer] { perform(performer); }));
            performer.thread->setObjectName(TavScenario::threads()[thread]);
            performer.thread->start();
        }
        return true;
    }

    void endThreads()
    {
        {
            const QMutexLocker lock(&m_mutex);
            end();
        }
        for (const Performer &performer : m_performers) {
            if (performer.thread) {
                performer.thread->wait();
            }
        }
    }

    // --- on the scenario's threads

    void perform(Performer &performer)
    {
        while (true) {
            {
                const QMutexLocker lock(&m_mutex);
                while (!m_isEnding && performer.waiting.empty()) {
                    performer.arrived.wait(&m_mutex);
                }
                if (m_isEnding) {
                    return;
                }
            }
            playOne(performer);
        }
    }

    void playOne(Performer &performer)
    {
        const TavScenario::Line *line = nullptr;
        {
            const QMutexLocker lock(&m_mutex);
            if (m_isEnding) {
                return;
            }
            line = &performer.waiting.front(); // stays where it is while others are appended
        }
        const std::optional<TavScenarioError> error = play(*line);
        const QMutexLocker lock(&m_mutex);
        ++m_report.lines;
        m_report.checked += m_options.isChecked && !line->returns.isUndefined() ? 1 : 0;
        m_report.at = line->at;
        --m_waitingLines;
        m_waitingBytes -= line->bytes;
        performer.waiting.pop_front();
        if (error) {
            fail(*error);
        }
        m_changed.wakeOne();
    }

    /// Makes the call; returns what is wrong with it.
    std::optional<TavScenarioError> play(const TavScenario::Line &line) const
    {
        try {
            const QJsonValue returned = line.call(m_managers.value(line.manager));
            TavScenario::Difference difference;
            if (m_options.isChecked && !line.returns.isUndefined()
                && !TavScenario::isAsExpected(line.returns, returned, difference)) {
                return TavScenarioError(line.number, {}, line.subject() + ' ' + difference.text());
            }
            return std::nullopt;
        } catch (const TavCallError &error) {
            return TavScenarioError(line.number, error.path(), line.subject() + ": " + error.problem());
        } catch (const std::exception &error) {
            return TavScenarioError(line.number, {}, line.subject() + ": " + QString::fromUtf8(error.what()));
        }
    }

    QIODevice &m_device;
    const TavPlayOptions m_options;
    QHash<QString, QObject *> m_managers; ///< by the names of their interfaces

    QMutex m_mutex; ///< for what follows
    QWaitCondition m_changed; ///< a line has ended, or the play ends; only the conductor waits for it
    std::array<Performer, threadCount> m_performers;
    int m_waitingLines = 0; ///< handed out and not ended
    qint64 m_waitingBytes = 0;
    TavPlayReport m_report;
    bool m_isEnding = false;
    bool m_isAtEnd = false;

    QObject m_gui; ///< what is invoked on it runs on the GUI thread
    QEventLoop m_loop;
    std::unique_ptr<QThread> m_conductor; ///< the last, since it uses all others
};

TavScenarioPlayer::TavScenarioPlayer(TavPluginHost &host, QIODevice &device, const TavPlayOptions &options)
    : m_state(std::make_unique<State>(host, device, options))
{
}

TavScenarioPlayer::~TavScenarioPlayer() = default;

TavPlayReport TavScenarioPlayer::wait()
{
    if (!isAtEnd()) {
        m_state->m_loop.exec();
    }
    m_state->m_conductor->wait();
    return progress();
}

void TavScenarioPlayer::stop()
{
    m_state->stop();
}

bool TavScenarioPlayer::isAtEnd() const
{
    const QMutexLocker lock(&m_state->m_mutex);
    return m_state->m_isAtEnd;
}

TavPlayReport TavScenarioPlayer::progress() const
{
    const QMutexLocker lock(&m_state->m_mutex);
    return m_state->m_report;
}
