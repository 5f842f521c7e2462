#pragma once

#include "Base.pb.h"
#include "ReadingNote.h"
#include "STProProtectContentAsr.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

/** @brief Reads the running processes from /proc. A process that ends meanwhile is left out without a note. */
namespace ProcessReader
{
constexpr int maxProcesses = 4096; ///< processes that are listed

/// One process.
struct Process {
    int pid = 0;
    int ppid = 0;
    quint32 uid = 0; ///< real user id
    quint32 effectiveUid = 0;
    QByteArray name; ///< as the kernel shows it, at most 15 bytes; any byte but NUL
    QByteArray program; ///< absolute path; empty for kernel threads, zombies and where it cannot be read
    bool programGone = false; ///< the file at `program` has been deleted or replaced since the process started
    bool kernelThread = false;
    bool zombie = false; ///< ended, its parent has not asked for the result yet
    qint64 startTime = 0; ///< seconds since the epoch; 0 when the time of boot cannot be read
};

/// The ids of all processes, kernel threads included, in ascending order; empty, and a note, when /proc cannot be read.
QVector<int> processIds(const QString &root, ReadingNotes &notes);

/// One process; nothing when it has ended or what the kernel tells of it makes no sense. @p denied is set when its
/// program may not be read.
std::optional<Process> readProcess(const QString &root, int pid, qint64 bootTime, bool &denied);

/// The processes but the kernel threads, in ascending order of their ids; of more than @p limit the first. Notes say
/// what is hidden, not readable or left out.
QVector<Process> readProcesses(const QString &root, ReadingNotes &notes, int limit = maxProcesses);

/// The processes as the process-protection page takes them, none of them protected.
QVector<STProProtectContentAsr> records(const QVector<Process> &processes, const QHash<quint32, QByteArray> &userNames);

/// The processes that are out of the ordinary, the last started first: the program's file is gone, the user is not
/// the one who started it, or it is a zombie (which has no type). @p now, in seconds since the epoch, is the time at
/// which they were seen. Command lines are not taken over: they may hold passwords.
Tav::Base::PriExceptionAsr exceptions(QVector<Process> processes, const QHash<quint32, QByteArray> &userNames,
                                      qint64 now);
}
