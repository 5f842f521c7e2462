#pragma once

#include <QChar>
#include <QString>

/// What @p character is called, with its number, when nobody sees it or it changes how others are seen: controls,
/// breaks without a width, marks of the direction of writing, surrogates by themselves, blanks that are none to a
/// program. Empty for any other, the blank and the ideographic one included.
QString hiddenCharacterName(QChar character);

/// The name of the first such character in @p text; empty when there is none.
QString hiddenCharacterIn(const QString &text);
