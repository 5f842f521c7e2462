#pragma once

#include "ReadingNote.h"
#include "STLookUsersAsr.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

/**
 * @brief Reads the host's own users from /etc/passwd, /etc/group and, where allowed, /etc/shadow.
 *
 * The files are read and not the name service, which may ask a directory server over the network: users that are
 * only known there are not listed.
 */
namespace UserReader
{
constexpr qint64 secondsPerDay = 86400;

/// One user of the host.
struct User {
    QByteArray name;
    quint32 uid = 0;
    quint32 gid = 0; ///< primary group
    QByteArray fullName; ///< comment field up to its first comma
    QByteArray home;
    QByteArray shell; ///< as written; empty means /bin/sh
    QList<QByteArray> groups; ///< names of the groups the user is in, the primary one first
    std::optional<bool> locked; ///< the password is locked; nothing when it could not be read
    std::optional<qint64> passwordChange; ///< seconds since the epoch, to the day; nothing when unknown
    std::optional<qint64> passwordDays; ///< days a password holds, -1 for ever; nothing when it could not be read
};

/// The users in the order of the file; empty, and a note, when /etc/passwd cannot be read. Broken lines are left out
/// and noted; what only /etc/group or /etc/shadow tell is missing, and noted, when they cannot be read.
QVector<User> readUsers(const QString &root, ReadingNotes &notes);

/// User id to name; of two names for one id the first counts.
QHash<quint32, QByteArray> namesById(const QVector<User> &users);

/// The same for the users of the host. Nothing is noted: that belongs to the reading of the users.
QHash<quint32, QByteArray> readNames(const QString &root);

/// Whether the shell lets the user log in: not nologin, false, sync, halt or shutdown.
bool canLogin(const User &user);

/// The users as the access-control pages take them.
QVector<STLookUsersAsr> records(const QVector<User> &users);
}
