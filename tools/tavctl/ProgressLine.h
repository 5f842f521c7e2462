#pragma once

#include <QString>

/// @brief A line on a terminal that is written over while something goes on; nothing where there is no terminal.
class ProgressLine
{
public:
    ProgressLine() = default;

    /// Clears the line.
    ~ProgressLine();

    ProgressLine(const ProgressLine &) = delete; // there is one line
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// Shows @p text in the place of what was there.
    void show(const QString &text);

private:
    bool m_isShown = false;
};
