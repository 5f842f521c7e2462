#include "LinePanel.h"

#include "LogLines.h"
#include "LogModel.h"
#include "LogTexts.h"

namespace
{
QString levelText(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return LinePanel::tr("debug");
    case QtInfoMsg:
        return LinePanel::tr("information");
    case QtWarningMsg:
        return LinePanel::tr("warning");
    default:
        return LinePanel::tr("error");
    }
}

LogTable *newModel(BoundedLog<LogLine> &log)
{
    return new LogModel<LogLine>(
        log,
        {{LinePanel::tr("Time"), [](const LogLine &line) { return LogTexts::time(line.time); }, LogCell::Time},
         {LinePanel::tr("Level"), [](const LogLine &line) { return levelText(line.type); }},
         {LinePanel::tr("Source"), [](const LogLine &line) { return line.source; }},
         {LinePanel::tr("Thread"), [](const LogLine &line) { return line.thread; }},
         {LinePanel::tr("Text"), [](const LogLine &line) { return line.text; }}});
}
}

LinePanel::LinePanel(BoundedLog<LogLine> &log, QWidget *parent)
    : LogPanel(newModel(log), tr("Log"), 4, {12, 10, 16, 10, 40}, parent)
{
}
