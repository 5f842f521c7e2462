#include "UserReader.h"

#include "HostFile.h"
#include "TavCountedText.h"
#include "TextBuffer.h"

namespace
{
constexpr qint64 noPasswordLimit = 10000; ///< days; the usual 99999 and everything from here on mean "for ever"

/// Numeric field; nothing when it is not one.
std::optional<quint32> idOf(const QByteArray &text)
{
    bool ok = false;
    const quint32 id = text.toUInt(&ok);
    return ok ? std::optional<quint32>(id) : std::nullopt;
}

void addGroups(const QString &root, QVector<UserReader::User> &users, ReadingNotes &notes)
{
    const auto content = HostFile::readOrNote(root, "/etc/group", notes);
    if (!content) {
        return;
    }
    QHash<quint32, QByteArray> primary;
    QHash<QByteArray, QVector<QByteArray>> memberships;
    const QList<QByteArray> lines = content->split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.split(':');
        const auto gid = fields.size() >= 4 ? idOf(fields.at(2)) : std::nullopt;
        if (!gid) {
            continue;
        }
        primary.insert(*gid, fields.at(0));
        const QList<QByteArray> members = fields.at(3).split(',');
        for (const QByteArray &member : members) {
            memberships[member].append(fields.at(0));
        }
    }
    for (UserReader::User &user : users) {
        if (primary.contains(user.gid)) {
            user.groups.append(primary.value(user.gid));
        }
        for (const QByteArray &group : memberships.value(user.name)) {
            if (!user.groups.contains(group)) {
                user.groups.append(group);
            }
        }
    }
}

void addPasswords(const QString &root, QVector<UserReader::User> &users, ReadingNotes &notes)
{
    const auto content = HostFile::readOrNote(root, "/etc/shadow", notes);
    if (!content) {
        return;
    }
    QHash<QByteArray, QList<QByteArray>> passwords;
    const QList<QByteArray> lines = content->split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.split(':');
        if (fields.size() >= 5) {
            passwords.insert(fields.at(0), fields);
        }
    }
    for (UserReader::User &user : users) {
        const auto found = passwords.constFind(user.name);
        if (found == passwords.constEnd()) {
            continue;
        }
        user.locked = found->at(1).startsWith('!') || found->at(1).startsWith('*');
        if (const auto days = idOf(found->at(2))) {
            user.passwordChange = *days * UserReader::secondsPerDay;
        }
        const auto days = idOf(found->at(4));
        user.passwordDays = days && *days < noPasswordLimit ? static_cast<qint64>(*days) : -1;
    }
}
}

QVector<UserReader::User> UserReader::readUsers(const QString &root, ReadingNotes &notes)
{
    QVector<User> users;
    const auto content = HostFile::readOrNote(root, "/etc/passwd", notes);
    if (!content) {
        return users;
    }
    int broken = 0;
    const QList<QByteArray> lines = content->split('\n');
    for (const QByteArray &line : lines) {
        if (line.isEmpty() || line.startsWith('#')) {
            continue;
        }
        const QList<QByteArray> fields = line.split(':');
        const auto uid = fields.size() == 7 ? idOf(fields.at(2)) : std::nullopt;
        const auto gid = fields.size() == 7 ? idOf(fields.at(3)) : std::nullopt;
        if (fields.at(0).isEmpty() || !uid || !gid) {
            ++broken;
            continue;
        }
        User user;
        user.name = fields.at(0);
        user.uid = *uid;
        user.gid = *gid;
        user.fullName = fields.at(4).split(',').constFirst();
        user.home = fields.at(5);
        user.shell = fields.at(6);
        users.append(user);
    }
    if (broken > 0) {
        HostFile::note(notes, "/etc/passwd", countedText(broken, "line") + " without a user");
    }
    addGroups(root, users, notes);
    addPasswords(root, users, notes);
    return users;
}

QHash<quint32, QByteArray> UserReader::namesById(const QVector<User> &users)
{
    QHash<quint32, QByteArray> names;
    for (const User &user : users) {
        if (!names.contains(user.uid)) {
            names.insert(user.uid, user.name);
        }
    }
    return names;
}

QHash<quint32, QByteArray> UserReader::readNames(const QString &root)
{
    ReadingNotes notes;
    return namesById(readUsers(root, notes));
}

bool UserReader::canLogin(const User &user)
{
    static const QVector<QByteArray> refusing{"nologin", "false", "sync", "halt", "shutdown"};
    return !refusing.contains(user.shell.mid(user.shell.lastIndexOf('/') + 1));
}

QVector<STLookUsersAsr> UserReader::records(const QVector<User> &users)
{
    QVector<STLookUsersAsr> records(users.size());
    for (int i = 0; i < users.size(); ++i) {
        const User &user = users.at(i);
        STLookUsersAsr &record = records[i];
        record.uid = user.uid;
        record.gid = user.gid;
        record.locked = user.locked ? static_cast<qint32>(*user.locked) : -1;
        record.canLogin = canLogin(user) ? 1 : 0;
        TextBuffer::copy(record.name, user.name);
        TextBuffer::copy(record.fullName, user.fullName);
        TextBuffer::copy(record.home, user.home);
        TextBuffer::copy(record.shell, user.shell);
    }
    return records;
}
