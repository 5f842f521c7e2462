#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/**
 * @brief Resource figures of the host.
 *
 * ITavHostInfoMgr gives this record no initial value of its own: before the first set every figure is indeterminate,
 * and a text may lack its NUL. Do not read it before a controller has announced that it has set it.
 */
struct STResourceInfoAsr {
    quint64 memoryTotal; ///< bytes
    quint64 memoryAvailable; ///< bytes that programs can get without swapping
    quint64 swapTotal; ///< bytes; 0: no swap
    quint64 swapFree; ///< bytes
    quint64 rootDiskTotal; ///< bytes of the file system at /
    quint64 rootDiskFree; ///< bytes of it that users can still fill
    quint64 diskTotal; ///< bytes of all local file systems together
    quint64 diskFree; ///< bytes of them that users can still fill
    qint64 uptime; ///< seconds since boot
    qint64 sampleTime; ///< seconds since the epoch: when the figures were taken
    qint32 cpuCores; ///< logical processors in use, at least 1
    qint32 cpuUsage; ///< permille of all processors together, 0 to 1000
    qint32 loadAverage1; ///< load average over 1 minute, times 100
    qint32 loadAverage5; ///< load average over 5 minutes, times 100
    qint32 loadAverage15; ///< load average over 15 minutes, times 100
    qint32 processCount; ///< processes, kernel threads included
    char cpuModel[TavTextLimits::CpuModel]; ///< processor's name; at most 127 bytes and the NUL
    char kernelRelease[TavTextLimits::KernelRelease]; ///< as uname -r prints it; at most 64 bytes and the NUL
    char machine[TavTextLimits::KernelRelease]; ///< hardware name, such as "aarch64"; at most 64 bytes and the NUL
    char osName[TavTextLimits::OsName]; ///< pretty name of the distribution; at most 127 bytes and the NUL
    char hostName[TavTextLimits::HostName]; ///< at most 64 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STResourceInfoAsr>);
static_assert(std::is_trivially_default_constructible_v<STResourceInfoAsr>);
