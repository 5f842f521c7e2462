#pragma once

#include <QString>

/// The tool tip that shows @p text as it is, in lines that fit the screen: given as it is, one with angle brackets
/// would be taken for HTML. An empty text has none.
QString plainToolTip(const QString &text);
