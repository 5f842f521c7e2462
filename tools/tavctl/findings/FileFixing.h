#pragma once

#include "CheckedFiles.h"

/// @brief Whether a check also mends the files.
enum class Fixing {
    None,
    Files, ///< in place
    DryRun, ///< prints what would be changed
};

/// @brief Checks files one after the other, and mends them where that is asked for.
class FileFixing
{
public:
    using Check = Findings (*)(const QString &file, const QByteArray &content);

    /// Throws ToolError when standard input, which is no file, is to be mended.
    FileFixing(Fixing fixing, const QStringList &files);

    /// Adds to @p report what @p check finds in @p file, once it is mended. What keeps it from that is a line on
    /// standard error.
    void check(const QString &file, Check check, FindingReport &report);

    const CheckedFiles &files() const
    {
        return m_files;
    }

    /// Behind the number of files in the last line: ", 2 fixed"; empty for none.
    QString summary() const;

private:
    void mendAndCheck(const QString &file, Check check, FindingReport &report);

    const Fixing m_fixing;
    CheckedFiles m_files;
    int m_fixed = 0;
};
