#include "LocalAgent.h"

#include "AgentSteps.h"

#include <QSemaphore>

#include <memory>
#include <utility>

LocalAgent::LocalAgent(QString root, QObject *parent) : QObject(parent), m_root(std::move(root))
{
    qRegisterMetaType<AgentReport>();
    m_thread.setObjectName(QStringLiteral("agent")); // as a scenario names it
    m_worker.moveToThread(&m_thread);
    m_thread.start();
}

LocalAgent::~LocalAgent()
{
    m_thread.requestInterruption();
    m_thread.quit();
    m_thread.wait();
}

void LocalAgent::setObserver(AgentObserver observer)
{
    m_observer = std::move(observer);
}

void LocalAgent::feed()
{
    QMetaObject::invokeMethod(
        &m_worker, [this] { emit finished(run()); }, Qt::QueuedConnection);
}

AgentReport LocalAgent::feedAndWait(int timeoutMs)
{
    // Shared with the worker, which may still need it after the deadline.
    struct Answer {
        QSemaphore ready;
        AgentReport report;
    };
    const auto answer = std::make_shared<Answer>();
    QMetaObject::invokeMethod(
        &m_worker,
        [this, answer] {
            answer->report = run();
            emit finished(answer->report);
            answer->ready.release();
        },
        Qt::QueuedConnection);
    return answer->ready.tryAcquire(1, timeoutMs) ? answer->report : AgentReport();
}

QThread *LocalAgent::workerThread()
{
    return &m_thread;
}

AgentReport LocalAgent::run() const
{
    AgentReport report;
    const QVector<AgentStep> steps = agentSteps();
    for (const AgentStep &step : steps) {
        if (QThread::currentThread()->isInterruptionRequested()) {
            return report;
        }
        report.readings.append(runStep(step, m_root, m_observer));
    }
    report.complete = true;
    return report;
}
