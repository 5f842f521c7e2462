#pragma once

#include "CallLog.h"

/// Writes @p calls as a scenario that makes them again, at their distances in time and on threads of their kind. Calls
/// that were refused are left out. Returns why the file cannot be written; empty when it was.
QString saveAsScenario(const QString &file, QVector<LoggedCall> calls);
