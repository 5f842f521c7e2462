#include "NetReader.h"

#include "NoteSources.h"
#include "PlantedHost.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include <net/if.h>

TEST(NetReader, ReadsDevicesInOrderOfIndex)
{
    const PlantedHost host;
    const QByteArray eth = "/sys/devices/pci0000:00/net/eth0";
    host.file(eth + "/flags", "0x1003\n");
    host.file(eth + "/ifindex", "2\n");
    host.file(eth + "/type", "1\n");
    host.file(eth + "/address", "00:16:3e:5e:6c:00\n");
    host.file(eth + "/mtu", "1500\n");
    host.file(eth + "/speed", "1000\n");
    host.file(eth + "/duplex", "full\n");
    host.file(eth + "/carrier", "1\n");
    host.file(eth + "/operstate", "up\n");
    host.file(eth + "/statistics/rx_bytes", "18446744073709551615\n");
    host.file(eth + "/statistics/tx_dropped", "3\n");
    host.link(eth + "/device/driver", "../../bus/drivers/example_net");
    host.link("/sys/class/net/eth0", "../../devices/pci0000:00/net/eth0");
    const QByteArray lo = "/sys/devices/virtual/net/lo";
    host.file(lo + "/flags", "0x1002\n"); // all but switched on
    host.file(lo + "/ifindex", "1\n");
    host.file(lo + "/operstate", "unknown\n");
    host.link("/sys/class/net/lo", "../../devices/virtual/net/lo");
    host.file("/sys/class/net/bonding_masters", "");
    host.file("/proc/net/route",
              "Iface Destination Gateway Flags\neth0\t00000000\t"
                  + QByteArray::number(QSysInfo::ByteOrder == QSysInfo::LittleEndian ? 0x010200c0 : 0xc0000201, 16)
                  + "\t0003\t0\n");

    ReadingNotes notes;
    const Tav::NetControl::NetDeviceInfos infos = NetReader::readDevices(host.root(), notes);
    EXPECT_TRUE(notes.isEmpty());
    ASSERT_EQ(infos.devices_size(), 2);
    EXPECT_EQ(infos.devices(0).name(), "lo");
    EXPECT_EQ(infos.devices(0).state(), 0);
    EXPECT_TRUE(infos.devices(0).is_virtual());
    EXPECT_EQ(infos.devices(0).speed(), -1);
    EXPECT_EQ(infos.devices(0).duplex(), -1);
    EXPECT_EQ(infos.devices(0).gateway(), "");
    EXPECT_FALSE(infos.devices(0).has_rx_bytes());
    const Tav::NetControl::NetDeviceInfo &device = infos.devices(1);
    EXPECT_EQ(device.name(), "eth0");
    EXPECT_EQ(device.state(), 1);
    EXPECT_EQ(device.mac(), "00:16:3e:5e:6c:00");
    EXPECT_EQ(device.mtu(), 1500);
    EXPECT_EQ(device.speed(), 1000);
    EXPECT_EQ(device.duplex(), 1);
    EXPECT_TRUE(device.carrier());
    EXPECT_EQ(device.oper_state(), 6);
    EXPECT_FALSE(device.is_virtual());
    EXPECT_EQ(device.driver(), "example_net");
    EXPECT_EQ(device.gateway(), "192.0.2.1");
    EXPECT_EQ(device.rx_bytes(), 18446744073709551615ULL);
    EXPECT_EQ(device.tx_dropped(), 3U);
    EXPECT_EQ(NetReader::countsOf(infos).enabled_device_count(), 1);
    EXPECT_FALSE(NetReader::countsOf(infos).has_rule_count());
}

TEST(NetReader, TheRunningSystemNamesItsDevicesWithoutAnyFile)
{
    std::set<std::string> expected;
    struct if_nameindex *const names = if_nameindex();
    ASSERT_NE(names, nullptr);
    for (const struct if_nameindex *name = names; name->if_index != 0; ++name) {
        expected.insert(name->if_name);
    }
    if_freenameindex(names);

    ReadingNotes notes;
    std::set<std::string> found;
    const Tav::NetControl::NetDeviceInfos infos = NetReader::readLinks(notes);
    for (const auto &device : infos.devices()) {
        found.insert(device.name());
        EXPECT_EQ(static_cast<unsigned>(device.index()), if_nametoindex(device.name().c_str()));
        EXPECT_TRUE(device.has_state());
        EXPECT_FALSE(device.has_mac());
    }
    EXPECT_EQ(found, expected);
}

TEST(NetReader, RulesThatCannotBeReadAreNotInvented)
{
    const PlantedHost host;
    host.file("/proc/sys/net/ipv4/ip_forward", "0\n");
    ReadingNotes notes;
    const Tav::NetControl::NetRuleInfoAsr rules = NetReader::readRules(host.root(), notes);
    EXPECT_EQ(rules.rules_size(), 0);
    EXPECT_EQ(rules.mode(), 0);
    EXPECT_TRUE(rules.has_forward_policy());
    EXPECT_FALSE(rules.has_input_policy());
    EXPECT_TRUE(notesOn(notes, "packet filter rules"));
}
