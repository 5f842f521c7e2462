#pragma once

#include "TavPluginHost.h"

#include <QJsonArray>
#include <QJsonObject>

/// The plugin in @p file, with its managers registered. Throws ToolError when that does not work.
TavPluginHost loadPlugin(const QString &file);

QJsonObject pluginJson(const TavPluginHost &host); ///< file, identifier, class, time to load
QJsonArray registryJson(const TavPluginHost &host); ///< order, key, class, interface, address, time to create
void printPlugin(const TavPluginHost &host);
void printRegistry(const TavPluginHost &host);
