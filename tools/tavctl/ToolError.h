#pragma once

#include <QString>

#include <stdexcept>

/// How tavctl ends, each cause with its own number, for scripts.
enum class ExitCode {
    Success = 0,
    Findings = 1, ///< a check has found mistakes, or a scenario cannot be played to its end
    Usage = 2, ///< the command line is not understood, or the output cannot be written
    NoPluginFile = 3, ///< there is no file at the plugin's path
    NotLoadable = 4, ///< the file is no plugin that this Qt can load
    OtherPlugin = 5, ///< it is a Qt plugin, but not the data plugin with all its managers
    NoConfiguration = 6, ///< the navigation catalogue is missing or holds no page
    NotDelivered = 7, ///< a page change did not reach every subscriber in time
    BackendTooSlow = 8, ///< the state of this machine could not be read in time
};

/// @brief What ends the program: one line that says what is wrong and what to do.
class ToolError : public std::runtime_error
{
public:
    ToolError(ExitCode code, const QString &message) : std::runtime_error(message.toStdString()), m_code(code)
    {
    }

    ExitCode code() const
    {
        return m_code;
    }

private:
    ExitCode m_code;
};
