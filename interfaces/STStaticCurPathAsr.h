#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief The path that the static scan is measuring now. */
struct STStaticCurPathAsr {
    char path[TavTextLimits::Path]; ///< absolute path, empty: no scan running; at most 4095 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STStaticCurPathAsr>);
static_assert(std::is_trivially_default_constructible_v<STStaticCurPathAsr>);
