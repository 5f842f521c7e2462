#include "HostReader.h"

#include "NoteSources.h"
#include "PlantedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

TEST(HostReader, TakesFiguresFromTheirFiles)
{
    const PlantedHost host;
    host.file("/proc/meminfo",
              "MemTotal:       2048 kB\nMemFree: 1 kB\nMemAvailable:   1024 kB\nSwapTotal: 512 kB\nSwapFree: 256 kB\n");
    host.file("/proc/cpuinfo", "processor\t: 0\nmodel name\t: Example CPU @ 2 GHz\n");
    host.file("/proc/stat", "cpu  1 0 0 9 0 0 0 0 0 0\ncpu0 1 0 0 9 0\ncpu1 0 0 0 0 0\nbtime 1000\n");
    host.file("/proc/uptime", "3600.25 7000.00\n");
    host.file("/proc/loadavg", "0.52 1.05 12.00 1/200 4242\n");
    host.file("/proc/self/mounts", "proc /proc proc rw 0 0\n/dev/sda1 / ext4 rw 0 0\n/dev/sda1 /again ext4 rw 0 0\n");
    host.file("/proc/sys/kernel/osrelease", "6.1.0-example\n");
    host.file("/proc/sys/kernel/hostname", "planted\n");
    host.file("/etc/os-release", "ID=example\nPRETTY_NAME=\"Example OS 1\"\n");
    host.directory("/proc/7");
    host.directory("/proc/8");

    ReadingNotes notes;
    const STResourceInfoAsr info = HostReader::readResourceInfo(host.root(), 0, notes);
    EXPECT_EQ(info.memoryTotal, 2048U * 1024U);
    EXPECT_EQ(info.memoryAvailable, 1024U * 1024U);
    EXPECT_EQ(info.swapTotal, 512U * 1024U);
    EXPECT_EQ(info.swapFree, 256U * 1024U);
    EXPECT_EQ(info.uptime, 3600);
    EXPECT_EQ(info.loadAverage1, 52);
    EXPECT_EQ(info.loadAverage5, 105);
    EXPECT_EQ(info.loadAverage15, 1200);
    EXPECT_EQ(info.cpuCores, 2);
    EXPECT_EQ(info.processCount, 2);
    EXPECT_STREQ(info.cpuModel, "Example CPU @ 2 GHz");
    EXPECT_STREQ(info.kernelRelease, "6.1.0-example");
    EXPECT_STREQ(info.hostName, "planted");
    EXPECT_STREQ(info.osName, "Example OS 1");
    EXPECT_GT(info.diskTotal, 0U);
    EXPECT_EQ(info.diskTotal, info.rootDiskTotal); // one device, mounted twice
    EXPECT_THAT(sourcesOf(notes), ElementsAre(QStringLiteral("/proc/stat"))); // no time between the two samples
}

TEST(HostReader, InventsNothingForAnEmptyHost)
{
    const PlantedHost host;
    ReadingNotes notes;
    const STResourceInfoAsr info = HostReader::readResourceInfo(host.root(), 0, notes);
    EXPECT_EQ(info.memoryTotal, 0U);
    EXPECT_EQ(info.diskTotal, 0U);
    EXPECT_EQ(info.cpuCores, 0);
    EXPECT_EQ(info.processCount, 0);
    EXPECT_STREQ(info.cpuModel, "");
    EXPECT_STREQ(info.osName, "");
    for (const char *const source : {"/proc/meminfo", "/proc/cpuinfo", "/proc/stat", "/proc/self/mounts", "/proc",
                                     "/proc/uptime", "/proc/loadavg", "/usr/lib/os-release"}) {
        EXPECT_TRUE(notesOn(notes, source)) << source;
    }
}

TEST(HostReader, UsageIsTheBusyShareBetweenTwoSamples)
{
    EXPECT_EQ(HostReader::cpuUsage("cpu  100 0 100 800 0 0 0 0 5 0\n", "cpu  150 0 100 825 25 0 0 0 9 0\n"), 500);
    EXPECT_EQ(HostReader::cpuUsage("cpu  1 0 0 9 0 0 0 0\n", "cpu  1 0 0 9 0 0 0 0\n"), std::nullopt);
    EXPECT_EQ(HostReader::cpuUsage("", "cpu  1 0 0 9 0 0 0 0\n"), std::nullopt);
    EXPECT_EQ(HostReader::cpuUsage("cpu  1 0 0 9 5 0 0 0\n", "cpu  11 0 0 9 1 0 0 0\n"), 1000); // iowait ran backwards
}

TEST(HostReader, KernelStateIsGoodOnlyWhereTheKernelRefusesUnsignedModules)
{
    const PlantedHost host;
    host.file("/sys/kernel/security/lockdown", "none [integrity] confidentiality\n");
    host.file("/proc/sys/kernel/tainted", "0\n");
    host.file("/proc/modules", "signed 1 0 - Live 0x0\n");
    ReadingNotes notes;
    Tav::HostInfo::SystemFileStateAsr state = HostReader::readKernelState(host.root(), notes);
    EXPECT_EQ(state.state(), 1);
    EXPECT_EQ(state.lockdown(), 1);
    EXPECT_TRUE(state.kexec_sig_enforce());
    EXPECT_FALSE(state.has_module_sig_enforce());
    EXPECT_EQ(state.module_count(), 1);
    EXPECT_EQ(state.unsigned_module_count(), 0);

    host.file("/proc/sys/kernel/tainted", "12288\n");
    host.file("/proc/modules", "foreign 1 0 - Live 0x0 (OE)\n");
    state = HostReader::readKernelState(host.root(), notes);
    EXPECT_EQ(state.state(), 2);
    EXPECT_EQ(state.taint_letters(), "OE");
    EXPECT_EQ(state.unsigned_module_count(), 1);
}

TEST(HostReader, KernelStateOfAnEmptyHostIsUnknown)
{
    const PlantedHost host;
    ReadingNotes notes;
    const Tav::HostInfo::SystemFileStateAsr state = HostReader::readKernelState(host.root(), notes);
    EXPECT_EQ(state.state(), 0);
    EXPECT_FALSE(state.has_lockdown());
    EXPECT_FALSE(state.has_taint());
    EXPECT_FALSE(state.has_secure_boot());
    EXPECT_FALSE(state.has_module_count());
    EXPECT_EQ(state.files_size(), 0);
    EXPECT_TRUE(notesOn(notes, "/proc/sys/kernel/tainted"));
    EXPECT_TRUE(notesOn(notes, "/sys/kernel/security/lockdown"));
}
