#pragma once

#include <QString>

/// Values as the tables of a page show them.
namespace CellText
{
QString text(const char *buffer);
QString number(qint64 value);
QString check(bool checked);

/// A size in the unit that suits it, such as "1.50 KiB".
QString bytes(quint64 count);

/// A time as the user's clock shows it; "-" for 0, which records use for "not known" or "not running".
QString timeText(qint64 secondsSinceEpoch);
}
