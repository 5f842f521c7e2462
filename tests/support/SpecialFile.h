#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

/// Makes what is no regular file at a path, and returns whether this user may.
namespace SpecialFile
{
/// A pipe that nobody writes: whoever opens it to read waits.
inline bool makePipe(const QString &path)
{
    return mkfifo(QFile::encodeName(path).constData(), 0644) == 0;
}

/// A device that never ends. Takes root's rights.
inline bool makeEndlessDevice(const QString &path)
{
    return mknod(QFile::encodeName(path).constData(), S_IFCHR | 0644, makedev(1, 5)) == 0;
}

inline bool makeSocket(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= int(sizeof(address.sun_path))) {
        return false;
    }
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    const bool made = bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0;
    close(descriptor);
    return made;
}

/// Links @p path to @p target, which need not exist.
inline void makeLink(const QString &target, const QString &path)
{
    EXPECT_EQ(symlink(QFile::encodeName(target).constData(), QFile::encodeName(path).constData()), 0)
        << qPrintable(path) << ": " << std::strerror(errno);
}

/// @p length links in a row: the last, at @p path, leads through all others to @p target.
inline void makeChainOfLinks(const QString &target, const QString &path, int length)
{
    QString last = target;
    for (int i = 1; i < length; ++i) {
        const QString link = QStringLiteral("%1.link%2").arg(path).arg(i);
        makeLink(last, link);
        last = link;
    }
    makeLink(last, path);
}
}
