#pragma once

#include "FileFixing.h"
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
    QStringList files;
    Fixing fixing = Fixing::None;
    QString root; ///< directory taken for "/", below which the scripts lie; empty for that in which the file is
                  ///< installed, or "/"
    FindingOptions findings;
};

/// Reports the mistakes in the files, once they are mended where that is asked for, and in the scripts that they name.
/// Throws ToolError.
ExitCode checkBaselineFiles(const BaselineCheckOptions &options);
