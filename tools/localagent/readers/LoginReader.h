#pragma once

#include "ReadingNote.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

/** @brief Reads the host's records of log-ins, /var/log/wtmp and /var/log/btmp, each with its predecessor ".1". */
namespace LoginReader
{
/// One log-in or attempt.
struct Login {
    qint64 time = 0; ///< seconds since the epoch
    bool failed = false;
    qint32 pid = 0;
    QByteArray userName; ///< as it was typed, for failed ones
    QByteArray line; ///< terminal, such as "pts/0"
    QByteArray host; ///< where from; empty for a log-in at the machine
};

/// The log-ins in the order of the records; nothing, and a note, when they cannot be read.
std::optional<QVector<Login>> readLogins(const QString &root, ReadingNotes &notes);

/// The failed log-ins in the order of the records; nothing, and a note, when they cannot be read.
std::optional<QVector<Login>> readFailedLogins(const QString &root, ReadingNotes &notes);
}
