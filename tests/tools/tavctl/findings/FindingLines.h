#pragma once

#include "FindingKind.h"
#include "Mistake.h"
#include "Tavctl.h"
#include "TestFiles.h"

#include <QJsonArray>

// Findings as the lines in which tavctl tells them.

/// Where the character at @p place of the JSON text stands in the Base64 text of @p file.
inline QString placeInBase64(const QString &place, const QString &file)
{
    const QByteArray base64 = contentOf(file);
    const QList<QByteArray> lines = QByteArray::fromBase64(base64).split('\n');
    int offset = 0;
    for (int line = 1; line < place.section(':', 0, 0).toInt(); ++line) {
        offset += lines[line - 1].size() + 1;
    }
    const QString line = QString::fromUtf8(lines[place.section(':', 0, 0).toInt() - 1]);
    offset += line.left(place.section(':', 1).toInt() - 1).toUtf8().size();
    const QList<QByteArray> rows = base64.split('\n');
    int digits = offset * 4 / 3;
    int row = 0;
    for (; digits >= rows[row].size(); ++row) {
        digits -= rows[row].size();
    }
    return QString("%1:%2").arg(row + 1).arg(digits + 1);
}

/// The line for @p mistake in @p file.
inline QString lineFor(const Mistake &mistake, const QString &file)
{
    const bool isCatalogue = file.contains("/catalogue/") || file.endsWith("/funcTypeConfig.json");
    const bool isInside = isCatalogue && !mistake.inBase64;
    QString line = file;
    if (*mistake.place) {
        line += ':' + (isInside ? placeInBase64(mistake.place, file) : mistake.place);
    }
    line += QString(": %1: %2: ").arg(nameOf(kindNamed(mistake.code)->severity), mistake.code);
    if (isInside) {
        line += QString("in the JSON text %1: ").arg(mistake.place);
    }
    if (*mistake.path) {
        line += QString(mistake.path) + ": ";
    }
    QString said = QString(mistake.problem) + "; " + mistake.effect + "; " + mistake.advice;
    return line + said.replace('@', brokenRoot);
}

/// A finding of a JSON document as the line that stands for it in text.
inline QString lineFor(const QJsonValue &finding)
{
    QString line = finding["file"].toString();
    if (finding["line"].toInt() > 0) {
        line += QString(":%1:%2").arg(finding["line"].toInt()).arg(finding["column"].toInt());
    }
    line += ": " + finding["severity"].toString() + ": " + finding["code"].toString() + ": ";
    if (finding["textLine"].toInt() > 0) {
        line += QString("in the JSON text %1:%2: ").arg(finding["textLine"].toInt()).arg(finding["textColumn"].toInt());
    }
    if (!finding["path"].toString().isEmpty()) {
        line += finding["path"].toString() + ": ";
    }
    line += finding["problem"].toString() + "; " + finding["effect"].toString() + "; " + finding["advice"].toString();
    return line.replace(QChar(0x1b), QChar(QChar::ReplacementCharacter));
}

/// The last line of text for one file in which these were found.
inline QString summaryFor(const QString &code, const QString &checked = "1 file checked")
{
    return checked + ", 1 finding: 1 " + nameOf(kindNamed(code)->severity) + '\n';
}

/// The lines of findings in a document that is asked for with --json.
inline QStringList findingLines(const Tavctl &run)
{
    QStringList lines;
    const QJsonArray findings = run.json()["findings"].toArray();
    for (const QJsonValue &finding : findings) {
        lines.append(lineFor(finding));
    }
    return lines;
}

/// Expects that the check of each file finds its mistake and no other, in text and in JSON. In text the last line
/// begins with @p checked.
template<int count>
void expectMistakes(const Mistake (&mistakes)[count], const QString &kind, const QString &checked,
                    const QStringList &options = {})
{
    QStringList tried;
    for (const Mistake &mistake : mistakes) {
        const QString file = broken + '/' + kind + '/' + mistake.file + ".json";
        const QString expected = lineFor(mistake, file);
        const int exitCode = kindNamed(mistake.code)->severity == Severity::Note ? 0 : 1;
        const Tavctl text(QStringList{kind, "check", file} + options);
        EXPECT_EQ(text.output, expected + '\n' + summaryFor(mistake.code, checked));
        EXPECT_EQ(text.exitCode, exitCode) << mistake.file << text.errors.toStdString();
        EXPECT_EQ(text.errors, "") << mistake.file;
        const Tavctl json(QStringList{kind, "check", file, "--json"} + options);
        EXPECT_EQ(findingLines(json), QStringList{expected}) << mistake.file;
        EXPECT_EQ(json.exitCode, exitCode) << mistake.file;
        tried.append(QString(mistake.file) + ".json");
    }
    EXPECT_EQ(tried, QDir(broken + '/' + kind).entryList(QDir::Files, QDir::Name)) << "a file without its mistake";
}
