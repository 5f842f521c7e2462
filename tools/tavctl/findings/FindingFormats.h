#pragma once

#include "Finding.h"

#include <QJsonObject>

/// The forms in which findings are written to standard output.
namespace FindingFormats
{
/// A line for each; on a terminal, broken at its width.
void printText(const Findings &findings);

void printJson(const Findings &findings, const QString &summary, const QJsonObject &others);
void printJsonLines(const Findings &findings, const QString &summary);
void printSarif(const Findings &findings, const QString &summary);
void printGithub(const Findings &findings);
}
