#include "PlayCommand.h"

#include "InputFile.h"
#include "InterruptSignal.h"
#include "NavigationTree.h"
#include "PluginView.h"
#include "Presentation.h"
#include "ProgressLine.h"
#include "RunReport.h"
#include "TavCountedText.h"
#include "TavJson.h"
#include "TextTable.h"

#include <QTimer>

#include <cmath>
#include <iostream>

namespace
{
using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

Page pageOfKey(const QString &key)
{
    try {
        return TavJson::fromJson<Page>(key);
    } catch (const TavCallError &error) {
        throw ToolError(ExitCode::Usage, QString("--page: ") + error.what());
    }
}

QJsonObject reportJson(const TavPlayReport &report)
{
    QJsonObject json{{"calls", report.lines},
                     {"compared", report.checked},
                     {"seconds", double(report.at) / TavScenario::microsecondsInSecond},
                     {"cutLine", report.cutLine},
                     {"stopped", report.isStopped}};
    if (report.error) {
        json.insert("line", report.error->line());
        json.insert("path", report.error->path());
        json.insert("problem", report.error->problem());
    }
    return json;
}

/// All pages that have values.
QJsonArray allPages()
{
    QJsonArray pages;
    const QMetaEnum keys = QMetaEnum::fromType<Page>();
    for (int i = 0; i < keys.keyCount(); ++i) {
        if (const auto page = static_cast<Page>(keys.value(i)); !valuesOf(page).isEmpty()) {
            pages.append(pageJson(page));
        }
    }
    return pages;
}

void printReport(const PlayOptions &options, const TavPlayReport &report)
{
    QString text = QString("%1: %2, %3 s of the scenario")
                       .arg(printable(options.file), countedText(report.lines, "call"), seconds(report.at));
    if (options.check) {
        text += QString(", %1 compared").arg(countedText(report.checked, "result"));
    }
    if (report.cutLine > 0) {
        text += QString(", without line %1, which is cut").arg(report.cutLine);
    }
    printLine(text);
}

void printMistake(const QString &file, const TavScenarioError &error)
{
    const QStringList lines = (file + ": " + error.what()).split('\n');
    std::cerr << "tavctl: ";
    for (const QString &line : lines) {
        std::cerr << printable(line).toStdString() << '\n';
    }
}

TavPlayOptions playOptions(const PlayOptions &options)
{
    TavPlayOptions play;
    play.speed = options.speed;
    play.from = std::llround(options.from * TavScenario::microsecondsInSecond);
    if (options.until >= 0) {
        play.until = std::llround(options.until * TavScenario::microsecondsInSecond);
    }
    play.isLooped = options.loop;
    play.isChecked = options.check;
    play.cutLine = options.partial ? TavScenarioReader::CutLine::LeaveOut : TavScenarioReader::CutLine::Refuse;
    return play;
}
}

TavPlayReport playFile(TavPluginHost &host, const QString &file, const TavPlayOptions &options)
{
    QFile input;
    InputFile::open(input, file);
    const InterruptSignal interrupt;
    ProgressLine line;
    TavScenarioPlayer player(host, input, options);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&player, &line] {
        const TavPlayReport report = player.progress();
        line.show(QString("%1 s, %2")
                      .arg(report.at / qint64(TavScenario::microsecondsInSecond))
                      .arg(countedText(report.lines, "call")));
        if (InterruptSignal::isRaised()) {
            player.stop();
        }
    });
    watch.start(100);
    return player.wait();
}

bool isWhole(const QString &file, const TavPlayReport &report)
{
    if (report.error) {
        printMistake(file, *report.error);
    } else if (report.isStopped) {
        std::cerr
            << "tavctl: "
            << printable(QString("%1: interrupted at %2 s of the scenario").arg(file, seconds(report.at))).toStdString()
            << '\n';
    }
    return !report.error && !report.isStopped;
}

ExitCode play(const PlayOptions &options)
{
    const Page page = options.page.isEmpty() ? Page() : pageOfKey(options.page);
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    TavPluginHost host = loadPlugin(options.plugin);
    determineHeldValues(); // the pages show them, whether the scenario sets them or not
    const TavPlayReport report = playFile(host, options.file, playOptions(options));
    if (options.json) {
        QJsonObject document = pagesJson(options.page.isEmpty() ? allPages() : QJsonArray{pageJson(page)});
        document.insert("played", reportJson(report));
        printJson(document);
    } else {
        printReport(options, report);
        if (!options.page.isEmpty()) {
            printHeading(options.page);
            printValues(valuesOf(page), 0);
        }
    }
    const bool isEndless = options.loop && !report.error; // to be interrupted is its only end
    return isEndless || isWhole(options.file, report) ? ExitCode::Success : ExitCode::Findings;
}
