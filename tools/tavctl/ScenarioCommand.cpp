#include "ScenarioCommand.h"

#include "CellText.h"
#include "CheckedFiles.h"
#include "EndState.h"
#include "InputFile.h"
#include "PlayCommand.h"
#include "PluginView.h"
#include "Presentation.h"
#include "ScenarioCheck.h"
#include "TavCountedText.h"
#include "TavScenario.h"
#include "TextTable.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMutex>

#include <functional>
#include <map>

namespace
{
/// Calls @p visit with each line. Throws ToolError for the first that is wrong.
QJsonObject readAll(const QString &name, const std::function<void(const TavScenario::Line &)> &visit)
{
    QFile file;
    InputFile::open(file, name);
    try {
        TavScenarioReader reader(file);
        for (TavScenario::Line line; reader.next(line);) {
            visit(line);
        }
        return reader.header();
    } catch (const TavScenarioError &error) {
        throw ToolError(ExitCode::Usage, name + ": " + error.what());
    }
}

/// @brief The lines that do one thing.
struct Share {
    qint64 lines = 0;
    qint64 bytes = 0;
};
}

ExitCode checkScenarioFiles(const ScenarioCheckOptions &options)
{
    FindingReport report(options.findings);
    CheckedFiles files;
    for (const QString &name : options.files) {
        files.look([&] {
            QFile file;
            InputFile::open(file, name);
            report.add(checkScenario(name, file), QFileInfo(name).path());
        });
    }
    if (files.count() > 0) {
        report.print(countedText(files.count(), "file") + " checked");
    }
    return files.exitCode(report);
}

ExitCode showScenario(const ScenarioOptions &options)
{
    QJsonArray rows;
    TextTable table({{"line", TextTable::Right},
                     {"s", TextTable::Right},
                     {"thread"},
                     {"manager"},
                     {"operation"},
                     {"bytes", TextTable::Right},
                     {"compared"}});
    readAll(options.file, [&](const TavScenario::Line &line) {
        const QString thread = TavScenario::threads()[line.thread];
        if (options.json) {
            rows.append(QJsonObject{{"line", line.number},
                                    {"at", double(line.at) / 1e6},
                                    {"thread", thread},
                                    {"subject", line.subject()},
                                    {"bytes", line.bytes},
                                    {"compared", line.isCompared()}});
            return;
        }
        table.addRow({QString::number(line.number), seconds(line.at), thread,
                      line.page.isEmpty() ? line.manager : QString("page"),
                      line.page.isEmpty() ? line.operation : line.page, QString::number(line.bytes),
                      line.isCompared() ? "yes" : ""});
    });
    if (options.json) {
        printJson({{"lines", rows}});
    } else {
        table.print();
    }
    return ExitCode::Success;
}

ExitCode showScenarioInfo(const ScenarioOptions &options)
{
    std::map<QString, Share> shares;
    Share all;
    qint64 span = 0;
    const QJsonObject header = readAll(options.file, [&](const TavScenario::Line &line) {
        for (Share *const share : {&shares[line.subject()], &all}) {
            ++share->lines;
            share->bytes += line.bytes + 1;
        }
        span = line.at;
    });
    if (options.json) {
        QJsonArray operations;
        for (const auto &[subject, share] : shares) {
            operations.append(QJsonObject{{"subject", subject}, {"calls", share.lines}, {"bytes", share.bytes}});
        }
        printJson({{"header", header},
                   {"seconds", double(span) / 1e6},
                   {"calls", all.lines},
                   {"bytes", all.bytes},
                   {"operations", operations}});
        return ExitCode::Success;
    }
    if (header["title"].isString()) {
        printLine(printable(header["title"].toString()));
    }
    printLine(
        QString("%1 s, %2, %3")
            .arg(seconds(span), countedText(all.lines, "call"), CellText::ofKind(TavFields::Kind::Size, all.bytes)));
    TextTable table({{"operation", TextTable::Left, 100}, {"calls", TextTable::Right}, {"bytes", TextTable::Right}});
    for (const auto &[subject, share] : shares) {
        table.addRow({subject, QString::number(share.lines), QString::number(share.bytes)});
    }
    table.print();
    return ExitCode::Success;
}

ExitCode printScenarioEnd(const ScenarioEndOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    TavPluginHost host = loadPlugin(options.plugin);
    EndState end;
    QMutex mutex; // the scenario's threads tell their calls at once
    TavPlayOptions play;
    play.speed = TavPlayOptions::fastest;
    play.observer = [&end, &mutex](const TavPlayedCall &call) {
        const QMutexLocker lock(&mutex);
        end.note(call.line.manager, call.line.operation, call.line.arguments);
    };
    const TavPlayReport report = playFile(host, options.file, play);
    if (!isWhole(options.file, report)) {
        return ExitCode::Findings;
    }
    end.read(
        host,
        [](const QString &manager, const QString &getter, const QJsonArray &arguments, const QJsonValue &returned) {
            const QJsonObject line{
                {"manager", manager}, {"operation", getter}, {"arguments", arguments}, {"returns", returned}};
            printLine(QString::fromUtf8(QJsonDocument(line).toJson(QJsonDocument::Compact)));
        });
    return ExitCode::Success;
}
