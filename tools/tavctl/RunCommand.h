#pragma once

#include <QString>

/// @brief What "tavctl run" and "tavctl registry" are asked to do.
struct RunOptions {
    QString pluginFile; ///< the plugin to load
    QString systemRoot; ///< directory taken for "/"
    QString page; ///< key of the one page to show in full; empty for all of them
    bool json = false; ///< print one JSON document instead of text
};

/// Loads the plugin and prints what it registered. Throws ToolError.
void showRegistry(const RunOptions &options);

/// Is the client for a while: loads the plugin and the catalogue, selects every page, has the managers fed with this
/// machine's state, shows what each page's model then holds and edits some of it. Throws ToolError.
void run(const RunOptions &options);
