#pragma once

#include "DevControl.pb.h"
#include "ReadingNote.h"

#include <QString>

/** @brief Reads the host's devices from /sys: the USB devices, and which kinds of device there are. */
namespace UsbReader
{
/// The USB devices in order of bus and device number; a field that the kernel does not show is not present. Empty,
/// and a note, when the kernel shows no USB at all.
Tav::DevControl::DevUsbInfoList readDevices(const QString &root, ReadingNotes &notes);

/// The ten kinds of device. The agent controls none: `control_enabled` is false, and a kind is enabled unless
/// @p blockedModules has one of the modules that drive it. `supported`: the kernel has drivers or a class for it.
Tav::DevControl::DevFuncEnableInfo readKinds(const QString &root, const Tav::DevControl::DevUsbInfoList &usbDevices,
                                             const QVector<QByteArray> &blockedModules);
}
