#pragma once

#include "ReadingNote.h"
#include "Reinforce.pb.h"

#include <QString>
#include <QVector>

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
/// Path of the configuration, for the user and for TavCommonUtils.
QString configPath();

/// The ids of the items, each once, in the order of the file.
QVector<int> itemIds(const QJsonObject &config);

/// The faults of the configuration; @p itemOf gives the item that the manager holds for an id.
Tav::Reinforce::LineScanItemConfigErr faultsOf(const QJsonObject &config,
                                               const std::function<STBLEnableConfig(int)> &itemOf);
}
