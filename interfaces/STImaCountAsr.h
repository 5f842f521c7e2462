#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief Number of IMA measurements. */
struct STImaCountAsr {
    qint32 count; ///< entries of the measurement list, from 0
};

static_assert(std::is_trivially_copyable_v<STImaCountAsr>);
static_assert(std::is_trivially_default_constructible_v<STImaCountAsr>);
