#pragma once

#include "Finding.h"

#include <set>

/// @brief A stretch of a text, and what is to stand in its place.
struct TextEdit {
    TextRange range;
    QByteArray text;
};

/// @brief A configuration file in which the mistakes are mended that have one safe answer.
struct FixedFile {
    Findings fixed; ///< the mistakes that the new content has no more
    QByteArray json; ///< the JSON text in it, before the edits
    QVector<TextEdit> edits; ///< in the order of that text
    bool isEncodedAnew; ///< a mistake of the encoding is among those
    bool isBase64; ///< so was the file before, and so is the new content
    QByteArray content; ///< what the file is to hold
};

/// Mends @p content, which @p check finds the mistakes of: mistyped keys, unknown types with one that is near, scripts
/// without a slash before them, and everything around the JSON text that is not the right encoding. A type is left as
/// it is where the near one would stand twice, or be a parent that does not exist. So is what is @p ignored.
FixedFile fixedFile(const QString &file, const QByteArray &content,
                    Findings (*check)(const QString &file, const QByteArray &content),
                    const std::set<FindingCode> &ignored);

/// @p text with @p edits, which stand in its order and do not overlap.
QByteArray edited(const QByteArray &text, const QVector<TextEdit> &edits);
