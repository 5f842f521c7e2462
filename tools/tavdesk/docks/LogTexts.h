#pragma once

#include <QDateTime>

/// What the tables of this program show for times.
namespace LogTexts
{
/// The time of day with milliseconds.
QString time(const QDateTime &time);

/// With one decimal; "–" for what is not known.
QString microseconds(qint64 nanoseconds);
}
