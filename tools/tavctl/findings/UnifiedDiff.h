#pragma once

#include "FileFix.h"

/// The lines by which @p edits change @p text, in the format of diff -u, with @p name for both; empty without edits.
QByteArray unifiedDiff(const QByteArray &name, const QByteArray &text, const QVector<TextEdit> &edits);
