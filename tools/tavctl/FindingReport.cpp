#include "FindingReport.h"

#include "Presentation.h"
#include "TextTable.h"

#include <QJsonObject>

namespace
{
/// @p path with long keys cut: a line is for people, and --json has all of it.
QString shortened(const QString &path)
{
    constexpr int mostLetters = 40;
    QStringList keys = path.split('/');
    for (QString &key : keys) {
        if (key.size() > mostLetters) {
            key = key.left(mostLetters) + "…";
        }
    }
    return keys.join('/');
}

void printLines(const Findings &findings)
{
    for (const Finding &finding : findings) {
        QString where = finding.file + (finding.decoded ? " (decoded)" : "");
        if (finding.place.line > 0) {
            where += QString(":%1:%2").arg(finding.place.line).arg(finding.place.column);
        }
        where += ": ";
        if (!finding.path.isEmpty()) {
            where += shortened(finding.path) + ": ";
        }
        printLine(dimmed(printable(where))
                  + printable(QStringList{finding.problem, finding.effect, finding.advice}.join("; ")));
    }
}
}

QString countText(const Findings &findings)
{
    switch (findings.size()) {
    case 0:
        return "no findings";
    case 1:
        return "1 finding";
    default:
        return QString("%1 findings").arg(findings.size());
    }
}

QJsonArray findingsJson(const Findings &findings)
{
    QJsonArray rows;
    for (const Finding &finding : findings) {
        rows.append(QJsonObject{{"file", finding.file},
                                {"line", finding.place.line},
                                {"column", finding.place.column},
                                {"decoded", finding.decoded},
                                {"path", finding.path},
                                {"problem", finding.problem},
                                {"effect", finding.effect},
                                {"advice", finding.advice}});
    }
    return rows;
}

void printFindings(const Findings &findings)
{
    if (findings.isEmpty()) {
        printLine(QString());
    } else {
        printHeading("Findings");
        printLines(findings);
    }
}

void reportOn(const QString &file, const Findings &findings, bool json)
{
    if (json) {
        printJson({{"findings", findingsJson(findings)}});
    } else {
        printLines(findings);
        printLine(printable(file) + ": " + countText(findings));
    }
}

ExitCode exitCodeFor(const Findings &findings)
{
    return findings.isEmpty() ? ExitCode::Success : ExitCode::Findings;
}
