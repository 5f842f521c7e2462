#pragma once

#include <QString>

/// @p count and @p noun, in the plural unless it is one: "1 process", "2 processes", "0 entries".
QString countedText(qint64 count, const QString &noun);
