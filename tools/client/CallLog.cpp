#include "CallLog.h"

#include "ShortJson.h"
#include "TavCall.h"
#include "TavScenarioRecorder.h"
#include "ThreadName.h"

#include <QElapsedTimer>
#include <QJsonDocument>

#include <algorithm>

namespace
{
/// Arguments by name as the scenario recorder takes them, which is by position.
QJsonArray byPosition(const LoggedCall &call)
{
    if (!call.arguments.isObject()) {
        return call.arguments.toArray();
    }
    const QJsonObject named = call.arguments.toObject();
    for (const TavCall::Operation &operation : TavCall::operations()) {
        const auto isNamed = [&named](const TavCall::Argument &argument) { return named.contains(argument.name); };
        if (operation.manager == call.manager && operation.name == call.operation
            && operation.arguments.size() == named.size()
            && std::all_of(operation.arguments.begin(), operation.arguments.end(), isNamed)) {
            QJsonArray arguments;
            for (const TavCall::Argument &argument : operation.arguments) {
                arguments.append(named[argument.name]);
            }
            return arguments;
        }
    }
    return {};
}

qint64 lengthOf(const QJsonValue &arguments)
{
    return arguments.isObject() ? QJsonDocument(arguments.toObject()).toJson(QJsonDocument::Compact).size()
                                : QJsonDocument(arguments.toArray()).toJson(QJsonDocument::Compact).size();
}
}

void CallLog::note(const LoggedCall &call)
{
    if (call.error.isEmpty()) {
        m_keys.note(call.manager, call.operation, call.arguments);
    }
    {
        // With the lock held, so that the lines of a recording keep the order of the log.
        const QMutexLocker lock(&m_recorderMutex);
        if (m_recorder && call.error.isEmpty()) {
            m_recorder->record(call.manager, call.operation, byPosition(call));
        }
        append(call, call.bytes * 4); // a QJsonValue takes some four times its text
    }
}

QJsonValue CallLog::make(QObject *object, const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    LoggedCall call;
    call.time = QDateTime::currentDateTime();
    call.thread = currentThreadName();
    call.manager = manager;
    call.operation = operation;
    call.arguments = arguments;
    call.bytes = lengthOf(arguments);
    QJsonValue returned;
    QElapsedTimer clock;
    clock.start();
    try {
        returned = TavCall::call(object, manager, operation, arguments);
    } catch (const std::exception &error) {
        call.nanoseconds = clock.nsecsElapsed();
        call.error = QString::fromUtf8(error.what());
        note(call);
        throw;
    }
    call.nanoseconds = clock.nsecsElapsed();
    call.returned = shortJson(returned);
    note(call);
    return returned;
}

void CallLog::setRecorder(std::shared_ptr<TavScenarioRecorder> recorder)
{
    const QMutexLocker lock(&m_recorderMutex);
    m_recorder.swap(recorder); // the one before ends after the lock, which waits for the disk
}
