#pragma once

#include "ReadingNote.h"
#include "Reinforce.pb.h"

#include <functional>

class QJsonObject;
struct STBLEnableConfig;

/**
 * @brief Looks through the configuration of the baseline's check items. No check is run.
 *
 * The configuration is read inside the client's system root, as the manager reads it, not below the agent's own root.
 */
namespace BaselineReader
{
/// The faults of the configuration; @p itemOf gives the item that the manager holds for an id.
Tav::Reinforce::LineScanItemConfigErr faultsOf(const QJsonObject &config,
                                               const std::function<STBLEnableConfig(int)> &itemOf);
}
