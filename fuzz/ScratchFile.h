#pragma once

#include "Require.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

/// @brief One file, in memory where the system has such a place, to be written again for every input.
class ScratchFile
{
public:
    /// @param relativePath where the file stands below root()
    explicit ScratchFile(const QString &relativePath) : m_path(m_root.filePath(relativePath))
    {
        require(m_root.isValid() && QDir().mkpath(directory()), "a scratch directory can be made");
    }

    /// The directory that is made for the file and ends with it.
    QString root() const
    {
        return m_root.path();
    }

    /// The directory in which the file stands.
    QString directory() const
    {
        return QFileInfo(m_path).path();
    }

    QString path() const
    {
        return m_path;
    }

    void write(const QByteArray &content) const
    {
        QFile file(m_path);
        require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(content) == content.size(),
                "the scratch file can be written");
    }

private:
    static QString place()
    {
        const QString inMemory = QStringLiteral("/dev/shm");
        return QFileInfo(inMemory).isWritable() ? inMemory : QDir::tempPath();
    }

    QTemporaryDir m_root{place() + QStringLiteral("/tav-fuzz-XXXXXX")};
    QString m_path;
};
