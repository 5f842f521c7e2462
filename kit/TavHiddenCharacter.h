#pragma once

#include <QString>

/// What @p character, a code point, is called, with its number, when nobody sees it or it changes how others are seen:
/// controls, breaks without a width, marks of the direction of writing, surrogates by themselves, letters that look
/// blank, blanks that are none to a program. Empty for any other, the blank and the ideographic one included.
QString hiddenCharacterName(uint character);

/// The name of the first such character in @p text; empty when there is none. One that joins or parts the letters
/// beside it is none where the script has such: it is seen by what it does.
QString hiddenCharacterIn(const QString &text);
