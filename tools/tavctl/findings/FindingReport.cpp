#include "FindingReport.h"

#include "FindingFormats.h"
#include "IgnoreFile.h"
#include "Presentation.h"
#include "TavCountedText.h"

#include <algorithm>
#include <utility>

FindingReport::FindingReport(FindingOptions options) : m_options(std::move(options))
{
}

Findings FindingReport::add(Findings findings, const QString &directory)
{
    const std::set<FindingCode> ignored = ignoredIn(directory);
    const int all = findings.size();
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                                  [&ignored](const Finding &finding) { return ignored.count(finding.code) > 0; }),
                   findings.end());
    m_ignored += all - findings.size();
    m_findings += findings;
    return findings;
}

std::set<FindingCode> FindingReport::ignoredIn(const QString &directory) const
{
    std::set<FindingCode> ignored = IgnoreFile::codesIn(directory);
    ignored.insert(m_options.ignored.begin(), m_options.ignored.end());
    return ignored;
}

void FindingReport::print(const QString &checked, const QJsonObject &others) const
{
    switch (m_options.format) {
    case FindingFormat::Text:
        if (!m_options.quiet) {
            FindingFormats::printText(m_findings);
        }
        printLine(summary(checked));
        break;
    case FindingFormat::Json:
        FindingFormats::printJson(m_findings, summary(checked), others);
        break;
    case FindingFormat::JsonLines:
        FindingFormats::printJsonLines(m_findings, summary(checked));
        break;
    case FindingFormat::Sarif:
        FindingFormats::printSarif(m_findings, summary(checked));
        break;
    case FindingFormat::Github:
        FindingFormats::printGithub(m_findings);
        printLine(summary(checked));
        break;
    }
}

ExitCode FindingReport::exitCode() const
{
    const bool isFailed = std::any_of(m_findings.begin(), m_findings.end(), [this](const Finding &finding) {
        return finding.kind().severity >= m_options.failOn;
    });
    return isFailed ? ExitCode::Findings : ExitCode::Success;
}

QString FindingReport::summary(const QString &checked) const
{
    return checked + ", " + countText(m_findings) + (m_ignored > 0 ? QString(", %1 ignored").arg(m_ignored) : "");
}

void printFindingsHeading(const Findings &findings)
{
    if (findings.isEmpty()) {
        printLine(QString());
    } else {
        printHeading("Findings");
    }
}

QString countText(const Findings &findings)
{
    if (findings.isEmpty()) {
        return "no findings";
    }
    QStringList counts;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        const auto count = std::count_if(findings.begin(), findings.end(), [severity](const Finding &finding) {
            return finding.kind().severity == severity;
        });
        if (count > 0) {
            counts.append(countedText(count, nameOf(severity)));
        }
    }
    return countedText(findings.size(), "finding") + ": " + counts.join(", ");
}
