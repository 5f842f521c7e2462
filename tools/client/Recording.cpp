#include "Recording.h"

#include "ClientSession.h"
#include "TavCountedText.h"

#include <QDateTime>
#include <QSysInfo>

namespace
{
/// @brief A recorder that has begun its file, or why it could not.
struct Beginning {
    std::shared_ptr<TavScenarioRecorder> recorder;
    QString error;
};

Beginning beginFile(const QString &file)
{
    try {
        return {std::make_shared<TavScenarioRecorder>(
                    file,
                    QJsonObject{{"title", "recorded by tavdesk"},
                                {"started", QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
                                {"host", QSysInfo::machineHostName()}}),
                {}};
    } catch (const std::exception &error) {
        return {nullptr, QString::fromUtf8(error.what())};
    }
}
}

Recording::Recording(ClientSession &session, QObject *parent)
    : QObject(parent), m_session(session), m_worker("recording", TavWorker::AtEnd::Finish)
{
    m_watch.setInterval(200);
    connect(&m_watch, &QTimer::timeout, this, [this] {
        emit progressChanged();
        if (!progress().error.isEmpty()) {
            end();
        }
    });
}

Recording::~Recording()
{
    m_session.calls().setRecorder(nullptr);
}

void Recording::begin(const QString &file)
{
    if (m_state != State::Off) {
        return;
    }
    m_file = file;
    setState(State::Beginning);
    m_worker.post([file] { return beginFile(file); },
                  [this, file, number = ++m_begun](Beginning beginning) {
                      if (number != m_begun) {
                          m_worker.post([recorder = std::move(beginning.recorder)] {}); // it ends there: it may wait
                          return;
                      }
                      m_recorder = beginning.recorder;
                      if (!m_recorder) {
                          setState(State::Off);
                          emit failed(m_file, beginning.error);
                          return;
                      }
                      m_session.calls().setRecorder(m_recorder);
                      m_watch.start();
                      setState(State::On);
                  });
}

void Recording::end()
{
    if (m_state != State::On) {
        return;
    }
    m_watch.stop();
    m_session.calls().setRecorder(nullptr);
    setState(State::Ending);
    m_worker.post(
        [recorder = std::move(m_recorder)] {
            recorder->finish();
            return recorder->progress();
        },
        [this, file = m_file, number = ++m_begun](const TavRecordProgress &progress) {
            if (number == m_begun) {
                setState(State::Off);
            }
            if (!progress.error.isEmpty()) {
                emit failed(file, tr("cannot be written any further: %1").arg(progress.error));
            } else if (progress.lost > 0) {
                emit failed(file, tr("%n call(s) are missing in it", nullptr, int(progress.lost)));
            }
        });
}

void Recording::leave()
{
    if (m_state == State::Beginning || m_state == State::Ending) {
        ++m_begun;
        setState(State::Off);
    }
}

TavRecordProgress Recording::progress() const
{
    return m_recorder ? m_recorder->progress() : TavRecordProgress();
}

void Recording::setState(State state)
{
    m_state = state;
    emit stateChanged();
}
