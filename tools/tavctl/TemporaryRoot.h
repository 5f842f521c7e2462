#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// @brief An empty system root for as long as this object lives: the plugin reads from it and nothing else.
class TemporaryRoot
{
public:
    /// Throws ToolError when there is no place for it.
    TemporaryRoot();
    ~TemporaryRoot();
    Q_DISABLE_COPY(TemporaryRoot)

    /// Puts a file there; @p path is the absolute one that the plugin asks for.
    void put(const QString &path, const QByteArray &content);

private:
    QTemporaryDir m_directory;
    QString m_rootBefore;
};
