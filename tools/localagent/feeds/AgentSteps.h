#pragma once

#include "AgentCalls.h"
#include "AgentReport.h"

#include <functional>
#include <optional>

/** @brief One reading, and how its manager is fed with it. */
struct AgentStep {
    QString name; ///< of the reading
    QString manager; ///< name of the manager's interface
    /// Reads below the root, feeds the manager and returns the number of entries; nothing when there is no manager.
    std::function<std::optional<int>(const QString &root, const AgentObserver &observer, ReadingNotes &notes)> feed;
};

/// All steps in their order: a page's rows come after what they are made of.
QVector<AgentStep> agentSteps();

/// Makes one step, whose calls @p observer is told, and takes its time.
AgentReading runStep(const AgentStep &step, const QString &root, const AgentObserver &observer);
