#pragma once

#include "Finding.h"

/// @brief What a plugin's file says about itself; a text that it does not hold is empty.
struct PluginFacts {
    QString identifier;
    QString qtVersion; ///< the Qt that it was built with
    QString machine; ///< the architecture that it was built for
};

PluginFacts pluginFacts(const QString &file);

/// What keeps a client from taking @p file for its data plugin: that it is no such plugin, or was built for another
/// machine or another Qt, or lacks a library. Loads the plugin when nothing else speaks against it.
Findings checkPlugin(const QString &file);
