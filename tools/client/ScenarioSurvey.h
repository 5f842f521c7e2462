#pragma once

#include <QString>

#include <atomic>

/// @brief What a scenario's file holds, found by reading it once without playing it.
struct ScenarioSurvey {
    QString file;
    QString title; ///< of its first line; empty when it has none
    qint64 lines = 0; ///< calls and pages
    qint64 end = 0; ///< time of the last line, in microseconds
    QString error; ///< why it cannot be played; empty when it can
};

/// Reads the whole file; ends early, with an error, once @p isCancelled is true.
ScenarioSurvey surveyScenario(const QString &file, const std::atomic<bool> &isCancelled);
