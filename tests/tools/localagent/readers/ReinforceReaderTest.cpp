#include "ReinforceReader.h"

#include "PlantedHost.h"

#include <gtest/gtest.h>

TEST(ReinforceReader, ComparesTheKernelsParameters)
{
    const PlantedHost host;
    host.file("/proc/sys/kernel/randomize_va_space", "2\n");
    host.file("/proc/sys/kernel/kptr_restrict", "0\n");
    host.file("/proc/sys/kernel/unprivileged_bpf_disabled", "1\n");
    host.file("/proc/sys/fs/suid_dumpable", "0\n");
    host.file("/sys/fs/selinux/enforce", "0");
    host.file("/sys/kernel/security/lsm", "capability,selinux");
    ReadingNotes notes;
    const Tav::Reinforce::SecswitchAsr switches = ReinforceReader::readSwitches(host.root(), notes);
    EXPECT_TRUE(notes.isEmpty());
    EXPECT_TRUE(switches.switches(0).enabled());
    EXPECT_EQ(switches.switches(0).current_value(), "2");
    EXPECT_FALSE(switches.switches(1).enabled());
    EXPECT_FALSE(switches.switches(2).supported());
    EXPECT_FALSE(switches.switches(2).has_current_value());
    EXPECT_TRUE(switches.switches(5).locked());
    const auto &selinux = switches.switches(switches.switches_size() - 2);
    EXPECT_TRUE(selinux.supported());
    EXPECT_FALSE(selinux.enabled());
    EXPECT_EQ(selinux.current_value(), "log only");
    EXPECT_EQ(ReinforceReader::policyOf(switches).items_size(), 5);
    const QVector<STStateInfo> lines = ReinforceReader::linesOf(switches);
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines.at(1).itemText, QStringLiteral("kernel.kptr_restrict"));
    EXPECT_EQ(lines.at(1).stateText, QStringLiteral("0, expected 1"));
}
