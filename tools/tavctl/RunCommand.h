#pragma once

#include <QString>

/// @brief What "tavctl run" and "tavctl registry" are asked to do.
struct RunOptions {
    QString pluginFile; ///< the plugin to load
    QString systemRoot; ///< directory taken for "/"
    bool json = false; ///< print one JSON document instead of text
};

/// Loads the plugin and prints what it registered. Throws ToolError.
void showRegistry(const RunOptions &options);

/// Is the client for a while: loads the plugin and the catalogue, prints the navigation and walks through every page.
/// Throws ToolError.
void run(const RunOptions &options);
