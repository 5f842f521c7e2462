#pragma once

#include "BoundedLog.h"
#include "KnownKeys.h"
#include "PictureDirectories.h"

#include <QDateTime>
#include <QJsonValue>
#include <QString>

#include <memory>

class TavScenarioRecorder;

/// @brief A call of a manager's operation, as it was made.
struct LoggedCall {
    QDateTime time; ///< of its beginning
    QString thread; ///< name of the thread that made it
    QString manager; ///< name of the interface
    QString operation;
    QJsonValue arguments; ///< an array by position or an object by name
    QString returned; ///< beginning of its JSON; empty where it is not known
    QString error; ///< why it was refused; empty when it was made
    qint64 bytes = 0; ///< length of the arguments as JSON
    qint64 nanoseconds = 0;
};

/// @brief The calls that this client and its agent make. Any thread may call any operation.
class CallLog : public BoundedLog<LoggedCall>
{
public:
    /// Notes a call that was made.
    void note(const LoggedCall &call);

    /// Calls the operation on @p object, the manager behind the interface @p manager, notes the call, and returns its
    /// result. Throws TavCallError.
    QJsonValue make(QObject *object, const QString &manager, const QString &operation, const QJsonValue &arguments);

    /// The keys that the calls noted so far have set, also those that the log has forgotten.
    const KnownKeys &keys() const
    {
        return m_keys;
    }

    /// The picture directories that the calls noted so far have appended, also those that the log has forgotten.
    const PictureDirectories &pictureDirectories() const
    {
        return m_pictureDirectories;
    }

    /// Has every call noted from now on told to @p recorder, too; null ends that. Calls that were refused are not told.
    void setRecorder(std::shared_ptr<TavScenarioRecorder> recorder);

private:
    KnownKeys m_keys;
    PictureDirectories m_pictureDirectories;
    QMutex m_recorderMutex;
    std::shared_ptr<TavScenarioRecorder> m_recorder;
};
