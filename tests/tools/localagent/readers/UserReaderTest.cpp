#include "UserReader.h"

#include "NoteSources.h"
#include "PlantedUsers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

TEST(UserReader, ReadsUsersGroupsAndLocks)
{
    const PlantedHost host;
    plantUsers(host);
    host.file("/etc/shadow", "root:*:20000:0:99999:7:::\nalice:$y$x:20001:0:90:7:::\nbob:!:20002:0:90:7:::\n");
    ReadingNotes notes;
    const QVector<UserReader::User> users = UserReader::readUsers(host.root(), notes);
    ASSERT_EQ(users.size(), 4);
    EXPECT_TRUE(notes.isEmpty());
    EXPECT_EQ(users.at(2).fullName, "Alice Example");
    EXPECT_THAT(users.at(2).groups, ElementsAre(QByteArray("alice"), QByteArray("sudo"), QByteArray("bob")));
    EXPECT_EQ(users.at(2).passwordChange, 20001LL * 86400);
    EXPECT_EQ(users.at(2).passwordDays, 90);
    EXPECT_EQ(users.at(0).passwordDays, -1);

    const QVector<STLookUsersAsr> records = UserReader::records(users);
    EXPECT_EQ(records.at(0).locked, 1);
    EXPECT_EQ(records.at(1).locked, -1); // has no line in the password file
    EXPECT_EQ(records.at(2).locked, 0);
    EXPECT_EQ(records.at(3).locked, 1);
    EXPECT_EQ(records.at(1).canLogin, 0);
    EXPECT_EQ(records.at(3).canLogin, 1); // no shell means the standard one
    EXPECT_STREQ(records.at(2).home, "/home/alice");
}

TEST(UserReader, LeavesOutBrokenLinesAndUnknownLocks)
{
    const PlantedHost host;
    host.file("/etc/passwd", "broken\n:x:5:5:::\nx:x:no:5:::\nok:x:5:5:::\n+::::::\n");
    ReadingNotes notes;
    const QVector<STLookUsersAsr> records = UserReader::records(UserReader::readUsers(host.root(), notes));
    ASSERT_EQ(records.size(), 1);
    EXPECT_STREQ(records.at(0).name, "ok");
    EXPECT_EQ(records.at(0).locked, -1);
    EXPECT_THAT(
        sourcesOf(notes),
        ElementsAre(QStringLiteral("/etc/passwd"), QStringLiteral("/etc/group"), QStringLiteral("/etc/shadow")));
}
