#pragma once

#include "TavScenarioRecorder.h"
#include "TavWorker.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

class ClientSession;

/**
 * @brief A recording of all calls that the session notes, into a file.
 *
 * The file is opened, written and ended on other threads: nothing here waits for the disk but its end. GUI thread.
 */
class Recording : public QObject
{
    Q_OBJECT
public:
    enum class State { Off, Beginning, On, Ending };

    /// @p session outlives the recording.
    explicit Recording(ClientSession &session, QObject *parent = nullptr);
    /// Writes what waits, and ends the file.
    ~Recording() override;
    Q_DISABLE_COPY(Recording)

    /// Begins the file, in place of one that is there; nothing while another recording is on.
    void begin(const QString &file);

    /// Ends the file.
    void end();

    /// Waits no longer for the file's beginning or end, which nothing can break off while the disk holds it up. A file
    /// that has begun only then is ended at once.
    void leave();

    State state() const
    {
        return m_state;
    }

    QString file() const
    {
        return m_file;
    }

    TavRecordProgress progress() const;

signals:
    void stateChanged();
    void progressChanged();
    /// The file cannot be written, or calls are missing in it.
    void failed(const QString &file, const QString &problem);

private:
    void setState(State state);

    ClientSession &m_session;
    State m_state = State::Off;
    int m_begun = 0; ///< number of the beginning or end that is waited for, or was last
    QString m_file;
    std::shared_ptr<TavScenarioRecorder> m_recorder;
    QTimer m_watch;
    TavWorker m_worker;
};
