#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One entry of the list of protected kernel modules. */
struct STKernelContentAsr {
    quint64 size; ///< bytes in memory; 0 when not loaded
    qint32 id; ///< identifier given by the backend
    qint32 state; ///< 0: not protected, 1: protected, 2: changed, 3: missing
    qint32 loaded; ///< 1: in the kernel now, 0: not
    qint32 refCount; ///< users of the loaded module, from 0
    char name[TavTextLimits::ModuleName]; ///< module name; at most 55 bytes and the NUL
    char path[TavTextLimits::Path]; ///< absolute path of the module's file; at most 4095 bytes and the NUL
    char algorithm[TavTextLimits::Algorithm]; ///< digest algorithm; at most 15 bytes and the NUL
    char digest[TavTextLimits::Digest]; ///< digest of the file, lower-case hexadecimal; up to 128 digits and the NUL
};

static_assert(std::is_trivially_copyable_v<STKernelContentAsr>);
static_assert(std::is_trivially_default_constructible_v<STKernelContentAsr>);
