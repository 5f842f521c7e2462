#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One entry of the list of protected processes. */
struct STProProtectContentAsr {
    qint64 startTime; ///< seconds since the epoch; 0 when not running
    qint32 id; ///< identifier given by the backend
    qint32 state; ///< 0: not protected, 1: protected and running, 2: protected and not running
    qint32 pid; ///< process id; 0 when not running
    quint32 uid; ///< user id it runs under
    char userName[TavTextLimits::UserName]; ///< name of that user; at most 32 bytes and the NUL
    char name[TavTextLimits::ProcessName]; ///< name as the kernel shows it; at most 15 bytes and the NUL
    char path[TavTextLimits::Path]; ///< absolute path of the program; at most 4095 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STProProtectContentAsr>);
static_assert(std::is_trivially_default_constructible_v<STProProtectContentAsr>);
