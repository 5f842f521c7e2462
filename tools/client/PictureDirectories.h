#pragma once

#include <QJsonValue>
#include <QMutex>
#include <QStringList>

/// @brief The directories that calls have appended to the picture manager, which does not tell them. Any thread may
/// call any operation.
class PictureDirectories
{
public:
    /// Is told a call that was made. @p arguments is an array by position or an object by name.
    void note(const QString &manager, const QString &operation, const QJsonValue &arguments);

    /// Each once, in the order in which they were appended last.
    QStringList all() const;

    /// How often one was appended, the same one again included: its pictures may be others by then.
    int count() const;

private:
    mutable QMutex m_mutex; ///< for what follows
    QStringList m_directories;
    int m_count = 0;
};
