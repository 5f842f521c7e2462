#pragma once

#include "Mistake.h"
#include "Tavctl.h"
#include "TestFiles.h"

#include <QJsonArray>

// Findings as the lines in which tavctl tells them.

/// The line for @p mistake in @p file.
inline QString lineFor(const Mistake &mistake, const QString &file)
{
    const bool isCatalogue = file.contains("/catalogue/") || file.endsWith("/funcTypeConfig.json");
    QString line = file + (isCatalogue && !mistake.inBase64 ? " (decoded)" : "");
    if (*mistake.place) {
        line += QString(":") + mistake.place;
    }
    line += ": ";
    if (*mistake.path) {
        line += QString(mistake.path) + ": ";
    }
    return line + QString(mistake.problem).replace('@', brokenRoot) + "; " + mistake.effect + "; " + mistake.advice;
}

/// A finding of a JSON document as the line that stands for it in text.
inline QString lineFor(const QJsonValue &finding)
{
    QString line = finding["file"].toString() + (finding["decoded"].toBool() ? " (decoded)" : "");
    if (finding["line"].toInt() > 0) {
        line += QString(":%1:%2").arg(finding["line"].toInt()).arg(finding["column"].toInt());
    }
    line += ": ";
    if (!finding["path"].toString().isEmpty()) {
        line += finding["path"].toString() + ": ";
    }
    line += finding["problem"].toString() + "; " + finding["effect"].toString() + "; " + finding["advice"].toString();
    return line.replace(QChar(0x1b), QChar(QChar::ReplacementCharacter));
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

/// Expects that the check of each file finds its mistake and no other, in text and in JSON.
template<int count>
void expectMistakes(const Mistake (&mistakes)[count], const QString &kind, const QStringList &options = {})
{
    QStringList tried;
    for (const Mistake &mistake : mistakes) {
        const QString file = broken + '/' + kind + '/' + mistake.file + ".json";
        const QString expected = lineFor(mistake, file);
        const Tavctl text(QStringList{kind, "check", file} + options);
        EXPECT_EQ(text.output, expected + '\n' + file + ": 1 finding\n");
        EXPECT_EQ(text.exitCode, 1) << mistake.file << text.errors.toStdString();
        EXPECT_EQ(text.errors, "") << mistake.file;
        const Tavctl json(QStringList{kind, "check", file, "--json"} + options);
        EXPECT_EQ(findingLines(json), QStringList{expected}) << mistake.file;
        EXPECT_EQ(json.exitCode, 1) << mistake.file;
        tried.append(QString(mistake.file) + ".json");
    }
    EXPECT_EQ(tried, QDir(broken + '/' + kind).entryList(QDir::Files, QDir::Name)) << "a file without its mistake";
}
