#pragma once

#include "ReadingNote.h"
#include "SystemConfig.pb.h"

#include <QString>

/**
 * @brief Reads what the host knows of the account that the agent runs under: the log-in and the password.
 *
 * No password, nor anything derived from one, is taken over.
 */
namespace AccountReader
{
/// The account's user as logged in. Fields that the host does not tell are not present, and noted. @p now: seconds
/// since the epoch.
Tav::SystemConfig::LoginCheckAsr readLogin(const QString &root, quint32 uid, qint64 now, ReadingNotes &notes);

/// State of the account's password. `result` is 4, not allowed: the agent changes no passwords. Fields that the host
/// does not tell are not present, and noted.
Tav::SystemConfig::PasswdChangeAsr readPassword(const QString &root, quint32 uid, qint64 now, ReadingNotes &notes);
}
