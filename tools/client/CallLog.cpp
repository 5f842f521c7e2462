#include "CallLog.h"

#include "ShortJson.h"
#include "TavCall.h"
#include "TavScenarioRecorder.h"
#include "ThreadName.h"

#include <QElapsedTimer>
#include <QJsonDocument>

namespace
{
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
        m_pictureDirectories.note(call.manager, call.operation, call.arguments);
    }
    std::shared_ptr<TavScenarioRecorder> recorder;
    {
        const QMutexLocker lock(&m_recorderMutex);
        recorder = m_recorder;
    }
    // Without the lock: JSON of a large list takes longer than another thread's call may wait.
    if (recorder && call.error.isEmpty()) {
        recorder->record(call.manager, call.operation, [&call] { return call.arguments; });
    }
    append(call, call.bytes * 4); // a QJsonValue takes some four times its text
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
