#pragma once

#include "ScenarioSurvey.h"
#include "TavScenarioPlayer.h"
#include "TavWorker.h"

#include <QFile>
#include <QObject>
#include <QTimer>

#include <list>

class ClientSession;

/**
 * @brief A scenario that a person opens, plays, pauses and moves about in; its calls are noted in the session's log.
 *
 * | call | Empty | Opening | Ready | Playing | Paused | Stopping |
 * |---|---|---|---|---|---|---|
 * | open() | reads the file | leaves the other | reads the file | stops, then reads | the same | the same |
 * | play() | - | - | from position() on, at the end from the beginning | - | goes on | - |
 * | step() | - | - | begins, paused, with one line | - | one line | - |
 * | pause() | - | - | - | Paused | - | - |
 * | stop() | - | gives up | - | Stopping | Stopping | - |
 * | leave() | - | - | - | - | - | Ready |
 * | seek() | - | - | moves | goes on there | begins there, paused | goes on there instead, if that was to come |
 *
 * Stopping ends by itself, once the calls under way have ended; nothing here waits. GUI thread.
 */
class ScenarioPlay : public QObject
{
    Q_OBJECT
public:
    enum class State { Empty, Opening, Ready, Playing, Paused, Stopping };

    /// @p session outlives the play.
    explicit ScenarioPlay(ClientSession &session, QObject *parent = nullptr);
    /// Waits for the calls under way.
    ~ScenarioPlay() override;
    Q_DISABLE_COPY(ScenarioPlay)

    /// What becomes of a scenario once its file has been read.
    enum class Opened { Wait, Play };

    void open(const QString &file, Opened opened = Opened::Wait);
    void play();
    void pause();
    void step();
    void stop();
    /// Waits no longer for the last calls of a play that was stopped, which nothing can break off. Whatever was to come
    /// after them does not.
    void leave();
    /// @p position is in microseconds. Goes back by beginning anew: the lines before it are played at once.
    void seek(qint64 position);
    /// As TavPlayOptions::speed.
    void setSpeed(double speed);
    /// Whether it begins again at its end, also the play under way.
    void setLooped(bool isLooped);

    State state() const
    {
        return m_state;
    }

    /// The file that is open; its texts are empty when there is none.
    const ScenarioSurvey &survey() const
    {
        return m_survey;
    }

    double speed() const
    {
        return m_speed;
    }

    qint64 position() const; ///< microseconds of the scenario
    qint64 linesPlayed() const; ///< in this turn
    qint64 turn() const; ///< 1 until a play in a loop has begun again

signals:
    void stateChanged();
    void positionChanged();
    void speedChanged(double speed);
    /// The file cannot be opened, or a line has ended the play.
    void failed(const QString &file, const QString &problem);
    /// The play has come to its end by itself.
    void ended();

private:
    void begin(bool isPaused);
    void watch();
    void finish();
    void setState(State state);
    void noteCall(const TavPlayedCall &played);

    ClientSession &m_session;
    State m_state = State::Empty;
    ScenarioSurvey m_survey;
    double m_speed = 1;
    bool m_isLooped = false;
    qint64 m_position = 0;
    bool m_hasEnded = false; ///< at its end by itself: the next play begins at the beginning
    qint64 m_sought = 0; ///< the position that was asked for last
    qint64 m_lines = 0; ///< played in all turns
    std::function<void()> m_afterStop; ///< what was asked for while a play had to end first
    std::shared_ptr<std::atomic<bool>> m_isCancelled; ///< the reading of the file that is being opened
    QTimer m_watch;
    /// @brief A file with its player.
    struct Played {
        std::unique_ptr<QFile> file;
        std::unique_ptr<TavScenarioPlayer> player;
    };

    std::list<Played> m_left; ///< those that are at their end, but for calls that nobody waits for
    std::unique_ptr<QFile> m_file;
    std::unique_ptr<TavScenarioPlayer> m_player; ///< none unless playing, paused or stopping
    TavWorker m_reader;
};
