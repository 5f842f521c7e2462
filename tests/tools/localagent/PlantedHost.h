#pragma once

#include "HostFile.h"
#include "TextFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

/// @brief A host planted for a test: files below a directory that ends with this object.
class PlantedHost
{
public:
    QString root() const
    {
        return m_directory.path();
    }

    QByteArray path(const QByteArray &path) const
    {
        return HostFile::path(root(), path);
    }

    void directory(const QByteArray &path) const
    {
        ASSERT_TRUE(QDir().mkpath(QFile::decodeName(this->path(path))));
    }

    void file(const QByteArray &path, const QByteArray &content) const
    {
        writeFile(QFile::decodeName(this->path(path)), content);
    }

    void link(const QByteArray &path, const QByteArray &target) const
    {
        directory(path.left(path.lastIndexOf('/')));
        ASSERT_EQ(::symlink(target.constData(), this->path(path).constData()), 0);
    }

private:
    QTemporaryDir m_directory;
};
