#pragma once

#include <QFontMetrics>

/// The width of a letter, for sizes that are told in letters: of a digit, from whichever font has it. The average that
/// the metrics know is the first font's alone, in a Chinese session that of a font whose letters are squares.
inline int letterWidth(const QFontMetrics &metrics)
{
    return metrics.horizontalAdvance(QLatin1Char('0'));
}
