#include "ModuleReader.h"

#include "PlantedHost.h"

#include <gtest/gtest.h>

TEST(ModuleReader, ReadsLoadedModulesWithTheirFiles)
{
    const PlantedHost host;
    host.file("/proc/sys/kernel/osrelease", "6.1.0\n");
    host.file("/proc/modules", "snd_example 4096 2 snd,other, Live 0x0000000000000000 (OE)\nlone 1024 0 - Live 0x0\n");
    host.file("/lib/modules/6.1.0/modules.dep", "kernel/sound/snd-example.ko: kernel/sound/snd.ko\n");
    host.file("/lib/modules/6.1.0/kernel/sound/snd-example.ko", "abc");
    ReadingNotes notes;
    const QVector<STKernelContentAsr> records = ModuleReader::readModuleRecords(host.root(), notes);
    ASSERT_EQ(records.size(), 2);
    EXPECT_STREQ(records.at(0).name, "snd_example");
    EXPECT_EQ(records.at(0).size, 4096U);
    EXPECT_EQ(records.at(0).refCount, 2);
    EXPECT_EQ(records.at(0).loaded, 1);
    EXPECT_STREQ(records.at(0).path, "/lib/modules/6.1.0/kernel/sound/snd-example.ko");
    EXPECT_STREQ(records.at(0).algorithm, "sha256");
    EXPECT_STREQ(records.at(0).digest, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_STREQ(records.at(1).path, "");
    EXPECT_STREQ(records.at(1).digest, "");
}

TEST(ModuleReader, BlockedModulesComeFromConfigurationAndCommandLine)
{
    const PlantedHost host;
    host.file("/etc/modprobe.d/a.conf",
              "# blacklist no\nblacklist  floppy-x\ninstall  dccp /bin/false\ninstall y /sbin/z\n");
    host.file("/etc/modprobe.d/ignored.txt", "blacklist never\n");
    host.file("/lib/modprobe.d/a.conf", "blacklist overridden\n");
    host.file("/proc/cmdline", "quiet modprobe.blacklist=one,two\n");
    host.file("/proc/modules", "dccp 512 1 - Live 0x0\n");
    ReadingNotes notes;
    const auto content = ModuleReader::readBlockedModules(host.root(), notes);
    EXPECT_EQ(content.mode(), 2);
    ASSERT_EQ(content.entries_size(), 4);
    EXPECT_EQ(content.entries(0).name(), "floppy_x");
    EXPECT_FALSE(content.entries(0).loaded());
    EXPECT_EQ(content.entries(1).name(), "dccp");
    EXPECT_TRUE(content.entries(1).loaded());
    EXPECT_EQ(content.entries(1).size(), 512U);
    EXPECT_EQ(content.entries(3).name(), "two");
    const PlantedHost empty;
    EXPECT_EQ(ModuleReader::readBlockedModules(empty.root(), notes).mode(), 0);
}
