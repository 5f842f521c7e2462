#include "AuditReader.h"

#include "PlantedUsers.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace
{
/// Seconds since the epoch at noon of a day in local time.
qint64 noon(int year, int month, int day)
{
    return QDateTime(QDate(year, month, day), QTime(12, 0)).toSecsSinceEpoch();
}
}

TEST(AuditReader, CountsByTypeAndMonth)
{
    const PlantedHost host;
    plantUsers(host);
    const qint64 now = noon(2025, 3, 15);
    host.file("/var/log/wtmp",
              loginRecord(USER_PROCESS, "alice", "pts/0", "192.0.2.1", noon(2024, 3, 31))
                  + loginRecord(USER_PROCESS, "alice", "pts/0", "192.0.2.1", noon(2024, 4, 2))
                  + loginRecord(USER_PROCESS, "alice", "pts/0", "", noon(2025, 3, 1)));
    host.file("/var/log/btmp", loginRecord(LOGIN_PROCESS, "guess", "ssh:notty", "192.0.2.66", noon(2025, 2, 10)));
    host.file(
        "/var/log/auth.log",
        "2025-03-02T12:00:00.123456+00:00 host sudo:    alice : TTY=pts/0 ; PWD=/ ; USER=root ; COMMAND=/bin/ls -l\n"
        "2025-03-02T12:00:00+00:00 host sshd[7]: COMMAND=/no : such thing\n"
        "Mar  3 12:00:00 host sudo[55]: alice : 3 incorrect password attempts ; TTY=pts/0 ; USER=root ; COMMAND=/x\n");
    ReadingNotes notes;
    const AuditReader::Audit audit = AuditReader::readAudit(host.root(), now, notes);
    EXPECT_TRUE(notes.isEmpty());
    EXPECT_EQ(audit.count.count, 6);
    ASSERT_EQ(audit.content.size(), 6);
    EXPECT_STREQ(audit.content.at(0).object, "/x");
    EXPECT_EQ(audit.content.at(0).time, noon(2025, 3, 3));
    EXPECT_EQ(audit.content.at(0).result, 0);
    EXPECT_EQ(audit.content.at(0).type, 2);
    EXPECT_EQ(audit.content.at(0).pid, 55);
    EXPECT_EQ(audit.content.at(0).uid, 1000U);
    EXPECT_STREQ(audit.content.at(1).object, "/bin/ls -l");
    EXPECT_EQ(audit.content.at(1).result, 1);
    EXPECT_STREQ(audit.content.at(3).userName, "guess");
    EXPECT_EQ(audit.content.at(3).uid, 4294967295U);
    EXPECT_STREQ(audit.content.at(3).detail, "failed log-in from 192.0.2.66");
    ASSERT_EQ(audit.typeCounts.size(), 2);
    EXPECT_EQ(audit.typeCounts.at(0).count, 4);
    EXPECT_EQ(audit.typeCounts.at(1).count, 2);
    ASSERT_EQ(audit.monthCounts.size(), 12);
    EXPECT_EQ(audit.monthCounts.at(0).year, 2024);
    EXPECT_EQ(audit.monthCounts.at(0).month, 4);
    EXPECT_EQ(audit.monthCounts.at(0).count, 1);
    EXPECT_EQ(audit.monthCounts.at(11).year, 2025);
    EXPECT_EQ(audit.monthCounts.at(11).month, 3);
    EXPECT_EQ(audit.monthCounts.at(11).count, 3);
    ASSERT_EQ(audit.monthFailCounts.size(), 12);
    EXPECT_EQ(audit.monthFailCounts.at(10).count, 1);
    EXPECT_EQ(audit.monthFailCounts.at(11).count, 1);
}

TEST(AuditReader, ALineWithoutAYearIsNotInTheFuture)
{
    const auto event = AuditReader::parseLine("Dec 31 12:00:00 host sudo: a : TTY=x ; COMMAND=/y", noon(2025, 1, 2));
    ASSERT_TRUE(event);
    EXPECT_EQ(event->time, noon(2024, 12, 31));
}

TEST(AuditReader, AHostWithoutRecordsHasNoSeries)
{
    const PlantedHost host;
    ReadingNotes notes;
    const AuditReader::Audit audit = AuditReader::readAudit(host.root(), noon(2025, 3, 15), notes);
    EXPECT_EQ(audit.count.count, 0);
    EXPECT_TRUE(audit.typeCounts.isEmpty());
    EXPECT_TRUE(audit.monthCounts.isEmpty());
    EXPECT_TRUE(audit.monthFailCounts.isEmpty());
    EXPECT_EQ(notes.size(), 3);
}
