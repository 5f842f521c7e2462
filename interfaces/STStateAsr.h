#pragma once

#include <QtGlobal>

#include <type_traits>

/**
 * @brief State answer of one protection: two words from the backend, which the managers copy and never read.
 *
 * Plain on purpose, without initial values: what a manager holds before the first answer is the manager's doing.
 */
struct STStateAsr {
    qint32 stateValue; ///< state code; its values belong to the protection whose state it is
    qint32 stateExtra; ///< second word to the code, such as an error number; 0: nothing to add
};

static_assert(std::is_trivially_copyable_v<STStateAsr>);
static_assert(std::is_trivially_default_constructible_v<STStateAsr>);
