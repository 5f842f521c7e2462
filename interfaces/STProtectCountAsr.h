#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief Number of protected entries of one kind. */
struct STProtectCountAsr {
    qint32 count; ///< entries, from 0
};

static_assert(std::is_trivially_copyable_v<STProtectCountAsr>);
static_assert(std::is_trivially_default_constructible_v<STProtectCountAsr>);
