#pragma once

#include "ToolError.h"

struct ScenarioOptions {
    QString file; ///< "-" for standard input
    bool json = false;
};

/// Reports what is wrong with the lines of a scenario, without playing it. Throws ToolError.
ExitCode checkScenario(const ScenarioOptions &options);

/// Prints the lines of a scenario as a table. Throws ToolError.
ExitCode showScenario(const ScenarioOptions &options);

/// Prints how long a scenario is and what it calls how often. Throws ToolError.
ExitCode showScenarioInfo(const ScenarioOptions &options);
