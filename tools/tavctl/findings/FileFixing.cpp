#include "FileFixing.h"

#include "AccessCheck.h"
#include "FileFix.h"
#include "Presentation.h"
#include "TextTable.h"
#include "UnifiedDiff.h"
#include "WholeFile.h"

#include <QFileInfo>

#include <unistd.h>
#include <utility>

namespace
{
/// A diff is for patch(1) as it is, but what comes from files must not steer a terminal.
QString shown(const QByteArray &diff)
{
    QString text = QString::fromUtf8(diff).chopped(1);
    if (isatty(STDOUT_FILENO) == 0) {
        return text;
    }
    QStringList lines = text.split('\n');
    for (QString &line : lines) {
        line = printable(line.replace('\t', "    "));
    }
    return lines.join('\n');
}

void printChanges(const QString &file, const FixedFile &fixed)
{
    if (fixed.isEncodedAnew) {
        printLine(printable(file) + ": would be written as UTF-8" + (fixed.isBase64 ? " in Base64" : ""));
    }
    if (!fixed.edits.isEmpty()) {
        const QString name = fixed.isBase64 ? file + " (the JSON text in it)" : file;
        printLine(shown(unifiedDiff(name.toUtf8(), fixed.json, fixed.edits)));
    }
}
}

FileFixing::FileFixing(Fixing fixing, const QStringList &files) : m_fixing(fixing)
{
    if (fixing != Fixing::None && files.contains("-")) {
        throw ToolError(ExitCode::Usage, "-: --fix mends files, and standard input is none; name the file");
    }
}

void FileFixing::check(const QString &file, Check check, FindingReport &report)
{
    m_files.look([&] { mendAndCheck(file, check, report); });
}

void FileFixing::mendAndCheck(const QString &file, Check check, FindingReport &report)
{
    const QString directory = QFileInfo(file).path();
    QByteArray content = WholeFile::read(file);
    if (m_fixing != Fixing::None) {
        const FixedFile fixed = fixedFile(file, content, check, report.ignoredIn(directory));
        m_fixed += fixed.fixed.size();
        if (m_fixing == Fixing::DryRun) {
            printChanges(file, fixed);
        } else if (!fixed.fixed.isEmpty()) {
            WholeFile::replace(file, fixed.content);
            content = fixed.content;
        }
    }
    Findings findings = check(file, content);
    if (file != "-") {
        findings += checkFileAccess(file);
    }
    report.add(std::move(findings), directory);
}

QString FileFixing::summary() const
{
    return m_fixed == 0 ? QString() : QString(m_fixing == Fixing::DryRun ? ", %1 to fix" : ", %1 fixed").arg(m_fixed);
}
