#include "TavScenarioPlayer.h"

#include "ScenarioClock.h"

#include <QCoreApplication>
#include <QHash>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <algorithm>
#include <array>
#include <atomic>
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
        bool isPlaying = false; ///< the first one has begun
        QWaitCondition mayHaveTo; ///< a line has arrived, or lines may begin that might not, or the play ends
        std::unique_ptr<QThread> thread; ///< none for the GUI thread, and before its first line
    };

    State(TavPluginHost &host, QIODevice &device, const TavPlayOptions &options)
        : m_device(device)
        , m_options(options)
        , m_managers(TavScenario::managersOf(host))
        , m_clock(options.speed, options.isPaused)
        , m_isLooped(options.isLooped)
    {
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

    void setPaused(bool isPaused)
    {
        const QMutexLocker lock(&m_mutex);
        m_clock.setPaused(isPaused);
        m_steps = 0;
        wakeAll();
    }

    void step()
    {
        const QMutexLocker lock(&m_mutex);
        if (m_clock.isPaused()) {
            ++m_steps;
        }
        wakeAll();
    }

    void setSpeed(double speed)
    {
        const QMutexLocker lock(&m_mutex);
        m_clock.setSpeed(speed);
        wakeAll();
    }

    void setLooped(bool isLooped)
    {
        m_isLooped = isLooped;
    }

    /// From now on no line is begun. The mutex is held.
    void end()
    {
        m_isEnding = true;
        wakeAll();
    }

    /// Has everybody look again at what may begin. The mutex is held.
    void wakeAll()
    {
        m_changed.wakeOne();
        for (Performer &performer : m_performers) {
            wake(performer);
        }
    }

    /// The mutex is held.
    void wake(Performer &performer)
    {
        if (&performer != &m_performers[TavScenario::gui]) {
            performer.mayHaveTo.wakeOne();
        } else if (!m_isGuiCalled && mayBegin(performer)) {
            m_isGuiCalled = true;
            QMetaObject::invokeMethod(
                &m_gui, [this] { performOnGui(); }, Qt::QueuedConnection);
        }
    }

    /// Whether the first line that waits for this thread may begin. The mutex is held.
    bool mayBegin(const Performer &performer) const
    {
        if (m_isEnding || performer.isPlaying || performer.waiting.empty()) {
            return false;
        }
        const TavScenario::Line &line = performer.waiting.front();
        return !m_clock.isPaused() || isBeforeBeginning(line) || (m_steps > 0 && isNext(line));
    }

    /// Whether @p line is played at once, and also while the play is paused: it only leads to where the play begins.
    bool isBeforeBeginning(const TavScenario::Line &line) const
    {
        return line.at < m_options.from;
    }

    /// Whether no other line that could begin stands before @p line in the file. The mutex is held.
    bool isNext(const TavScenario::Line &line) const
    {
        return std::none_of(m_performers.begin(), m_performers.end(), [&line](const Performer &other) {
            return !other.isPlaying && !other.waiting.empty() && other.waiting.front().number < line.number;
        });
    }

    /// Whether @p line may be handed out, as far as its time goes. The mutex is held.
    bool hasCome(const TavScenario::Line &line) const
    {
        if (m_clock.isPaused()) {
            return isBeforeBeginning(line) || m_steps > m_linesToStep;
        }
        return m_clock.isFastest() || m_clock.now() >= double(line.at);
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
            while (conductRound() && m_isLooped && m_device.seek(0)) { }
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
            &m_gui, [] {}, Qt::QueuedConnection); // wakes wait()
    }

    /// Plays the file once; whether there was a line to play, and the play does not end.
    bool conductRound()
    {
        TavScenarioReader reader(m_device, m_options.cutLine);
        {
            const QMutexLocker lock(&m_mutex);
            m_clock.set(double(m_options.from));
        }
        bool hasLines = false;
        for (TavScenario::Line line; reader.next(line) && line.at <= m_options.until; hasLines = true) {
            if (!handOut(line)) {
                return false;
            }
        }
        waitUntilAllEnded();
        const QMutexLocker lock(&m_mutex);
        m_report.cutLine = reader.cutLine();
        return hasLines;
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
        const Performer &own = m_performers[line.thread];
        return std::none_of(m_performers.begin(), m_performers.end(), [&](const Performer &other) {
            return &other != &own && !other.waiting.empty()
                && (m_options.isChecked || other.waiting.front().at < line.at);
        });
    }

    /// Waits until @p line may begin, and gives it to its thread; false when the play ends.
    bool handOut(TavScenario::Line &line)
    {
        const QMutexLocker lock(&m_mutex);
        const auto at = double(line.at);
        while (!m_isEnding && !hasCome(line)) {
            m_changed.wait(&m_mutex, m_clock.due(at));
        }
        m_clock.lineBegins(at);
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
        m_linesToStep += isBeforeBeginning(line) ? 0 : 1;
        performer.waiting.push_back(std::move(line));
        if (performer.thread || thread == TavScenario::gui) {
            wake(performer);
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
        const QMutexLocker lock(&m_mutex);
        while (!m_isEnding) {
            if (mayBegin(performer)) {
                playOne(performer);
            } else {
                performer.mayHaveTo.wait(&m_mutex);
            }
        }
    }

    /// One line, so that the event loop comes to its other events between two of them.
    void performOnGui()
    {
        const QMutexLocker lock(&m_mutex);
        m_isGuiCalled = false;
        if (mayBegin(m_performers[TavScenario::gui])) {
            playOne(m_performers[TavScenario::gui]);
            wake(m_performers[TavScenario::gui]);
        }
    }

    /// Plays the first line that waits for this thread. The mutex is held, but not while the call is made.
    void playOne(Performer &performer)
    {
        performer.isPlaying = true;
        if (!isBeforeBeginning(performer.waiting.front())) {
            --m_linesToStep;
            if (m_clock.isPaused()) {
                --m_steps;
            }
        }
        if (m_steps > 0) {
            wakeAll(); // the next one may now begin
        }
        TavPlayedCall played{performer.waiting.front()}; // stays where it is while others are appended
        m_mutex.unlock();
        if (m_options.announcer) {
            m_options.announcer(played.line);
        }
        play(played);
        if (m_options.observer) {
            m_options.observer(played);
        }
        m_mutex.lock();
        ++m_report.lines;
        if (m_options.isChecked && played.line.isCompared()) {
            ++m_report.checked;
        }
        m_report.at = played.line.at;
        --m_waitingLines;
        m_waitingBytes -= played.line.bytes;
        performer.waiting.pop_front();
        performer.isPlaying = false;
        if (played.error) {
            fail(*played.error);
        }
        m_changed.wakeOne();
    }

    /// Makes the call, and notes what came of it.
    void play(TavPlayedCall &played) const
    {
        const TavScenario::Line &line = played.line;
        played.start = std::chrono::system_clock::now();
        const Clock::time_point start = Clock::now();
        try {
            played.returned = line.call(m_managers);
        } catch (const TavCallError &error) {
            played.error.emplace(line.number, error.path(), line.subject() + ": " + error.problem());
        } catch (const std::exception &error) {
            played.error.emplace(line.number, QString(), line.subject() + ": " + QString::fromUtf8(error.what()));
        }
        played.nanoseconds = std::chrono::nanoseconds(Clock::now() - start).count();
        TavScenario::Difference difference;
        if (m_options.isChecked && !played.error && !line.returns.isUndefined()
            && !TavScenario::isAsExpected(line.returns, played.returned, difference)) {
            played.error.emplace(line.number, QString(), line.subject() + ' ' + difference.text());
        }
    }

    QIODevice &m_device;
    const TavPlayOptions m_options;
    const TavScenario::Managers m_managers;

    QMutex m_mutex; ///< for what follows
    QWaitCondition m_changed; ///< a line has ended, or the play ends; only the conductor waits for it
    std::array<Performer, threadCount> m_performers;
    int m_waitingLines = 0; ///< handed out and not ended
    qint64 m_waitingBytes = 0;
    TavPlayReport m_report;
    ScenarioClock m_clock;
    std::atomic<bool> m_isLooped; ///< asked at the end of each round, without the mutex
    int m_steps = 0; ///< so many lines may begin although it is paused; 0 when it is not
    int m_linesToStep = 0; ///< handed out and not begun, without those before the beginning
    bool m_isGuiCalled = false; ///< performOnGui() is on its way
    bool m_isEnding = false;
    bool m_isAtEnd = false;

    QObject m_gui; ///< what is invoked on it runs on the GUI thread
    std::unique_ptr<QThread> m_conductor; ///< the last, since it uses all others
};

TavScenarioPlayer::TavScenarioPlayer(TavPluginHost &host, QIODevice &device, const TavPlayOptions &options)
    : m_state(std::make_unique<State>(host, device, options))
{
}

TavScenarioPlayer::~TavScenarioPlayer() = default;

TavPlayReport TavScenarioPlayer::wait()
{
    while (!isAtEnd()) { // not exec(), which returns at once when the application has been told to quit
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return progress();
}

void TavScenarioPlayer::pause()
{
    m_state->setPaused(true);
}

void TavScenarioPlayer::resume()
{
    m_state->setPaused(false);
}

void TavScenarioPlayer::step()
{
    m_state->step();
}

void TavScenarioPlayer::setSpeed(double speed)
{
    m_state->setSpeed(speed);
}

void TavScenarioPlayer::setLooped(bool isLooped)
{
    m_state->setLooped(isLooped);
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
