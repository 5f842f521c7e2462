#pragma once

#include <QPalette>

/// The colour of a text that says what is wrong, readable on a light and on a dark window.
inline QColor problemColor(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128 ? QColor(0xff, 0x80, 0x70) : QColor(0xb0, 0x20, 0x20);
}
