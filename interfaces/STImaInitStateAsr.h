#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief How far the first build-up of the trusted list has come. */
struct STImaInitStateAsr {
    qint32 initState; ///< 0: not begun, 1: running, 2: done, 3: failed
};

static_assert(std::is_trivially_copyable_v<STImaInitStateAsr>);
static_assert(std::is_trivially_default_constructible_v<STImaInitStateAsr>);
