#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One entry of the IMA measurement list, as the kernel shows it. */
struct STImaContentAsr {
    qint32 pcr; ///< TPM register that was extended, 0 to 23; usually 10
    qint32 state; ///< 0: not judged, 1: trusted, 2: changed, 3: unknown file, 4: violation
    char templateHash[TavTextLimits::Digest]; ///< digest of the entry, lower-case hexadecimal; up to 128 digits and NUL
    char templateName[TavTextLimits::MeasureTemplate]; ///< such as "ima-ng"; at most 239 bytes and the NUL
    char algorithm[TavTextLimits::Algorithm]; ///< algorithm of `fileDigest`; at most 15 bytes and the NUL
    char fileDigest[TavTextLimits::Digest]; ///< digest of the file, lower-case hexadecimal; up to 128 digits and NUL
    char path[TavTextLimits::Path]; ///< file, or the kernel's hint in its place; at most 4095 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STImaContentAsr>);
static_assert(std::is_trivially_default_constructible_v<STImaContentAsr>);
