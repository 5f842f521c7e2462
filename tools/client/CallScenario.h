#pragma once

#include "CallLog.h"

#include <atomic>

/// @brief What became of calls that were to be saved.
struct SavedCalls {
    QString error; ///< why the file cannot be written; empty when it was
    int leftOut = 0; ///< calls that were refused, and would be again
    bool isStopped = false; ///< nothing was written
};

/// Writes @p calls as a scenario that makes them again, at their distances in time and on threads of their kind. Ends
/// early once @p isStopped is true, and leaves no file.
SavedCalls saveAsScenario(const QString &file, QVector<LoggedCall> calls, const std::atomic<bool> &isStopped);
