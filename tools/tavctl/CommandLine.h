#pragma once

#include "ToolError.h"

#include <functional>

/// What a command does once the whole command line is read; how the program then ends. Throws ToolError.
using Action = std::function<ExitCode()>;

/// The action that the command line asks for. Help, the version and what is wrong with the command line are printed
/// here, and the action just ends the program.
Action actionOf(int argc, char **argv);
