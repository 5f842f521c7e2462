#include "AccessReader.h"

#include "PlantedUsers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

TEST(AccessReader, SortsUsersByWhatTheSystemLetsThemDo)
{
    const PlantedHost host;
    plantUsers(host);
    ReadingNotes notes;
    QVector<int> levels;
    const QVector<UserReader::User> users = UserReader::readUsers(host.root(), notes);
    for (const UserReader::User &user : users) {
        levels.append(AccessReader::principalLevel(user));
    }
    EXPECT_THAT(levels, ElementsAre(3, 0, 2, 1)) << "root, a service, an administrator, a user";
}

TEST(AccessReader, TakesTheModeOfTheSecurityModuleThatGoesFarthest)
{
    const PlantedHost host;
    host.file("/sys/fs/selinux/enforce", "0");
    host.file("/sys/kernel/security/lsm", "capability,selinux");
    ReadingNotes notes;
    const Tav::AccessControl::AccessModeConfig mode = AccessReader::readMode(host.root(), notes);
    EXPECT_EQ(mode.mode(), 1);
    EXPECT_THAT(mode.security_modules(), ElementsAre("capability", "selinux"));
}
