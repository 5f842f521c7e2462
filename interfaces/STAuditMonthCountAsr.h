#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief Number of audit events of one month; serves the series of all events and that of failed ones. */
struct STAuditMonthCountAsr {
    qint32 year; ///< such as 2024
    qint32 month; ///< 1 to 12
    qint32 count; ///< events, from 0
};

static_assert(std::is_trivially_copyable_v<STAuditMonthCountAsr>);
static_assert(std::is_trivially_default_constructible_v<STAuditMonthCountAsr>);
