#include "HostFile.h"

#include "PlantedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;

TEST(HostFile, NeverOpensWhatCouldWait)
{
    const PlantedHost host;
    host.directory("/proc");
    ASSERT_EQ(::mkfifo(host.path("/proc/meminfo").constData(), 0600), 0);
    ReadingNotes notes;
    EXPECT_FALSE(HostFile::readOrNote(host.root(), "/proc/meminfo", notes));
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes.at(0).reason, QStringLiteral("not a regular file"));
}

TEST(HostFile, ReadsFilesWhoseNamesAreNotUtf8)
{
    const PlantedHost host;
    host.directory("/d");
    ASSERT_EQ(::mkdir(host.path("/d/\xff\xfe").constData(), 0700), 0);
    EXPECT_THAT(HostFile::entries(host.root(), "/d"), ElementsAre(QByteArray("\xff\xfe")));
    EXPECT_TRUE(HostFile::exists(host.root(), "/d/\xff\xfe"));
    ASSERT_EQ(::rmdir(host.path("/d/\xff\xfe").constData()), 0); // QTemporaryDir cannot
}
