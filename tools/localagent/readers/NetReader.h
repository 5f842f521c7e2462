#pragma once

#include "NetControl.pb.h"
#include "ReadingNote.h"

#include <QString>

/** @brief Reads the host's network devices. Sends nothing and asks no other host. */
namespace NetReader
{
/// The network devices in order of interface index, with gateways, without addresses. `state` is 1 for a device that
/// the administrator has switched on. A field that the kernel does not show is not present. Empty, and a note, when
/// the devices cannot be read.
Tav::NetControl::NetDeviceInfos readDevices(const QString &root, ReadingNotes &notes);

/// The network devices as the running system names them, with states and indices and nothing else: for a host whose
/// files do not show them, such as a container without /sys.
Tav::NetControl::NetDeviceInfos readLinks(ReadingNotes &notes);

/// Adds to the devices, by their names, the addresses that the running system has given to them.
void addAddresses(Tav::NetControl::NetDeviceInfos &devices, ReadingNotes &notes);

/// The counts of the devices. Rules cannot be read, so their counts are not present.
Tav::NetControl::NetControlCountAsr countsOf(const Tav::NetControl::NetDeviceInfos &devices);

/// The rules: `mode` 0, since the agent enforces none, and what the kernel does with packets passing through. The
/// packet filter's own rules are open to the administrator alone: always a note, never a rule.
Tav::NetControl::NetRuleInfoAsr readRules(const QString &root, ReadingNotes &notes);
}
