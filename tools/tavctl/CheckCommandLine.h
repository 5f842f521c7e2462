#pragma once

#include "ToolError.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>
#include <vector>

/// What a subcommand does once the whole command line is read; how the program then ends.
using Action = std::function<ExitCode()>;

/// @brief The arguments of the commands that look at the files of an installation.
struct CheckArguments {
    std::string file;
    std::string output = "-";
    std::vector<std::string> directories;
    std::string pluginFile;
    std::string systemRoot = "/";
    int lineLength = 76; // as base64(1) does
    bool lenient = false;
    bool json = false;
};

/// Adds the option "--plugin" for @p file, which becomes an absolute path.
void addPluginOption(CLI::App &command, std::string &file);

/// Adds the commands "catalogue", "baseline", "pictures" and "doctor"; the one that is called puts its action into
/// @p action. Whatever keeps such an action from running ends it with ExitCode::Usage.
void addCheckCommands(CLI::App &app, CheckArguments &arguments, Action &action);
