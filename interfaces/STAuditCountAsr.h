#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief Total number of audit events. */
struct STAuditCountAsr {
    qint32 count; ///< events, from 0
};

static_assert(std::is_trivially_copyable_v<STAuditCountAsr>);
static_assert(std::is_trivially_default_constructible_v<STAuditCountAsr>);
