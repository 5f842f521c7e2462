#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief State of the kernel's integrity measurement. `state` is 0 while nothing has been reported. */
struct STImaStateAsr {
    qint32 mode; ///< 0: off, 1: measure, 2: measure and log differences, 3: measure and refuse what differs
    qint32 state; ///< 0: not running, 1: running, 2: failed
    qint32 violations; ///< violations that the kernel has counted since boot
    qint32 hasTpm; ///< 1: a TPM register backs the list, 0: none
};

static_assert(std::is_trivially_copyable_v<STImaStateAsr>);
static_assert(std::is_trivially_default_constructible_v<STImaStateAsr>);
