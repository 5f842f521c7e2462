#include "RecordCommand.h"

#include "AccessReader.h"
#include "Backend.h"
#include "CellText.h"
#include "InterruptSignal.h"
#include "LocalAgent.h"
#include "PluginView.h"
#include "Presentation.h"
#include "ProgressLine.h"
#include "TavCall.h"
#include "TavScenarioRecorder.h"
#include "TextTable.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QSet>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <limits>

namespace
{
/**
 * @brief Records what the agent has set, by looking at the managers after each of its readings.
 *
 * The agent's feeds call the managers in some ninety places. Instead of telling the recorder in each of them, all that
 * the manager just fed holds is told, and the recorder leaves out what has not changed.
 */
class Session
{
public:
    Session(TavPluginHost &host, TavScenarioRecorder &recorder) : m_host(host), m_recorder(recorder)
    {
        for (const TavCall::HeldValue &value : TavCall::heldValues()) {
            if (!value.isIndeterminateAtFirst) {
                recorder.assume(value.manager, value.setter, {heldNow(value.manager, value.getter, {})});
            }
        }
    }

    /// Tells the recorder what the manager of @p reading holds now. On the agent's thread.
    void lookAfter(const AgentReading &reading)
    {
        if (!reading.fed) {
            return;
        }
        m_fed.insert(reading.manager);
        if (reading.manager == "ITavLineScanMgr" && !m_hasLoadedItems) {
            m_recorder.record(reading.manager, "loadJsonConfig", {});
            m_hasLoadedItems = true;
        }
        if (reading.manager == "ITavAccessControlMgr") {
            recordTables(reading.manager);
        }
        for (const TavCall::HeldValue &value : TavCall::heldValues()) {
            if (value.manager == reading.manager) {
                m_recorder.record(value.manager, value.setter, {heldNow(value.manager, value.getter, {})});
            }
        }
    }

    /// Records what every manager that has been fed returns, to be checked when the scenario is played.
    void recordEnd()
    {
        for (const TavCall::HeldValue &value : TavCall::heldValues()) {
            if (m_fed.contains(value.manager)) {
                m_recorder.record(value.manager, value.getter, {}, heldNow(value.manager, value.getter, {}));
            }
        }
        for (const Table &table : qAsConst(m_tables)) {
            m_recorder.record("ITavAccessControlMgr", table.getter, table.key, table.value);
        }
    }

private:
    /// @brief What a getter with a key has returned last.
    struct Table {
        QString getter;
        QJsonArray key;
        QJsonValue value;
    };

    QJsonValue heldNow(const QString &manager, const QString &getter, const QJsonArray &key)
    {
        return TavCall::call(m_host.managerObject(manager.toUtf8().constData()), manager, getter, key);
    }

    /// The tables with keys have no setters of whole values; the agent fills them for each level.
    void recordTables(const QString &manager)
    {
        for (int level = 0; level <= AccessReader::maxLevel; ++level) {
            recordTable(manager, "getUserDetail", {level}, "updateUserDetail", 1, {level});
            for (const bool flag : {true, false}) {
                recordTable(manager, "getObjectDetail", {level, flag}, "updateObjectDetail", 2, {level, flag});
                recordTable(manager, "getObjectCount", {flag, level}, "setObjectCount", 0, {flag, level});
            }
        }
    }

    /// Records a call of @p setter with what @p getter returns for @p key put into @p arguments at @p place.
    void recordTable(const QString &manager, const QString &getter, const QJsonArray &key, const QString &setter,
                     int place, QJsonArray arguments)
    {
        auto table = std::find_if(m_tables.begin(), m_tables.end(),
                                  [&](const Table &known) { return known.getter == getter && known.key == key; });
        if (table == m_tables.end()) {
            m_tables.append({getter, key, QJsonValue::Null});
            table = m_tables.end() - 1;
        }
        const QJsonValue value = heldNow(manager, getter, key);
        if (table->value != value) {
            table->value = value;
            arguments.insert(place, value);
            m_recorder.record(manager, setter, arguments);
        }
    }

    TavPluginHost &m_host;
    TavScenarioRecorder &m_recorder;
    QSet<QString> m_fed; ///< managers
    QVector<Table> m_tables; ///< what the tables with keys returned last
    bool m_hasLoadedItems = false;
};

QString statusOf(const TavRecordProgress &progress)
{
    QString text = QString("%1 s, %2 calls, %3")
                       .arg(progress.microseconds / 1'000'000)
                       .arg(progress.lines)
                       .arg(CellText::ofKind(TavFields::Kind::Size, progress.bytes));
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
    TavRecordProgress end;
    bool isComplete = false;
    try {
        const InterruptSignal interrupt;
        TavScenarioRecorder recorder(options.file,
                                     {{"title", "recorded by tavctl"},
                                      {"started", QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
                                      {"host", QSysInfo::machineHostName()}},
                                     options.all ? TavScenarioRecorder::Values::All
                                                 : TavScenarioRecorder::Values::Changed);
        Session session(host, recorder);
        {
            LocalAgent agent;
            agent.setAfterReading([&session](const AgentReading &reading) { session.lookAfter(reading); });
            isComplete = feedRepeatedly(agent, options, recorder);
        }
        session.recordEnd();
        recorder.finish();
        end = recorder.progress();
    } catch (const ToolError &) {
        throw;
    } catch (const std::runtime_error &error) {
        throw ToolError(ExitCode::Usage, error.what());
    }
    printLine(printable(options.file) + ": " + statusOf(end));
    if (!end.error.isEmpty()) {
        throw ToolError(
            ExitCode::Usage,
            QString("%1: cannot be written any further: %2; what is in it can be played").arg(options.file, end.error));
    }
    if (end.lost > 0) {
        throw ToolError(ExitCode::Usage, QString("%1: %2 calls are missing in it").arg(options.file).arg(end.lost));
    }
    if (!isComplete) {
        throw ToolError(ExitCode::BackendTooSlow,
                        QString("this machine's state was not read within %1 s").arg(backendPatience));
    }
    return ExitCode::Success;
}
