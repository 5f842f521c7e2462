#include "AgentFeeder.h"

#include "ClientSession.h"
#include "LocalAgent.h"
#include "TavScenario.h"

#include <QJsonDocument>

AgentFeeder::AgentFeeder(ClientSession &session, QObject *parent)
    : QObject(parent), m_session(session), m_ender("agent-ender", TavWorker::AtEnd::Finish)
{
    connect(&m_repeat, &QTimer::timeout, this, &AgentFeeder::feed);
}

AgentFeeder::~AgentFeeder() = default;

void AgentFeeder::feed()
{
    if (m_agent) {
        return;
    }
    m_agent = std::make_unique<LocalAgent>();
    connect(m_agent.get(), &LocalAgent::finished, this, [this, feeding = ++m_feeding](const AgentReport &report) {
        if (feeding != m_feeding || !m_agent) {
            return; // given up before its word arrived
        }
        giveUp();
        emit stateChanged();
        emit fed(report);
    });
    m_agent->setObserver([&session = m_session](const AgentCall &made) {
        LoggedCall call;
        call.time = QDateTime::currentDateTime().addMSecs(-made.nanoseconds / 1'000'000);
        call.thread = TavScenario::threads()[TavScenario::agent];
        call.manager = made.manager;
        call.operation = made.operation;
        call.nanoseconds = made.nanoseconds;
        call.arguments = made.arguments();
        call.bytes = QJsonDocument(call.arguments.toArray()).toJson(QJsonDocument::Compact).size();
        session.calls().note(call);
    });
    m_agent->feed();
    emit stateChanged();
}

void AgentFeeder::repeat(int seconds)
{
    if (seconds > 0) {
        m_repeat.start(seconds * 1000);
        feed();
    } else {
        m_repeat.stop();
    }
    emit stateChanged();
}

void AgentFeeder::stop()
{
    m_repeat.stop();
    giveUp();
    emit stateChanged();
}

void AgentFeeder::giveUp()
{
    if (m_agent) {
        m_ender.post(
            [agent = std::shared_ptr<LocalAgent>(std::move(m_agent))]() mutable {
                agent.reset();
                return true;
            },
            [](bool) {});
    }
}
