#pragma once

#include "ReadingNote.h"
#include "Reinforce.pb.h"
#include "STStateInfo.h"

#include <QString>
#include <QVector>

/** @brief Reads the kernel parameters that hardening is about, and what they would have to be. */
namespace ReinforceReader
{
/// The security switches: one per kernel parameter, then SELinux and AppArmor. A parameter that cannot be read
/// counts as not supported and has no current value; a note says so when the kernel has it all the same.
Tav::Reinforce::SecswitchAsr readSwitches(const QString &root, ReadingNotes &notes);

/// The policy behind the switches: one measure per switch that the host has.
Tav::Reinforce::OneReforcePolicy policyOf(const Tav::Reinforce::SecswitchAsr &switches);

/// One line of the state list per switch that the host has, such as "kernel.kptr_restrict" and "0, expected 1".
QVector<STStateInfo> linesOf(const Tav::Reinforce::SecswitchAsr &switches);
}
