#include "NetReader.h"

#include "HostFile.h"
#include "TextBuffer.h"

#include <QHash>

#include <algorithm>
#include <cerrno>

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

namespace
{
const QByteArray netDirectory = QByteArrayLiteral("/sys/class/net");

std::string addressText(int family, const void *address)
{
    char text[INET6_ADDRSTRLEN] = "";
    return ::inet_ntop(family, address, text, sizeof(text)) != nullptr ? text : "";
}

/// Device name to its default gateway; an IPv4 one before an IPv6 one.
QHash<QByteArray, std::string> readGateways(const QString &root)
{
    QHash<QByteArray, std::string> gateways;
    QByteArray routes;
    HostFile::read(root, "/proc/net/route", routes);
    const QList<QByteArray> lines = routes.split('\n');
    for (const QByteArray &line : lines) {
        // device destination gateway flags ...: an address is the number that its four bytes make on this machine
        const QList<QByteArray> fields = line.simplified().split(' ');
        bool ok = false;
        const in_addr gateway{fields.size() >= 4 ? fields.at(2).toUInt(&ok, 16) : 0};
        if (ok && gateway.s_addr != 0 && fields.at(1) == "00000000" && !gateways.contains(fields.at(0))) {
            gateways.insert(fields.at(0), addressText(AF_INET, &gateway));
        }
    }
    QByteArray routes6;
    HostFile::read(root, "/proc/net/ipv6_route", routes6);
    const QList<QByteArray> lines6 = routes6.split('\n');
    for (const QByteArray &line : lines6) {
        // destination length source length next-hop ... device
        const QList<QByteArray> fields = line.simplified().split(' ');
        const QByteArray gateway = fields.size() >= 10 ? QByteArray::fromHex(fields.at(4)) : QByteArray();
        if (gateway.size() == 16 && gateway.count('\0') < 16 && fields.at(1) == "00"
            && QByteArray::fromHex(fields.at(0)).count('\0') == 16 && !gateways.contains(fields.constLast())) {
            gateways.insert(fields.constLast(), addressText(AF_INET6, gateway.constData()));
        }
    }
    return gateways;
}

/// Operational state after RFC 2863.
int operationalState(const QByteArray &text)
{
    static const QVector<QByteArray> states{"unknown", "notpresent", "down", "lowerlayerdown",
                                            "testing", "dormant",    "up"};
    return qMax(0, states.indexOf(text));
}

void readStatistics(const QString &root, const QByteArray &directory, Tav::NetControl::NetDeviceInfo &device)
{
    struct Counter {
        const char *file;
        void (Tav::NetControl::NetDeviceInfo::*set)(google::protobuf::uint64);
    };
    using Device = Tav::NetControl::NetDeviceInfo;
    static constexpr Counter counters[] = {
        {"rx_bytes", &Device::set_rx_bytes},     {"tx_bytes", &Device::set_tx_bytes},
        {"rx_packets", &Device::set_rx_packets}, {"tx_packets", &Device::set_tx_packets},
        {"rx_errors", &Device::set_rx_errors},   {"tx_errors", &Device::set_tx_errors},
        {"rx_dropped", &Device::set_rx_dropped}, {"tx_dropped", &Device::set_tx_dropped},
    };
    for (const Counter &counter : counters) {
        bool ok = false;
        const quint64 value = HostFile::attribute(root, directory + "statistics/" + counter.file).toULongLong(&ok);
        if (ok) {
            (device.*counter.set)(value);
        }
    }
}

int duplexOf(const QByteArray &text)
{
    return text == "half" ? 0 : text == "full" ? 1 : -1;
}

Tav::NetControl::NetDeviceInfo readNetDevice(const QString &root, const QByteArray &name)
{
    const QByteArray directory = netDirectory + '/' + name + '/';
    const auto number = [&](const char *attribute) { return HostFile::number(root, directory + attribute); };
    Tav::NetControl::NetDeviceInfo device;
    device.set_name(TextBuffer::message(name));
    // The kernel writes the flags with a leading 0x.
    if (const auto flags = HostFile::number(root, directory + "flags", 0)) {
        device.set_state((*flags & IFF_UP) != 0 ? 1 : 0);
    }
    if (const auto index = number("ifindex")) {
        device.set_index(static_cast<qint32>(*index));
    }
    if (const auto type = number("type")) {
        device.set_type(static_cast<qint32>(*type));
    }
    device.set_mac(TextBuffer::message(HostFile::attribute(root, directory + "address")));
    if (const auto mtu = number("mtu")) {
        device.set_mtu(static_cast<qint32>(*mtu));
    }
    device.set_speed(qMax(-1, static_cast<qint32>(number("speed").value_or(-1))));
    device.set_duplex(duplexOf(HostFile::attribute(root, directory + "duplex")));
    device.set_carrier(number("carrier").value_or(0) == 1);
    device.set_oper_state(operationalState(HostFile::attribute(root, directory + "operstate")));
    device.set_wireless(HostFile::exists(root, directory + "phy80211"));
    if (const auto place = HostFile::link(root, netDirectory + '/' + name)) {
        device.set_is_virtual(place->contains("/virtual/"));
    }
    const QByteArray driver = HostFile::link(root, directory + "device/driver").value_or(QByteArray());
    device.set_driver(TextBuffer::message(driver.mid(driver.lastIndexOf('/') + 1)));
    readStatistics(root, directory, device);
    return device;
}

/// Number of leading bits that are 1.
int prefixLength(const sockaddr *mask)
{
    const bool isV4 = mask->sa_family == AF_INET;
    const void *const bytes = isV4 ? static_cast<const void *>(&reinterpret_cast<const sockaddr_in *>(mask)->sin_addr)
                                   : &reinterpret_cast<const sockaddr_in6 *>(mask)->sin6_addr;
    int length = 0;
    for (int i = 0; i < (isV4 ? 4 : 16); ++i) {
        length += __builtin_popcount(static_cast<const unsigned char *>(bytes)[i]);
    }
    return length;
}
}

Tav::NetControl::NetDeviceInfos NetReader::readDevices(const QString &root, ReadingNotes &notes)
{
    const QHash<QByteArray, std::string> gateways = readGateways(root);
    QVector<Tav::NetControl::NetDeviceInfo> devices;
    const QVector<QByteArray> names = HostFile::entriesOrNote(root, netDirectory, notes);
    for (const QByteArray &name : names) {
        Tav::NetControl::NetDeviceInfo device = readNetDevice(root, name);
        // Without an index it is no device but a control file of some driver, or it has just gone.
        if (device.has_index()) {
            device.set_gateway(gateways.value(name));
            devices.append(device);
        }
    }
    std::stable_sort(devices.begin(), devices.end(),
                     [](const auto &a, const auto &b) { return a.index() < b.index(); });
    Tav::NetControl::NetDeviceInfos infos;
    for (const auto &device : qAsConst(devices)) {
        infos.add_devices()->CopyFrom(device);
    }
    return infos;
}

Tav::NetControl::NetDeviceInfos NetReader::readLinks(ReadingNotes &notes)
{
    Tav::NetControl::NetDeviceInfos infos;
    ifaddrs *addresses = nullptr;
    if (::getifaddrs(&addresses) != 0) {
        HostFile::note(notes, "network devices", HostFile::errorText(errno));
        return infos;
    }
    for (const ifaddrs *entry = addresses; entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr != nullptr && entry->ifa_addr->sa_family == AF_PACKET) {
            Tav::NetControl::NetDeviceInfo &device = *infos.add_devices();
            device.set_name(TextBuffer::message(entry->ifa_name));
            device.set_state((entry->ifa_flags & IFF_UP) != 0 ? 1 : 0);
            device.set_index(static_cast<qint32>(::if_nametoindex(entry->ifa_name)));
        }
    }
    ::freeifaddrs(addresses);
    return infos;
}

void NetReader::addAddresses(Tav::NetControl::NetDeviceInfos &devices, ReadingNotes &notes)
{
    ifaddrs *addresses = nullptr;
    if (::getifaddrs(&addresses) != 0) {
        HostFile::note(notes, "interface addresses", HostFile::errorText(errno));
        return;
    }
    for (const ifaddrs *entry = addresses; entry != nullptr; entry = entry->ifa_next) {
        const int family = entry->ifa_addr != nullptr ? entry->ifa_addr->sa_family : AF_UNSPEC;
        if ((family != AF_INET && family != AF_INET6) || entry->ifa_netmask == nullptr) {
            continue;
        }
        const void *const address = family == AF_INET
            ? static_cast<const void *>(&reinterpret_cast<const sockaddr_in *>(entry->ifa_addr)->sin_addr)
            : &reinterpret_cast<const sockaddr_in6 *>(entry->ifa_addr)->sin6_addr;
        for (auto &device : *devices.mutable_devices()) {
            if (device.name() == entry->ifa_name) {
                device.add_addresses(addressText(family, address) + '/'
                                     + std::to_string(prefixLength(entry->ifa_netmask)));
            }
        }
    }
    ::freeifaddrs(addresses);
}

Tav::NetControl::NetControlCountAsr NetReader::countsOf(const Tav::NetControl::NetDeviceInfos &devices)
{
    Tav::NetControl::NetControlCountAsr counts;
    counts.set_device_count(devices.devices_size());
    counts.set_enabled_device_count(static_cast<int>(std::count_if(
        devices.devices().begin(), devices.devices().end(), [](const auto &device) { return device.state() == 1; })));
    return counts;
}

Tav::NetControl::NetRuleInfoAsr NetReader::readRules(const QString &root, ReadingNotes &notes)
{
    Tav::NetControl::NetRuleInfoAsr rules;
    rules.set_mode(0);
    const auto v4 = HostFile::number(root, "/proc/sys/net/ipv4/ip_forward");
    const auto v6 = HostFile::number(root, "/proc/sys/net/ipv6/conf/all/forwarding");
    if (v4 && *v4 == 0 && v6.value_or(0) == 0) {
        rules.set_forward_policy(0);
    }
    HostFile::note(notes, "packet filter rules", QStringLiteral("the local agent has no way to list them"));
    return rules;
}
