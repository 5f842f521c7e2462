#pragma once

#include "AgentCalls.h"
#include "AgentReport.h"

#include <QObject>
#include <QThread>

/**
 * @brief Stands in for the security agent's backend: reads this host and feeds the managers with it.
 *
 * It reads for real, as the user it runs under, and what it may not read it reports as such. It writes nothing,
 * sends nothing, runs no other program and protects nothing. All reading and feeding happens on a thread of its own,
 * as in a page controller; the managers are looked up in the client's registry at each reading. Catalogue, selection
 * and pictures are not the backend's and are not fed. End it before the registry.
 */
class LocalAgent : public QObject
{
    Q_OBJECT
public:
    /// Starts the thread, which waits. @p root stands for "/" in what is read from files.
    explicit LocalAgent(QString root = QStringLiteral("/"), QObject *parent = nullptr);
    Q_DISABLE_COPY(LocalAgent)

    /// Waits for the reading under way; what was asked for and has not begun is left undone.
    ~LocalAgent() override;

    /// Has @p observer told each call that the agent makes from then on. To be set before feed().
    void setObserver(AgentObserver observer);

    /// Has everything read and fed, and returns at once; finished() tells when it is done. Any thread.
    void feed();

    /// As feed(), but waits for the end, at most @p timeoutMs milliseconds, a negative number for ever. After the
    /// deadline the report is incomplete and empty while the feeding goes on. Any thread but the agent's own.
    AgentReport feedAndWait(int timeoutMs);

    /// The thread on which managers are fed.
    QThread *workerThread();

signals:
    /// Everything asked for with one feed() or feedAndWait() has been done; sent from the agent's thread.
    void finished(const AgentReport &report);

private:
    AgentReport run() const;

    const QString m_root;
    AgentObserver m_observer;
    QObject m_worker; ///< lives in the thread: what is invoked on it runs there
    QThread m_thread;
};
