#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief Number of audit events of one type. */
struct STAuditTypeCountAsr {
    qint32 type; ///< 1: login, 2: access control, 3: integrity, 4: protection, 5: network, 6: device, 7: configuration
    qint32 count; ///< events, from 0
};

static_assert(std::is_trivially_copyable_v<STAuditTypeCountAsr>);
static_assert(std::is_trivially_default_constructible_v<STAuditTypeCountAsr>);
