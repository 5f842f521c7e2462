#include "ScenarioPlay.h"

#include "ClientSession.h"
#include "ITavFuncTypeMgr.h"
#include "ITavSelectFuncMgr.h"
#include "ShortJson.h"
#include "TavJson.h"

#include <utility>

namespace
{
QString managerOf(const TavScenario::Line &line)
{
    return line.page.isEmpty() ? line.manager : QString::fromLatin1(qobject_interface_iid<ITavSelectFuncMgr *>());
}

QString operationOf(const TavScenario::Line &line)
{
    return line.page.isEmpty() ? line.operation : QStringLiteral("setCurSelType");
}
}

ScenarioPlay::ScenarioPlay(ClientSession &session, QObject *parent)
    : QObject(parent), m_session(session), m_reader("scenario-reader")
{
    m_watch.setInterval(50);
    connect(&m_watch, &QTimer::timeout, this, &ScenarioPlay::watch);
}

ScenarioPlay::~ScenarioPlay()
{
    if (m_isCancelled) {
        *m_isCancelled = true;
    }
}

void ScenarioPlay::open(const QString &file, Opened opened)
{
    if (m_player) {
        m_afterStop = [this, file, opened] { open(file, opened); };
        stop();
        return;
    }
    if (m_isCancelled) {
        *m_isCancelled = true;
    }
    m_isCancelled = std::make_shared<std::atomic<bool>>(false);
    m_survey = {};
    m_survey.file = file;
    m_position = 0;
    m_hasEnded = false;
    m_lines = 0;
    setState(State::Opening);
    m_reader.post([file, isCancelled = m_isCancelled] { return surveyScenario(file, *isCancelled); },
                  [this, opened, isCancelled = m_isCancelled](const ScenarioSurvey &survey) {
                      if (isCancelled != m_isCancelled) {
                          return; // another file has been opened meanwhile
                      }
                      m_isCancelled.reset();
                      if (survey.error.isEmpty() && !*isCancelled) { // stopped, even as it ended
                          m_survey = survey;
                          setState(State::Ready);
                          if (opened == Opened::Play) {
                              play();
                          }
                          return;
                      }
                      m_survey = {};
                      setState(State::Empty);
                      if (!*isCancelled) {
                          emit failed(survey.file, survey.error);
                      }
                  });
}

void ScenarioPlay::play()
{
    if (m_state == State::Paused) {
        m_player->resume();
        setState(State::Playing);
    } else if (m_state == State::Ready) {
        begin(false);
    }
}

void ScenarioPlay::pause()
{
    if (m_state == State::Playing) {
        m_player->pause();
        setState(State::Paused);
    }
}

void ScenarioPlay::step()
{
    if (m_state == State::Ready) {
        begin(true);
    }
    if (m_state == State::Paused) {
        m_player->step();
    }
}

void ScenarioPlay::stop()
{
    if (m_state == State::Opening) {
        *m_isCancelled = true;
    } else if (m_player && m_state != State::Stopping) {
        m_player->stop();
        setState(State::Stopping);
    }
}

void ScenarioPlay::leave()
{
    if (m_state == State::Stopping) {
        m_afterStop = nullptr;
        m_left.push_back({std::move(m_file), std::move(m_player)});
        setState(State::Ready);
    }
}

void ScenarioPlay::seek(qint64 position)
{
    m_sought = position;
    m_hasEnded = false;
    if (m_state == State::Ready) {
        m_position = position;
        emit positionChanged();
    } else if (m_state == State::Playing || m_state == State::Paused) {
        m_afterStop = [this, isPaused = m_state == State::Paused] {
            m_position = m_sought;
            begin(isPaused);
        };
        stop();
    }
}

void ScenarioPlay::setSpeed(double speed)
{
    m_speed = speed;
    if (m_player) {
        m_player->setSpeed(speed);
    }
    emit speedChanged(speed);
}

void ScenarioPlay::setLooped(bool isLooped)
{
    m_isLooped = isLooped;
    if (m_player) {
        m_player->setLooped(isLooped);
    }
}

qint64 ScenarioPlay::position() const
{
    return m_position;
}

qint64 ScenarioPlay::linesPlayed() const
{
    return m_lines - (turn() - 1) * m_survey.lines;
}

qint64 ScenarioPlay::turn() const
{
    const bool hasTurned = m_survey.lines > 0 && m_lines > m_survey.lines;
    return hasTurned ? (m_lines - 1) / m_survey.lines + 1 : 1;
}

void ScenarioPlay::begin(bool isPaused)
{
    m_file = std::make_unique<QFile>(m_survey.file);
    if (!m_file->open(QIODevice::ReadOnly)) {
        emit failed(m_survey.file, m_file->errorString());
        return;
    }
    TavPlayOptions options;
    options.speed = m_speed;
    if (std::exchange(m_hasEnded, false)) {
        m_position = 0; // anew
    }
    options.from = m_position;
    options.isLooped = m_isLooped;
    options.isPaused = isPaused;
    options.announcer = [&session = m_session](const TavScenario::Line &line) {
        session.noteBeginning(managerOf(line), operationOf(line));
    };
    options.observer = [this](const TavPlayedCall &call) { noteCall(call); };
    m_player = std::make_unique<TavScenarioPlayer>(m_session.host(), *m_file, options);
    setState(isPaused ? State::Paused : State::Playing);
    m_watch.start();
}

void ScenarioPlay::watch()
{
    m_left.remove_if([](const Played &played) { return played.player->isAtEnd(); });
    if (!m_player) {
        if (m_left.empty()) {
            m_watch.stop();
        }
        return;
    }
    const TavPlayReport report = m_player->progress();
    m_lines = report.lines;
    m_position = turn() > 1 ? report.at : qMax(report.at, m_position); // the lines before a beginning lie behind it
    emit positionChanged();
    if (m_player->isAtEnd()) {
        finish();
    }
}

void ScenarioPlay::finish()
{
    const TavPlayReport report = m_player->progress();
    const QString file = m_survey.file;
    m_player.reset();
    m_file.reset();
    setState(State::Ready);
    if (const auto next = std::exchange(m_afterStop, nullptr)) {
        next();
    } else if (report.error) {
        emit failed(file, QString::fromUtf8(report.error->what()));
    } else if (!report.isStopped) {
        m_position = m_survey.end;
        m_hasEnded = true;
        emit positionChanged();
        emit ended();
    }
}

void ScenarioPlay::setState(State state)
{
    m_state = state;
    emit stateChanged();
}

// On the thread that has made the call.
void ScenarioPlay::noteCall(const TavPlayedCall &played)
{
    const TavScenario::Line &line = played.line;
    LoggedCall call;
    call.time = QDateTime::fromMSecsSinceEpoch(
        std::chrono::duration_cast<std::chrono::milliseconds>(played.start.time_since_epoch()).count());
    call.thread = TavScenario::threads()[line.thread];
    call.returned = shortJson(played.returned);
    call.error = played.error ? QString::fromUtf8(played.error->what()) : QString();
    call.bytes = line.bytes;
    call.nanoseconds = played.nanoseconds;
    call.manager = managerOf(line);
    call.operation = operationOf(line);
    if (line.page.isEmpty()) {
        call.arguments = line.arguments;
    } else {
        const auto page = TavJson::fromJson<ClientSession::Page>(line.page);
        const auto function = m_session.host().manager<ITavFuncTypeMgr>()->getSubFuncInfo(page).funcType;
        call.arguments = QJsonArray{TavJson::toJson(function), line.page};
    }
    m_session.calls().note(call);
    m_session.noteEnd(call.manager, call.operation, !played.error);
}
