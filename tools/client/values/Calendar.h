#pragma once

#include <QtGlobal>

/// Whether a time lies in the years 1 to 9999, which are those that are written as dates; QDateTime counts on beyond
/// them, and at last begins anew.
constexpr bool isInCalendar(qint64 secondsSinceEpoch)
{
    constexpr auto yearOne = Q_INT64_C(-62135596800);
    constexpr auto yearTenThousand = Q_INT64_C(253402300800);
    return secondsSinceEpoch >= yearOne && secondsSinceEpoch < yearTenThousand;
}
