#include "LoginReader.h"

#include "HostFile.h"

#include <cstring>

#include <utmpx.h>

namespace
{
/// Text of a record's buffer, which need not end with a NUL.
template<std::size_t size>
QByteArray textOf(const char (&buffer)[size])
{
    return {buffer, static_cast<int>(::strnlen(buffer, size))};
}

void appendLogins(const QByteArray &content, bool failed, QVector<LoginReader::Login> &logins)
{
    constexpr int recordSize = sizeof(utmpx);
    for (int at = 0; at + recordSize <= content.size(); at += recordSize) {
        utmpx record{};
        std::memcpy(&record, content.constData() + at, recordSize);
        // Failed attempts are recorded by some servers as processes that only wait for a log-in.
        if (record.ut_type != USER_PROCESS && !(failed && record.ut_type == LOGIN_PROCESS)) {
            continue;
        }
        LoginReader::Login login;
        login.time = record.ut_tv.tv_sec;
        login.failed = failed;
        login.pid = record.ut_pid;
        login.userName = textOf(record.ut_user);
        login.line = textOf(record.ut_line);
        login.host = textOf(record.ut_host);
        logins.append(login);
    }
}

std::optional<QVector<LoginReader::Login>> read(const QString &root, const QByteArray &path, bool failed,
                                                ReadingNotes &notes)
{
    const auto current = HostFile::readOrNote(root, path, notes);
    if (!current) {
        return std::nullopt;
    }
    if (current->size() % static_cast<int>(sizeof(utmpx)) != 0) {
        HostFile::note(notes, path, QStringLiteral("does not end with a whole record"));
    }
    QVector<LoginReader::Login> logins;
    QByteArray previous;
    HostFile::read(root, path + ".1", previous);
    appendLogins(previous, failed, logins);
    appendLogins(*current, failed, logins);
    return logins;
}
}

std::optional<QVector<LoginReader::Login>> LoginReader::readLogins(const QString &root, ReadingNotes &notes)
{
    return read(root, "/var/log/wtmp", false, notes);
}

std::optional<QVector<LoginReader::Login>> LoginReader::readFailedLogins(const QString &root, ReadingNotes &notes)
{
    return read(root, "/var/log/btmp", true, notes);
}
