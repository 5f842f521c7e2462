#pragma once

#include "InstallationPaths.h"
#include "ToolError.h"

struct RecordOptions {
    QString file; ///< the scenario to write
    double duration = 0; ///< seconds; 0: until the program is interrupted
    double every = 5; ///< seconds from one reading's beginning to the next
    bool all = false; ///< write calls that change nothing, too
    QString plugin = InstallationPaths::pluginBesideProgram();
    QString root = "/"; ///< directory taken for "/"
};

/// Has the local agent feed the managers again and again, and writes its calls as a scenario. Throws ToolError.
ExitCode record(const RecordOptions &options);
