#include "AuditReader.h"

#include "HostFile.h"
#include "LoginReader.h"
#include "TavCountedText.h"
#include "TextBuffer.h"
#include "UserReader.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <limits>

namespace
{
constexpr int loginType = 1;
constexpr int accessControlType = 2;
constexpr quint32 unknownUid = std::numeric_limits<quint32>::max();

QVector<AuditReader::Event> loginEvents(const QVector<LoginReader::Login> &logins)
{
    QVector<AuditReader::Event> events;
    for (const LoginReader::Login &login : logins) {
        AuditReader::Event event;
        event.time = login.time;
        event.type = loginType;
        event.failed = login.failed;
        event.pid = login.pid;
        event.userName = login.userName;
        event.object = login.line;
        event.detail = (login.failed ? "failed log-in" : "log-in")
            + (login.host.isEmpty() ? QByteArray() : " from " + login.host);
        events.append(event);
    }
    return events;
}

/// Time at the start of a line, ISO 8601 or "Nov 20 11:05:01", and what follows it; 0 when there is none.
qint64 takeTime(QByteArray &line, qint64 now)
{
    const int blank = line.indexOf(' ');
    const QDateTime iso = QDateTime::fromString(QString::fromLatin1(line.left(blank)), Qt::ISODateWithMs);
    if (iso.isValid()) {
        line = line.mid(blank + 1);
        return iso.toSecsSinceEpoch();
    }
    constexpr int length = 15;
    const QString text = QString::fromLatin1(line.left(length)).simplified();
    for (int year = QDateTime::fromSecsSinceEpoch(now).date().year(), past = 0; past < 2; ++past) {
        const QDateTime time = QLocale::c().toDateTime(QStringLiteral("%1 %2").arg(year - past).arg(text),
                                                       QStringLiteral("yyyy MMM d HH:mm:ss"));
        if (time.isValid() && time.toSecsSinceEpoch() <= now) {
            line = line.mid(length + 1);
            return time.toSecsSinceEpoch();
        }
    }
    return 0;
}

std::optional<QVector<AuditReader::Event>> sudoEvents(const QString &root, qint64 now, ReadingNotes &notes)
{
    const auto content = HostFile::readOrNote(root, "/var/log/auth.log", notes);
    if (!content) {
        return std::nullopt;
    }
    QVector<AuditReader::Event> events;
    const QList<QByteArray> lines = content->split('\n');
    for (const QByteArray &line : lines) {
        if (const auto event = AuditReader::parseLine(line, now)) {
            events.append(*event);
        }
    }
    return events;
}

QVector<STAuditContentAsr> recordsOf(const QVector<AuditReader::Event> &events, const QVector<UserReader::User> &users)
{
    QHash<QByteArray, quint32> uids;
    for (const UserReader::User &user : users) {
        uids.insert(user.name, user.uid);
    }
    QVector<STAuditContentAsr> records(events.size());
    for (int i = 0; i < events.size(); ++i) {
        const AuditReader::Event &event = events.at(i);
        STAuditContentAsr &record = records[i];
        record.time = event.time;
        record.type = event.type;
        record.result = event.failed ? 0 : 1;
        record.pid = event.pid;
        record.uid = uids.value(event.userName, unknownUid);
        TextBuffer::copy(record.userName, event.userName);
        TextBuffer::copy(record.processName, event.processName);
        TextBuffer::copy(record.object, event.object);
        TextBuffer::copy(record.detail, event.detail);
    }
    return records;
}

/// Notes when the records do not reach back to the first month of the series.
void noteStart(const QVector<AuditReader::Event> &events, const QVector<STAuditMonthCountAsr> &series,
               ReadingNotes &notes)
{
    if (events.isEmpty()) {
        HostFile::note(notes, "audit events", QStringLiteral("there are no records"));
        return;
    }
    const QDate first(series.constFirst().year, series.constFirst().month, 1);
    const QDate oldest = QDateTime::fromSecsSinceEpoch(events.constLast().time).date();
    if (oldest > first.addMonths(1)) {
        HostFile::note(
            notes, "audit events",
            QStringLiteral("records begin on %1; what came before is not counted").arg(oldest.toString(Qt::ISODate)));
    }
}
}

std::optional<AuditReader::Event> AuditReader::parseLine(const QByteArray &line, qint64 now)
{
    // TIME HOST sudo[PID]: USER : [message ;] TTY=... ; PWD=... ; USER=... ; COMMAND=...
    if (!line.contains("COMMAND=")) {
        return std::nullopt;
    }
    QByteArray rest = line;
    Event event;
    event.time = takeTime(rest, now);
    const int process = rest.indexOf(" sudo");
    const int colon = rest.indexOf(": ", process);
    const int command = rest.indexOf("COMMAND=");
    const int user = rest.indexOf(" : ", colon);
    if (event.time == 0 || process < 0 || colon < 0 || user < 0 || command < user) {
        return std::nullopt;
    }
    const QByteArray tag = rest.mid(process + 5, colon - process - 5);
    if (!tag.isEmpty() && !(tag.startsWith('[') && tag.endsWith(']'))) {
        return std::nullopt;
    }
    const QByteArray message = rest.mid(user + 3, rest.indexOf(" ;", user) - user - 3);
    event.type = accessControlType;
    event.failed = !message.startsWith("TTY=") && !message.startsWith("PWD=") && !message.startsWith("USER=");
    event.pid = tag.mid(1, tag.size() - 2).toInt();
    event.userName = rest.mid(colon + 2, user - colon - 2).trimmed();
    event.processName = "sudo";
    event.object = rest.mid(command + 8).trimmed();
    event.detail = event.failed ? message : QByteArray("command as another user");
    return event;
}

QVector<STAuditMonthCountAsr> AuditReader::countByMonth(const QVector<qint64> &times, qint64 now)
{
    const QDate today = QDateTime::fromSecsSinceEpoch(now).date();
    const int current = today.year() * 12 + today.month() - 1;
    QVector<STAuditMonthCountAsr> series(months);
    for (int i = 0; i < months; ++i) {
        const int month = current - months + 1 + i;
        series[i] = {month / 12, month % 12 + 1, 0};
    }
    for (const qint64 time : times) {
        const QDate date = QDateTime::fromSecsSinceEpoch(time).date();
        const int i = date.year() * 12 + date.month() - 1 - (current - months + 1);
        if (i >= 0 && i < months) {
            ++series[i].count;
        }
    }
    return series;
}

AuditReader::Audit AuditReader::readAudit(const QString &root, qint64 now, ReadingNotes &notes)
{
    const auto logins = LoginReader::readLogins(root, notes);
    const auto failedLogins = LoginReader::readFailedLogins(root, notes);
    const auto sudo = sudoEvents(root, now, notes);
    QVector<Event> events = loginEvents(logins.value_or(QVector<LoginReader::Login>()))
        + loginEvents(failedLogins.value_or(QVector<LoginReader::Login>())) + sudo.value_or(QVector<Event>());
    std::stable_sort(events.begin(), events.end(), [](const Event &a, const Event &b) { return a.time > b.time; });

    QVector<qint64> times;
    QVector<qint64> failedTimes;
    int loginCount = 0;
    for (const Event &event : qAsConst(events)) {
        times.append(event.time);
        if (event.failed) {
            failedTimes.append(event.time);
        }
        loginCount += event.type == loginType ? 1 : 0;
    }

    Audit audit{};
    audit.count.count = events.size();
    if (logins || failedLogins) {
        audit.typeCounts.append({loginType, loginCount});
    }
    if (sudo) {
        audit.typeCounts.append({accessControlType, events.size() - loginCount});
    }
    if (logins || failedLogins || sudo) {
        audit.monthCounts = countByMonth(times, now);
        noteStart(events, audit.monthCounts, notes);
    }
    if (failedLogins) {
        audit.monthFailCounts = countByMonth(failedTimes, now);
    }
    if (events.size() > maxEntries) {
        HostFile::note(notes, "audit events", countedText(events.size() - maxEntries, "older event") + " not listed");
        events.resize(maxEntries);
    }
    ReadingNotes userNotes; // not handed on: the reading of the users has noted the same
    audit.content = recordsOf(events, UserReader::readUsers(root, userNotes));
    return audit;
}
