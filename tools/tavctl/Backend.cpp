#include "Backend.h"

#include "LocalAgent.h"
#include "Presentation.h"
#include "TextTable.h"
#include "ToolError.h"

#include <QJsonObject>

namespace
{
/// Reading a machine takes about a second; one that hangs is reported instead of waited for.
constexpr int deadlineMs = 60000;
}

AgentReport feedFromThisMachine()
{
    LocalAgent agent;
    AgentReport report = agent.feedAndWait(deadlineMs);
    if (!report.complete) {
        throw ToolError(ExitCode::BackendTooSlow,
                        QString("this machine's state was not read within %1 s; some file "
                                "below /proc, /sys or /etc does not answer")
                            .arg(deadlineMs / 1000));
    }
    return report;
}

QJsonArray backendJson(const AgentReport &report)
{
    QJsonArray readings;
    for (const AgentReading &reading : report.readings) {
        QJsonArray notes;
        for (const ReadingNote &note : reading.notes) {
            notes.append(QJsonObject{{"source", note.source}, {"reason", note.reason}});
        }
        readings.append(QJsonObject{{"reading", reading.name},
                                    {"manager", reading.manager},
                                    {"fed", reading.fed},
                                    {"entries", reading.entries},
                                    {"microseconds", reading.microseconds},
                                    {"notes", notes}});
    }
    return readings;
}

void printBackend(const AgentReport &report)
{
    printHeading("Backend: this machine");
    TextTable readings({{"reading"}, {"manager"}, {"entries", TextTable::Right}, {"µs", TextTable::Right}});
    TextTable notes({{"not read"}, {"reason", TextTable::Left, 100}});
    for (const AgentReading &reading : report.readings) {
        readings.addRow({reading.name, reading.manager, reading.fed ? QString::number(reading.entries) : "not fed",
                         QString::number(reading.microseconds)});
        for (const ReadingNote &note : reading.notes) {
            notes.addRow({note.source, note.reason});
        }
    }
    readings.print();
    if (notes.rowCount() > 0) {
        printLine(QString());
        notes.print();
    }
}
