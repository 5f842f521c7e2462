#pragma once

#include "AgentReport.h"

/// Seconds that the reading of this machine may take. It takes about one; a machine that hangs is not waited for.
constexpr int backendPatience = 60;

/// Has the local agent read this machine and feed the managers, on its own thread; waits for the end. The report is
/// incomplete when patience came to its end first.
AgentReport feedFromThisMachine();
