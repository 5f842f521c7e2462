#pragma once

#include "DeskOptions.h"

#include <optional>

/// Reads the command line into @p options. Returns the program's exit code when it is to end at once: 0 after help
/// that was asked for, 2 after a mistake.
std::optional<int> readCommandLine(int argc, char **argv, DeskOptions &options);
