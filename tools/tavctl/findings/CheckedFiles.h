#pragma once

#include "FindingReport.h"

#include <functional>

/// @brief The files that a command checks one after the other: one that cannot be is no reason to leave the next out.
class CheckedFiles
{
public:
    /// Calls @p check for the next of them. A ToolError is a line on standard error.
    void look(const std::function<void()> &check);

    /// How many were checked.
    int count() const
    {
        return m_count;
    }

    /// That of @p report, unless a file could not be checked.
    ExitCode exitCode(const FindingReport &report) const;

private:
    int m_count = 0;
    bool m_isAnyLeftOut = false;
};
