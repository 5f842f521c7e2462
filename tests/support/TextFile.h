#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

/// Writes a whole file, and the directories above it; fails the test when that does not work.
inline void writeFile(const QString &path, const QByteArray &content)
{
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    EXPECT_EQ(file.write(content), content.size());
}

/// All bytes of a file; fails the test when it cannot be read.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}
