#pragma once

#include <QString>

/// The first @p most letters of @p text and "…"; all of it when it has no more.
inline QString shortText(const QString &text, int most)
{
    if (text.size() <= most) {
        return text;
    }
    const bool cutsCharacter = text.at(most - 1).isHighSurrogate(); // it takes two letters in UTF-16
    return text.left(cutsCharacter ? most - 1 : most) + QChar(u'\u2026');
}
