#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief Identifier of the scan of a single object. */
struct STSingleScanAsr {
    qint32 scanId; ///< identifier given by the backend; 0: none yet
};

static_assert(std::is_trivially_copyable_v<STSingleScanAsr>);
static_assert(std::is_trivially_default_constructible_v<STSingleScanAsr>);
