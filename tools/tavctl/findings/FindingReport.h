#pragma once

#include "Finding.h"
#include "ToolError.h"

#include <QJsonObject>

#include <set>

enum class FindingFormat {
    Text,
    Json, ///< one document, share/schemas/findings.schema.json
    JsonLines, ///< a finding of that document on each line, then its summary
    Sarif, ///< one document of version 2.1.0, for code scanners
    Github, ///< commands that a workflow takes from the output of its steps
};

/// @brief How findings are weighed and shown.
struct FindingOptions {
    Severity failOn = Severity::Warning; ///< the least that ends the program with ExitCode::Findings
    std::set<FindingCode> ignored;
    FindingFormat format = FindingFormat::Text;
    bool quiet = false; ///< of text, the last line alone
};

/// @brief What a command has found, from gathering it to the exit code.
class FindingReport
{
public:
    explicit FindingReport(FindingOptions options);

    /// Takes @p findings but for what is ignored: by the options, or by the file tavctl.json in @p directory. Returns
    /// those that it takes. Throws ToolError for a mistake in that file.
    Findings add(Findings findings, const QString &directory);

    /// What add() leaves out for this directory. Throws ToolError for a mistake in its file.
    std::set<FindingCode> ignoredIn(const QString &directory) const;

    const Findings &findings() const
    {
        return m_findings;
    }

    /// Whether the command is to print what else it shows in text, before it calls print().
    bool showsText() const
    {
        return m_options.format == FindingFormat::Text && !m_options.quiet;
    }

    /// Prints the findings and as the last line what there is of them, behind @p checked, such as "2 files checked". A
    /// JSON document has the members of @p others, too.
    void print(const QString &checked, const QJsonObject &others = {}) const;

    ExitCode exitCode() const;

private:
    QString summary(const QString &checked) const;

    FindingOptions m_options;
    Findings m_findings;
    int m_ignored = 0;
};

/// Prints a heading for the findings that follow; an empty line when there are none.
void printFindingsHeading(const Findings &findings);

/// "no findings", "1 finding", "2 findings: 1 error, 1 warning".
QString countText(const Findings &findings);
