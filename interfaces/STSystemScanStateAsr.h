#pragma once

#include <QtGlobal>

#include <type_traits>

/** @brief State of the scan of the whole system. `state` is 0 while no scan has been reported. */
struct STSystemScanStateAsr {
    qint32 scanId; ///< identifier of the run
    qint32 state; ///< 0: idle, 1: running, 2: finished, 3: stopped by the user, 4: failed
    qint32 progress; ///< percent, 0 to 100
    qint32 scannedCount; ///< files measured so far
    qint32 totalCount; ///< files to measure; 0: not known yet
    qint32 abnormalCount; ///< of the measured ones, those that differ
    qint64 startTime; ///< seconds since the epoch
    qint64 endTime; ///< seconds since the epoch; 0: still running
};

static_assert(std::is_trivially_copyable_v<STSystemScanStateAsr>);
static_assert(std::is_trivially_default_constructible_v<STSystemScanStateAsr>);
