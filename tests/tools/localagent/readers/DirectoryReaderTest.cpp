#include "DirectoryReader.h"

#include "NoteSources.h"
#include "PlantedHost.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

TEST(DirectoryReader, ReadsModesAndDigests)
{
    const PlantedHost host;
    host.file("/etc/passwd", "abc");
    ASSERT_EQ(::chmod(host.path("/etc/passwd").constData(), 04640), 0);
    host.directory("/etc/sub");
    ReadingNotes notes;
    const QVector<STDirProtectContentAsr> directories = DirectoryReader::readDirectories(host.root(), notes);
    ASSERT_EQ(directories.size(), DirectoryReader::keyDirectories().size());
    EXPECT_STREQ(directories.at(0).path, "/boot");
    EXPECT_EQ(directories.at(0).state, 3);
    EXPECT_STREQ(directories.at(1).path, "/etc");
    EXPECT_EQ(directories.at(1).state, 0);
    EXPECT_EQ(directories.at(1).fileCount, 1);
    const int at = DirectoryReader::keyFiles().indexOf("/etc/passwd");
    const QVector<STFileProtectContentAsr> files = DirectoryReader::readFiles(host.root(), notes);
    EXPECT_EQ(files.at(at).mode, 04640U);
    EXPECT_EQ(files.at(at).size, 3U);
    EXPECT_EQ(files.at(at).uid, ::getuid());
    EXPECT_STREQ(files.at(at).digest, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(files.at(at - 1).state, 3);
    EXPECT_STREQ(files.at(at - 1).digest, "");
    EXPECT_TRUE(notesOn(notes, "/boot"));
    EXPECT_EQ(DirectoryReader::modeText(S_IFDIR | 01777), "drwxrwxrwt");
    EXPECT_EQ(DirectoryReader::modeText(S_IFREG | 04640), "-rwSr-----");
}
