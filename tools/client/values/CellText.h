#pragma once

#include "ValueTable.h"

/// Values as the tables of a page show them, in the language of the interface.
namespace CellText
{
/// A field's value, by what it means; nothing for one that is absent.
QString ofKind(TavFields::Kind kind, const QVariant &value);

/// A cell of @p column: as ofKind(), and behind a code what it means, "1 (online)".
QString of(const ValueColumn &column, const QVariant &value);

/// A cell of @p column for other programs: as of(), but a digest with all its digits, a size in bytes, and bytes in
/// Base64, as operations take them.
QString inFull(const ValueColumn &column, const QVariant &value);

/// The unit of a field's raw values; empty for one without.
QString unitOf(TavFields::Kind kind);

/// A time as the user's clock shows it; "-" for 0, which records use for "not known" or "not running"; its number for
/// one beyond the calendar.
QString timeText(qint64 secondsSinceEpoch);
}
