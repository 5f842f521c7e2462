#pragma once

#include "Finding.h"
#include "ToolError.h"

#include <QJsonArray>

// How findings are shown, and how a command ends that has looked for them.

/// "no findings", "1 finding", "2 findings".
QString countText(const Findings &findings);

QJsonArray findingsJson(const Findings &findings);

/// Prints the findings under a heading of their own; only an empty line when there are none.
void printFindings(const Findings &findings);

/// Prints what the check of one file has found, as text or as a JSON document.
void reportOn(const QString &file, const Findings &findings, bool json);

ExitCode exitCodeFor(const Findings &findings);
