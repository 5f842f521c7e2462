#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One entry of the list of protected files. */
struct STFileProtectContentAsr {
    quint64 size; ///< bytes
    qint64 modifyTime; ///< seconds since the epoch: last change of the content
    qint32 id; ///< identifier given by the backend
    qint32 state; ///< 0: not protected, 1: protected, 2: tampered with, 3: missing
    quint32 uid; ///< owner
    quint32 gid; ///< group
    quint32 mode; ///< permission bits as chmod takes them, 0 to 07777
    char path[TavTextLimits::Path]; ///< absolute path; at most 4095 bytes and the NUL
    char algorithm[TavTextLimits::Algorithm]; ///< digest algorithm; at most 15 bytes and the NUL
    char digest[TavTextLimits::Digest]; ///< digest of the file, lower-case hexadecimal; up to 128 digits and the NUL
};

static_assert(std::is_trivially_copyable_v<STFileProtectContentAsr>);
static_assert(std::is_trivially_default_constructible_v<STFileProtectContentAsr>);
