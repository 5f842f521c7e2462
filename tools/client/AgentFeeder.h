#pragma once

#include "AgentReport.h"
#include "TavWorker.h"

#include <QObject>
#include <QTimer>

#include <memory>

class ClientSession;
class LocalAgent;

/**
 * @brief Has the local agent feed the managers, once or again and again; its calls are noted in the session's log.
 *
 * Never waits for the agent but at its end. GUI thread.
 */
class AgentFeeder : public QObject
{
    Q_OBJECT
public:
    /// @p session outlives the feeder.
    explicit AgentFeeder(ClientSession &session, QObject *parent = nullptr);
    /// Waits for the reading under way.
    ~AgentFeeder() override;
    Q_DISABLE_COPY(AgentFeeder)

    /// Feeds now, unless a feeding is under way.
    void feed();

    /// Feeds now, and again @p seconds after each beginning; 0 ends that. A feeding that takes longer is not joined by
    /// a second one.
    void repeat(int seconds);

    /// Feeds no more, and gives up the feeding under way.
    void stop();

    bool isFeeding() const
    {
        return m_agent != nullptr;
    }

    bool isRepeating() const
    {
        return m_repeat.isActive();
    }

signals:
    /// A feeding or the repetition has begun or ended.
    void stateChanged();
    /// A feeding has come to its end; those that were given up do not.
    void fed(const AgentReport &report);

private:
    void giveUp();

    ClientSession &m_session;
    QTimer m_repeat;
    int m_feeding = 0; ///< number of the feeding that was begun last
    std::unique_ptr<LocalAgent> m_agent; ///< while a feeding is under way
    TavWorker m_ender; ///< ends agents, which waits for their readings
};
