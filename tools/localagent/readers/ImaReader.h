#pragma once

#include "ReadingNote.h"
#include "STImaContentAsr.h"
#include "STImaStateAsr.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

/** @brief Reads the kernel's own integrity measurement (IMA). Most kernels show it to the administrator alone. */
namespace ImaReader
{
constexpr int maxEntries = 1024; ///< measurements that are listed, from the front of the kernel's list

/// The kernel's measurement list.
struct MeasurementList {
    int total = 0; ///< entries of the whole list
    QVector<STImaContentAsr> entries; ///< the first of them, at most maxEntries
};

/// One line of the list: register, entry digest, template, file digest, path. Nothing when it is none. `state` is 4
/// for a violation, else 0.
std::optional<STImaContentAsr> parseLine(const QByteArray &line);

/// The measurement list; empty, and a note, when it cannot be read.
MeasurementList readList(const QString &root, ReadingNotes &notes);

/// State of the measurement; 0, and noted, where it cannot be told.
STImaStateAsr readState(const QString &root, ReadingNotes &notes);
}
