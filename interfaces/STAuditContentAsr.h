#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One entry of the audit log. */
struct STAuditContentAsr {
    qint64 time; ///< seconds since the epoch
    qint32 type; ///< audit type, numbered as in STAuditTypeCountAsr
    qint32 result; ///< 1: the audited action succeeded, 0: it failed
    qint32 pid; ///< process id at the time of the event; 0: unknown
    quint32 uid; ///< user id that acted
    char userName[TavTextLimits::UserName]; ///< name of that user; at most 32 bytes and the NUL
    char processName[TavTextLimits::ProcessName]; ///< process that acted; at most 15 bytes and the NUL
    char object[TavTextLimits::Path]; ///< what was acted upon, mostly a path; at most 4095 bytes and the NUL
    char detail[TavTextLimits::Detail]; ///< text for the user; at most 1023 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STAuditContentAsr>);
static_assert(std::is_trivially_default_constructible_v<STAuditContentAsr>);
