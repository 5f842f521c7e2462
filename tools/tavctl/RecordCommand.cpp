#include "RecordCommand.h"

#include "Backend.h"
#include "CellText.h"
#include "EndState.h"
#include "InterruptSignal.h"
#include "LocalAgent.h"
#include "PluginView.h"
#include "Presentation.h"
#include "ProgressLine.h"
#include "TavCountedText.h"
#include "TavScenarioRecorder.h"
#include "TextTable.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QSysInfo>
#include <QThread>

#include <limits>

namespace
{
QString statusOf(const TavRecordProgress &progress)
{
    QString text = QString("%1 s, %2, %3")
                       .arg(QString::number(progress.microseconds / 1'000'000), countedText(progress.lines, "call"),
                            CellText::ofKind(TavFields::Kind::Size, progress.bytes));
    return progress.lost > 0 ? text + QString(", %1 lost").arg(progress.lost) : text;
}

/// Waits until @p milliseconds of @p clock; false when the program has been asked to end before.
bool waitUntil(qint64 milliseconds, const QElapsedTimer &clock, TavScenarioRecorder &recorder, ProgressLine &line)
{
    constexpr qint64 step = 100;
    while (!InterruptSignal::isRaised() && recorder.progress().error.isEmpty()) {
        const qint64 left = milliseconds - clock.elapsed();
        if (left <= 0) {
            return true;
        }
        line.show(statusOf(recorder.progress()));
        QThread::msleep(static_cast<unsigned long>(qMin(left, step)));
    }
    return false;
}

/// Feeds again and again; false when a reading took too long.
bool feedRepeatedly(LocalAgent &agent, const RecordOptions &options, TavScenarioRecorder &recorder)
{
    ProgressLine line;
    QElapsedTimer clock;
    clock.start();
    const qint64 end = options.duration > 0 ? qint64(options.duration * 1000) : std::numeric_limits<qint64>::max();
    qint64 next = 0;
    do {
        if (!agent.feedAndWait(backendPatience * 1000).complete) {
            return false;
        }
        next = qMax(next + qint64(options.every * 1000), clock.elapsed());
    } while (waitUntil(qMin(next, end), clock, recorder, line) && next < end);
    return true;
}
}

ExitCode record(const RecordOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    TavPluginHost host = loadPlugin(options.plugin);
    TavRecordProgress written;
    bool isComplete = false;
    try {
        const InterruptSignal interrupt;
        TavScenarioRecorder recorder(options.file,
                                     {{"title", "recorded by tavctl"},
                                      {"started", QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
                                      {"host", QSysInfo::machineHostName()}},
                                     options.all ? TavScenarioRecorder::Calls::All
                                                 : TavScenarioRecorder::Calls::Changing);
        EndState end;
        {
            LocalAgent agent;
            agent.setObserver([&recorder, &end](const AgentCall &call) {
                recorder.record(call.manager, call.operation, [&] {
                    QJsonArray arguments = call.arguments();
                    end.note(call.manager, call.operation, arguments);
                    return arguments;
                });
            });
            isComplete = feedRepeatedly(agent, options, recorder);
        }
        end.read(host,
                 [&recorder](const QString &manager, const QString &getter, const QJsonArray &arguments,
                             const QJsonValue &returned) { recorder.record(manager, getter, arguments, returned); });
        recorder.finish();
        written = recorder.progress();
    } catch (const ToolError &) {
        throw;
    } catch (const std::runtime_error &error) {
        throw ToolError(ExitCode::Usage, error.what());
    }
    printLine(printable(options.file) + ": " + statusOf(written));
    if (!written.error.isEmpty()) {
        throw ToolError(ExitCode::Usage,
                        QString("%1: cannot be written any further: %2; what is in it can be played")
                            .arg(options.file, written.error));
    }
    if (written.lost > 0) {
        throw ToolError(ExitCode::Usage,
                        QString("%1: %2 missing in it").arg(options.file, countedText(written.lost, "call")));
    }
    if (!isComplete) {
        throw ToolError(ExitCode::BackendTooSlow,
                        QString("this machine's state was not read within %1 s").arg(backendPatience));
    }
    return ExitCode::Success;
}
