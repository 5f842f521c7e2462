#include "CheckedFiles.h"

#include "Presentation.h"

void CheckedFiles::look(const std::function<void()> &check)
{
    try {
        check();
        ++m_count;
    } catch (const ToolError &error) {
        printError(QString::fromUtf8(error.what()));
        m_isAnyLeftOut = true;
    }
}

ExitCode CheckedFiles::exitCode(const FindingReport &report) const
{
    return m_isAnyLeftOut ? ExitCode::Usage : report.exitCode();
}
