#pragma once

#include "HostInfo.pb.h"
#include "ReadingNote.h"
#include "STResourceInfoAsr.h"

#include <QByteArray>
#include <QString>

#include <optional>

/** @brief Reads the host's resource figures and the state of its kernel. */
namespace HostReader
{
/// Resource figures; what could not be read is 0 or empty, and noted. Takes @p sampleMilliseconds, the time between
/// the two samples that the processor usage comes from. The free space is that of file systems on block devices.
STResourceInfoAsr readResourceInfo(const QString &root, int sampleMilliseconds, ReadingNotes &notes);

/// Usage of all processors between two contents of /proc/stat in permille, 0 to 1000; nothing when one has no line of
/// all processors or no time has passed between them.
std::optional<int> cpuUsage(const QByteArray &before, const QByteArray &after);

/// State of the kernel and its files; a field that could not be read is not present, and noted. Signatures are not
/// verified: `state` is 1 only where the kernel itself refuses unsigned modules and has taken none, never 3.
Tav::HostInfo::SystemFileStateAsr readKernelState(const QString &root, ReadingNotes &notes);

/// The kernel's letters for its taint bits, such as "OE" for bits 12 and 13; empty for 0.
QByteArray taintLetters(quint64 taint);
}
