#pragma once

#include <QDateTime>
#include <QJsonValue>

/// What the tables of this program show for times and values.
namespace LogTexts
{
/// The time of day with milliseconds.
QString time(const QDateTime &time);

/// With one decimal; "–" for what is not known.
QString microseconds(qint64 nanoseconds);

/// JSON on one line, cut when it is long; empty for an undefined value and for null.
QString shortJson(const QJsonValue &value);
}
