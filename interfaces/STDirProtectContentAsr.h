#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One entry of the list of protected directories. */
struct STDirProtectContentAsr {
    qint64 updateTime; ///< seconds since the epoch: last change of the entry
    qint32 id; ///< identifier given by the backend
    qint32 state; ///< 0: not protected, 1: protected, 2: tampered with, 3: missing
    qint32 recursive; ///< 1: everything below as well, 0: only the directory's own entries
    qint32 fileCount; ///< files covered, from 0
    char path[TavTextLimits::Path]; ///< absolute path; at most 4095 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STDirProtectContentAsr>);
static_assert(std::is_trivially_default_constructible_v<STDirProtectContentAsr>);
