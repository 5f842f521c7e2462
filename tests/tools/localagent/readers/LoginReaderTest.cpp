#include "LoginReader.h"

#include "NoteSources.h"
#include "PlantedUsers.h"

#include <gtest/gtest.h>

TEST(LoginReader, ReadsRecordsAndTheirPredecessors)
{
    const PlantedHost host;
    host.file("/var/log/wtmp.1", loginRecord(USER_PROCESS, "alice", "tty1", "", 100));
    host.file("/var/log/wtmp",
              loginRecord(BOOT_TIME, "reboot", "~", "6.1.0", 150)
                  + loginRecord(USER_PROCESS, "bob", "pts/3", "192.0.2.9", 200) + "torn");
    ReadingNotes notes;
    const auto logins = LoginReader::readLogins(host.root(), notes);
    ASSERT_TRUE(logins);
    ASSERT_EQ(logins->size(), 2);
    EXPECT_EQ(logins->at(0).userName, "alice");
    EXPECT_EQ(logins->at(1).userName, "bob");
    EXPECT_EQ(logins->at(1).time, 200);
    EXPECT_EQ(logins->at(1).pid, 321);
    EXPECT_EQ(logins->at(1).host, "192.0.2.9");
    EXPECT_EQ(logins->at(1).line, "pts/3");
    EXPECT_FALSE(logins->at(1).failed);
    EXPECT_EQ(notes.size(), 1); // the torn end
    EXPECT_FALSE(LoginReader::readFailedLogins(host.root(), notes));
    EXPECT_TRUE(notesOn(notes, "/var/log/btmp"));
}
