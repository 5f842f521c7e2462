#pragma once

#include <QString>

/// What keeps the script of a check item from being run.
enum class ScriptState {
    Runnable,
    Missing, ///< no file has this name
    NotAFile, ///< a directory, a device or the like
    NotExecutable, ///< nobody may execute it
};

/// State of the script at @p path, which is absolute and taken within the system root. Any execute permission will do:
/// the agent that runs the checks is another user than the one who looks here.
ScriptState scriptState(const QString &path);
