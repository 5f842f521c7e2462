#pragma once

#include "Measure.pb.h"
#include "ReadingNote.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

/**
 * @brief Measures programs by their SHA-256 digests and judges them by what their packages say of them.
 *
 * This is the agent's own measurement, beside the kernel's: any user may make it.
 */
namespace MeasureReader
{
/// Absolute paths of the programs to measure, whether the host has them or not.
QVector<QByteArray> programs();

/// Those of the programs that the host has or that @p packageDigests says it should have.
QVector<QByteArray> presentPrograms(const QString &root, const QHash<QByteArray, QByteArray> &packageDigests);

/// Measures one program. `state` is 1 when its package names the same content, 2 with the two MD5 digests when it
/// names another, 3 when no package names it. Without a digest, and noted, when it cannot be read.
Tav::Measure::ImaContent measure(const QString &root, const QByteArray &path,
                                 const QHash<QByteArray, QByteArray> &packageDigests, qint64 now, ReadingNotes &notes);

/// How many entries are in which state.
Tav::Measure::ImaCountAsr countsOf(const Tav::Measure::ImaContentAsr &list);

/// Result of the measurement: 2 when nothing differs, 3 when something does, 4 when nothing could be measured.
/// Programs that cannot be read or are gone are items as well.
Tav::Measure::CompleteMeasureAsr resultOf(const QString &root, const Tav::Measure::ImaContentAsr &list);
}
