#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One detail record of an object: a file and who may do what with it. */
struct STObjectDetailAsr {
    quint64 size; ///< bytes
    qint64 updateTime; ///< seconds since the epoch: last change of the record
    qint32 level; ///< access level of the object
    qint32 permission; ///< allowed accesses, bits: 1: execute, 2: write, 4: read
    qint32 type; ///< 1: file, 2: directory, 3: device, 4: other
    qint32 state; ///< 0: not in force, 1: in force
    quint32 uid; ///< owner
    char userName[TavTextLimits::UserName]; ///< name of the owner; at most 32 bytes and the NUL
    char fileName[TavTextLimits::FileName]; ///< name within its directory; at most 255 bytes and the NUL
    char filePath[TavTextLimits::Path]; ///< absolute path; at most 4095 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STObjectDetailAsr>);
static_assert(std::is_trivially_default_constructible_v<STObjectDetailAsr>);
