#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/**
 * @brief One detail record of a principal: a user and the rights the policy gives.
 *
 * `userName` stands first: ITavAccessControlMgr::hasUserDetail compares it.
 */
struct STPriDetailAsr {
    char userName[TavTextLimits::UserName]; ///< user the record belongs to; at most 32 bytes and the NUL
    quint32 uid; ///< user id
    qint32 level; ///< access level of the principal
    qint32 permission; ///< allowed accesses, bits: 1: execute, 2: write, 4: read
    qint32 state; ///< 0: not in force, 1: in force
    qint64 updateTime; ///< seconds since the epoch: last change of the record
    char processPath[TavTextLimits::Path]; ///< only with this program, empty: any; at most 4095 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STPriDetailAsr>);
static_assert(std::is_trivially_default_constructible_v<STPriDetailAsr>);
