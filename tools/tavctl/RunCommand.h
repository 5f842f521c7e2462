#pragma once

#include "InstallationPaths.h"
#include "ToolError.h"

struct RegistryOptions {
    QString plugin = InstallationPaths::pluginBesideProgram(); ///< the file to load
    bool json = false; ///< print one JSON document instead of text
};

/// Loads the plugin and prints what it registered. Throws ToolError.
ExitCode showRegistry(const RegistryOptions &options);

struct RunOptions {
    QString plugin = InstallationPaths::pluginBesideProgram();
    QString root = "/"; ///< directory taken for "/"
    QString page; ///< key of the one page to show in full; empty for all of them
    bool verbose = false; ///< list every picture and every delivery
    bool json = false;
};

/// Is the client for a while: loads the plugin and the catalogue, selects every page, has the managers fed with this
/// machine's state, shows what each page's model then holds and edits some of it. Throws ToolError.
ExitCode run(const RunOptions &options);
