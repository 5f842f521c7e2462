#include "AccountReader.h"

#include "NoteSources.h"
#include "PlantedUsers.h"

#include <gtest/gtest.h>

TEST(AccountReader, CountsTheDaysOfThePasswordAndTheFailedLogins)
{
    const PlantedHost host;
    plantUsers(host);
    const qint64 day = 20050;
    const qint64 now = day * 86400 + 1000;
    host.file("/etc/shadow", "alice:$y$x:20000:0:90:7:::\nbob:$y$x:19000:0:90:7:::\n");
    host.file("/var/log/wtmp",
              loginRecord(USER_PROCESS, "alice", "pts/0", "192.0.2.1", now - 500)
                  + loginRecord(USER_PROCESS, "alice", "pts/1", "192.0.2.2", now - 300)
                  + loginRecord(USER_PROCESS, "bob", "pts/2", "192.0.2.3", now - 100));
    host.file("/var/log/btmp",
              loginRecord(USER_PROCESS, "alice", "pts/0", "", now - 400)
                  + loginRecord(LOGIN_PROCESS, "alice", "pts/0", "", now - 200));
    ReadingNotes notes;
    const Tav::SystemConfig::LoginCheckAsr login = AccountReader::readLogin(host.root(), 1000, now, notes);
    EXPECT_EQ(login.user_name(), "alice");
    EXPECT_EQ(login.password_days_left(), 40);
    EXPECT_FALSE(login.password_expired());
    EXPECT_EQ(login.last_login_time(), now - 300);
    EXPECT_EQ(login.last_login_address(), "192.0.2.2");
    EXPECT_EQ(login.failed_since_login(), 1);
    EXPECT_TRUE(AccountReader::readLogin(host.root(), 1001, now, notes).password_expired());
    EXPECT_TRUE(notes.isEmpty());

    host.file("/etc/security/pwquality.conf", "# minlen = 3\nminlen = 12\n minclass=3\n");
    const Tav::SystemConfig::PasswdChangeAsr password = AccountReader::readPassword(host.root(), 1000, now, notes);
    EXPECT_EQ(password.result(), 4);
    EXPECT_EQ(password.change_time(), 20000LL * 86400);
    EXPECT_EQ(password.min_length(), 12);
    EXPECT_EQ(password.min_classes(), 3);
}

TEST(AccountReader, AnUnknownAccountHasNoFigures)
{
    const PlantedHost host;
    ReadingNotes notes;
    const Tav::SystemConfig::LoginCheckAsr login = AccountReader::readLogin(host.root(), 1000, 0, notes);
    EXPECT_EQ(login.user_name(), "");
    EXPECT_FALSE(login.has_password_days_left());
    EXPECT_FALSE(login.has_last_login_time());
    EXPECT_FALSE(login.has_failed_since_login());
    EXPECT_TRUE(notesOn(notes, "/etc/passwd"));
}
