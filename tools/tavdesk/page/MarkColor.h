#pragma once

#include <QColor>

/// Behind a value that has just changed; @p strength goes from 1 to 0 while it fades. It lets a light and a dark
/// background through, so that texts stay readable on both.
inline QColor markColor(double strength)
{
    QColor color(255, 170, 0);
    color.setAlphaF(0.45 * strength);
    return color;
}
