#include "AccountReader.h"

#include "HostFile.h"
#include "LoginReader.h"
#include "TextBuffer.h"
#include "UserReader.h"

#include <algorithm>
#include <limits>

namespace
{
/// The user with this id; one without a name, and a note, when there is none.
UserReader::User userOf(const QString &root, quint32 uid, ReadingNotes &notes)
{
    const QVector<UserReader::User> users = UserReader::readUsers(root, notes);
    for (const UserReader::User &user : users) {
        if (user.uid == uid) {
            return user;
        }
    }
    HostFile::note(notes, "/etc/passwd", QStringLiteral("no user with the id %1").arg(uid));
    return {};
}

/// Days until the password expires, -1 for never; nothing when it cannot be told.
std::optional<int> daysLeft(const UserReader::User &user, qint64 now)
{
    if (!user.passwordDays) {
        return std::nullopt;
    }
    if (*user.passwordDays < 0) {
        return -1;
    }
    if (!user.passwordChange) {
        return std::nullopt;
    }
    const qint64 left
        = *user.passwordChange / UserReader::secondsPerDay + *user.passwordDays - now / UserReader::secondsPerDay;
    return static_cast<int>(std::max<qint64>(left, 0));
}

void addLogins(const QString &root, const QByteArray &userName, Tav::SystemConfig::LoginCheckAsr &answer,
               ReadingNotes &notes)
{
    const auto logins = LoginReader::readLogins(root, notes);
    if (!logins) {
        return;
    }
    qint64 lastTime = 0;
    for (const LoginReader::Login &login : *logins) {
        if (login.userName == userName && login.time >= lastTime) {
            lastTime = login.time;
            answer.set_last_login_address(TextBuffer::message(login.host));
        }
    }
    answer.set_last_login_time(lastTime);
    if (const auto failed = LoginReader::readFailedLogins(root, notes)) {
        answer.set_failed_since_login(
            static_cast<int>(std::count_if(failed->cbegin(), failed->cend(), [&](const LoginReader::Login &login) {
                return login.userName == userName && login.time > lastTime;
            })));
    }
}

/// The number behind "key = value" in the rules for passwords; nothing when there is none.
std::optional<int> ruleOf(const QByteArray &content, const QByteArray &key)
{
    const QList<QByteArray> lines = content.split('\n');
    for (const QByteArray &line : lines) {
        const int at = line.indexOf('=');
        bool ok = false;
        const int value = line.mid(at + 1).trimmed().toInt(&ok);
        if (at > 0 && ok && line.left(at).trimmed() == key) {
            return value;
        }
    }
    return std::nullopt;
}
}

Tav::SystemConfig::LoginCheckAsr AccountReader::readLogin(const QString &root, quint32 uid, qint64 now,
                                                          ReadingNotes &notes)
{
    const UserReader::User user = userOf(root, uid, notes);
    Tav::SystemConfig::LoginCheckAsr answer;
    answer.set_result(0);
    answer.set_user_name(TextBuffer::message(user.name));
    answer.set_role(uid == 0 ? 1 : 0);
    if (const auto left = daysLeft(user, now)) {
        answer.set_password_days_left(*left);
        answer.set_password_expired(*left == 0);
    }
    if (!user.name.isEmpty()) {
        addLogins(root, user.name, answer, notes);
    }
    answer.set_message("logged in to the system");
    return answer;
}

Tav::SystemConfig::PasswdChangeAsr AccountReader::readPassword(const QString &root, quint32 uid, qint64 now,
                                                               ReadingNotes &notes)
{
    const UserReader::User user = userOf(root, uid, notes);
    Tav::SystemConfig::PasswdChangeAsr answer;
    answer.set_result(4);
    answer.set_user_name(TextBuffer::message(user.name));
    if (user.passwordChange) {
        answer.set_change_time(*user.passwordChange);
    }
    if (const auto left = daysLeft(user, now)) {
        answer.set_password_days_left(*left);
    }
    const QByteArray rules = HostFile::readOrNote(root, "/etc/security/pwquality.conf", notes).value_or(QByteArray());
    if (const auto length = ruleOf(rules, "minlen")) {
        answer.set_min_length(*length);
    }
    if (const auto classes = ruleOf(rules, "minclass")) {
        answer.set_min_classes(*classes);
    }
    answer.set_message("the local agent changes no passwords");
    return answer;
}
