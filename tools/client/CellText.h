#pragma once

#include "TavFieldValues.h"

/// Values as the tables of a page show them.
namespace CellText
{
/// A field's value, by what it means.
QString ofKind(TavFields::Kind kind, const QVariant &value);

/// The field of this member in @p record: `of<&STStateAsr::stateValue>(state)`.
template<auto Member>
QString of(const typename TavFields::Field<Member>::Record &record)
{
    constexpr auto field = TavFields::fieldOf<Member>();
    return ofKind(field.kind, TavFields::valueOf(field, record));
}

/// A time as the user's clock shows it; "-" for 0, which records use for "not known" or "not running".
QString timeText(qint64 secondsSinceEpoch);
}
