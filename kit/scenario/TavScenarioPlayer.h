#pragma once

#include "TavScenario.h"

#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <optional>

class TavPluginHost;

/// @brief A call that a play has made, or a page that it has selected.
struct TavPlayedCall {
    const TavScenario::Line &line; ///< with arguments and thread; as long as the observer runs
    QJsonValue returned = QJsonValue::Undefined; ///< undefined when the call was refused
    std::optional<TavScenarioError> error = {}; ///< that it was refused, or has not returned what the line says
    std::chrono::system_clock::time_point start = {}; ///< when it was begun
    qint64 nanoseconds = 0; ///< that it took, the making of JSON of what it returned included
};

/// @brief How a scenario is played.
struct TavPlayOptions {
    static constexpr double fastest = 0; ///< a speed: no line waits for its time

    double speed = 1; ///< scenario seconds in a second
    qint64 from = 0; ///< microseconds of the scenario; the lines before are played at once
    qint64 until = std::numeric_limits<qint64>::max(); ///< the lines after are not played
    bool isLooped = false; ///< begins again behind its last line, on the same managers; a file only
    bool isChecked = false; ///< ends at the first call that does not return what its line says
    bool isPaused = false; ///< begins as if pause() had been called before the first line that is not before `from`
    TavScenarioReader::CutLine cutLine = TavScenarioReader::CutLine::Refuse; ///< what becomes of a cut last line

    /// Told of each call when it has returned, on the thread that has made it; that thread's next line waits for it.
    /// May use the player, but must not wait for another of its threads, nor throw.
    std::function<void(const TavPlayedCall &)> observer;

    /// Told of each call just before it is made; otherwise as the observer.
    std::function<void(const TavScenario::Line &)> announcer;
};

/// @brief What has been played.
struct TavPlayReport {
    qint64 lines = 0; ///< calls made and pages selected
    qint64 checked = 0; ///< of them, those whose result was compared
    qint64 at = 0; ///< time of the last one, in microseconds
    int cutLine = 0; ///< number of the last line when it was cut and is left out; 0 for none
    bool isStopped = false; ///< by stop(), before the end
    std::optional<TavScenarioError> error; ///< what ended the play: a mistake in a line, a refused call, a difference
};

/**
 * @brief Plays a scenario on the managers of a host, from the moment it is made.
 *
 * Lines are read on a thread of the player's own. The calls of "agent" to "agent8" are made on threads of that name,
 * those of "gui" on the thread that made the player, while its event loop runs: wait() runs it.
 *
 * | a line begins when | checked | not checked |
 * |---|---|---|
 * | its time | has come; at the fastest speed and before `from`, at once | the same |
 * | on its own thread | every line before it has ended | the same |
 * | on the other threads | every line before it has ended | every line with an earlier time has ended |
 *
 * So a checked play makes the calls in the order of the file and returns the same each time; an unchecked one makes
 * those of one time at once, on their threads. No more lines wait than fit into some MiB. Lines before `from` lead to
 * where the play begins: a pause does not hold them up, and they are no steps.
 *
 * | call | while it plays | while it is paused |
 * |---|---|---|
 * | pause() | no further line begins; the scenario's time stands | steps that have not begun are dropped |
 * | resume() | nothing | goes on from the time at which it stands |
 * | step() | nothing | one more line begins, the next in the file, and the time is that line's |
 * | setSpeed() | the time goes on from where it is | it will, at that speed |
 * | setLooped() | its last line is or is no longer its end | the same |
 * | stop() | no further line begins; the play ends | the same |
 *
 * Needs an application object. Made, waited for and ended in one thread; everything else on any.
 */
class TavScenarioPlayer
{
public:
    /// @p host and @p device, which is open at its beginning, outlive the player.
    TavScenarioPlayer(TavPluginHost &host, QIODevice &device, const TavPlayOptions &options = {});

    /// Stops the play where it is not at its end; waits for calls under way.
    ~TavScenarioPlayer();

    Q_DISABLE_COPY(TavScenarioPlayer) // its threads know it

    /// Runs the event loop until the play has ended, which a paused one does not.
    [[nodiscard]] TavPlayReport wait();

    /// From its return on no line begins but those before `from`; calls under way go on.
    void pause();

    /// Ends a pause(): lines begin again at their times.
    void resume();

    /// As often as it is called, so many lines.
    void step();

    /// @p speed as in TavPlayOptions.
    void setSpeed(double speed);

    /// @p isLooped as in TavPlayOptions.
    void setLooped(bool isLooped);

    /// Makes no further call; the play then ends.
    void stop();

    /// Whether the play has ended, by itself or by stop().
    [[nodiscard]] bool isAtEnd() const;

    /// What has been played so far.
    [[nodiscard]] TavPlayReport progress() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};
