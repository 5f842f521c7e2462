#include "Finding.h"

#include "Presentation.h"
#include "TextTable.h"

#include <QJsonObject>

#include <algorithm>
#include <tuple>

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
}

Findings located(Findings findings, const QString &file, const TavJsonText &text)
{
    const QSet<QString> doubled = text.doubledKeys();
    for (const QString &path : doubled) {
        findings.append({file,
                         {},
                         path,
                         "the key stands more than once in its object",
                         "the plugin reads this one alone, the last",
                         "remove the others"});
    }
    for (Finding &finding : findings) {
        finding.file = file;
        finding.place = text.placeOf(finding.path);
    }
    std::stable_sort(findings.begin(), findings.end(), [](const Finding &one, const Finding &other) {
        return std::tie(one.place.line, one.place.column) < std::tie(other.place.line, other.place.column);
    });
    return findings;
}

void printFindings(const Findings &findings)
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

void printFindingsWithHeading(const Findings &findings)
{
    if (findings.isEmpty()) {
        printLine(QString());
    } else {
        printHeading("Findings");
        printFindings(findings);
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
