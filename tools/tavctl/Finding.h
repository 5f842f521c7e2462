#pragma once

#include "TavJsonText.h"

#include <QJsonArray>
#include <QString>
#include <QVector>

/// @brief A mistake in a file of an installation: where it stands and what to do about it.
struct Finding {
    QString file;
    TextPlace place; ///< of the value; none when the finding is about the file as a whole
    QString path; ///< JSON pointer of the value; empty for the document, and for files that are not JSON
    QString problem; ///< what is wrong
    QString effect; ///< what the plugin makes of it
    QString advice; ///< what to write instead
    bool decoded = false; ///< the place is one of the text that the file holds in Base64
};

using Findings = QVector<Finding>;

/// @p findings, which have a path alone, as those of the JSON text of a file; with those of the text itself, in the
/// order of the text.
Findings located(Findings findings, const QString &file, const TavJsonText &text);

/// Writes one line for each finding.
void printFindings(const Findings &findings);

/// Writes the findings under a heading of their own; only an empty line when there are none.
void printFindingsWithHeading(const Findings &findings);

/// "no findings", "1 finding", "2 findings".
QString countText(const Findings &findings);

QJsonArray findingsJson(const Findings &findings);
