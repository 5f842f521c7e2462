#pragma once

#include "ReadingNote.h"
#include "STAuditContentAsr.h"
#include "STAuditCountAsr.h"
#include "STAuditMonthCountAsr.h"
#include "STAuditTypeCountAsr.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

/**
 * @brief Makes the audit page's figures from the log-ins, the failed log-ins and the uses of sudo in the log of
 * authentications.
 */
namespace AuditReader
{
constexpr int maxEntries = 1024; ///< events that are listed, the newest
constexpr int months = 12; ///< length of the two series, the current month included

/// One event.
struct Event {
    qint64 time = 0; ///< seconds since the epoch
    int type = 0; ///< 1: login, 2: access control
    bool failed = false;
    qint32 pid = 0; ///< 0: unknown
    QByteArray userName;
    QByteArray processName; ///< empty: unknown
    QByteArray object;
    QByteArray detail;
};

/// What the audit page shows. A series is empty when the records it would come from cannot be read.
struct Audit {
    STAuditCountAsr count; ///< all events that were read, also those not listed
    QVector<STAuditContentAsr> content; ///< the newest first
    QVector<STAuditTypeCountAsr> typeCounts; ///< types whose records could be read
    QVector<STAuditMonthCountAsr> monthCounts; ///< all events
    QVector<STAuditMonthCountAsr> monthFailCounts; ///< failed events
};

/// The audit figures at the time @p now, in seconds since the epoch; months are those of the local time.
Audit readAudit(const QString &root, qint64 now, ReadingNotes &notes);

/// The use of sudo that a line of the log tells of; nothing when it tells of something else. A line without a year is
/// taken for the newest possible before @p now.
std::optional<Event> parseLine(const QByteArray &line, qint64 now);

/// How many of the @p times lie in each month, the last @ref months up to that of @p now; older ones are not counted.
QVector<STAuditMonthCountAsr> countByMonth(const QVector<qint64> &times, qint64 now);
}
