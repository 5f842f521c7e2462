#pragma once

#include "TavTextLimits.h"

#include <QtGlobal>

#include <type_traits>

/** @brief One user of the host, as its user database tells. */
struct STLookUsersAsr {
    quint32 uid; ///< user id
    quint32 gid; ///< id of the primary group
    qint32 locked; ///< 1: the password is locked, 0: it is not, -1: unknown
    qint32 canLogin; ///< 1: the shell lets the user log in, 0: it is one of nologin, false and the like
    char name[TavTextLimits::UserName]; ///< login name; at most 32 bytes and the NUL
    char fullName[TavTextLimits::FullName]; ///< real name, from the comment field; at most 255 bytes and the NUL
    char home[TavTextLimits::Path]; ///< home directory; at most 4095 bytes and the NUL
    char shell[TavTextLimits::Path]; ///< login shell; at most 4095 bytes and the NUL
};

static_assert(std::is_trivially_copyable_v<STLookUsersAsr>);
static_assert(std::is_trivially_default_constructible_v<STLookUsersAsr>);
