#include "CallScenario.h"

#include "TavScenario.h"

#include <QJsonDocument>
#include <QSaveFile>

#include <algorithm>

namespace
{
QByteArray lineOf(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

/// The scenario's thread for calls of the thread with this name.
QString threadOf(const LoggedCall &call)
{
    const bool isGui = call.manager == "ITavPicResourceMgr" || call.thread == TavScenario::threads()[TavScenario::gui];
    return isGui                                       ? TavScenario::threads()[TavScenario::gui]
        : TavScenario::threads().contains(call.thread) ? call.thread
                                                       : TavScenario::threads()[TavScenario::agent];
}
}

SavedCalls saveAsScenario(const QString &file, QVector<LoggedCall> calls, const std::atomic<bool> &isStopped)
{
    SavedCalls saved;
    const auto refused
        = std::remove_if(calls.begin(), calls.end(), [](const LoggedCall &call) { return !call.error.isEmpty(); });
    saved.leftOut = int(calls.end() - refused);
    calls.erase(refused, calls.end());
    // They were noted at their ends, and are made again at their beginnings.
    std::stable_sort(calls.begin(), calls.end(),
                     [](const LoggedCall &one, const LoggedCall &other) { return one.time < other.time; });
    QSaveFile output(file);
    if (!output.open(QIODevice::WriteOnly)) {
        saved.error = output.errorString();
        return saved;
    }
    output.write(lineOf({{"tavScenario", 1}, {"title", "selected calls"}}));
    for (const LoggedCall &call : qAsConst(calls)) {
        if (isStopped) {
            saved.isStopped = true; // and what was written goes with the output, which is not committed
            return saved;
        }
        output.write(lineOf({{"at", double(calls.first().time.msecsTo(call.time)) / 1000},
                             {"thread", threadOf(call)},
                             {"manager", call.manager},
                             {"operation", call.operation},
                             {"arguments", call.arguments}}));
    }
    if (!output.commit()) {
        saved.error = output.errorString();
    }
    return saved;
}
