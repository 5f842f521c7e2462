#pragma once

#include <QString>

/// The tool tip that shows @p text as it is, in lines that fit the screen: given as it is, one with angle brackets
/// would be taken for HTML. A very long text is cut; an empty one has none.
QString plainToolTip(const QString &text);
