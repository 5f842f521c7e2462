#pragma once

#include "CheckOptions.h"

/// Shows the check items that the plugin holds of the file. Throws ToolError when it holds none.
ExitCode showBaseline(const CheckOptions &options);

/// Reports the mistakes in the file and in the scripts that it names. Throws ToolError.
ExitCode checkBaselineFile(const CheckOptions &options);
