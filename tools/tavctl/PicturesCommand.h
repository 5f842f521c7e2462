#pragma once

#include "CheckOptions.h"

/// Shows the pictures that the plugin holds of the directories, and reports the mistakes in them. Throws ToolError.
ExitCode showPictures(const CheckOptions &options);
