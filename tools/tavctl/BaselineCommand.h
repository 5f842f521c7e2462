#pragma once

#include "InstallationPaths.h"
#include "ToolError.h"

struct BaselineShowOptions {
    QString file; ///< "-" for standard input
    QString plugin = InstallationPaths::pluginBesideProgram(); ///< the one that loads the items
    bool json = false; ///< print one JSON document instead of text
};

/// Shows the check items that the plugin holds of the file. Throws ToolError when it holds none.
ExitCode showBaseline(const BaselineShowOptions &options);

struct BaselineCheckOptions {
    QString file;
    QString root = "/"; ///< directory taken for "/", below which the scripts lie
    bool json = false;
};

/// Reports the mistakes in the file and in the scripts that it names. Throws ToolError.
ExitCode checkBaselineFile(const BaselineCheckOptions &options);
