#pragma once

#include "FindingReport.h"
#include "InstallationPaths.h"
#include "ToolError.h"

struct ScenarioOptions {
    QString file; ///< "-" for standard input
    bool json = false;
};

struct ScenarioCheckOptions {
    QStringList files; ///< "-" for standard input
    FindingOptions findings;
};

/// Reports the mistakes in the lines of the scenarios, without playing them. Throws ToolError.
ExitCode checkScenarioFiles(const ScenarioCheckOptions &options);

/// Prints the lines of a scenario as a table. Throws ToolError.
ExitCode showScenario(const ScenarioOptions &options);

/// Prints how long a scenario is and what it calls how often. Throws ToolError.
ExitCode showScenarioInfo(const ScenarioOptions &options);

struct ScenarioEndOptions {
    QString file; ///< "-" for standard input
    QString plugin = InstallationPaths::pluginBesideProgram(); ///< the one to load
    QString root = "/"; ///< directory taken for "/"
};

/// Plays a scenario and prints the lines that hold what every getter returns then. Throws ToolError.
ExitCode printScenarioEnd(const ScenarioEndOptions &options);
