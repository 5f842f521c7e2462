#include "PluginHost.h"

#include "AccessReader.h"
#include "AccountReader.h"
#include "AuditReader.h"
#include "BaselineList.h"
#include "BaselineReader.h"
#include "DirectoryReader.h"
#include "HostFile.h"
#include "HostReader.h"
#include "ImaReader.h"
#include "ITavAccessControlMgr.h"
#include "ITavAuditMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSystemConfigMgr.h"
#include "LocalAgent.h"
#include "LoginReader.h"
#include "MeasureReader.h"
#include "ModuleReader.h"
#include "NetReader.h"
#include "ProcessReader.h"
#include "ReinforceReader.h"
#include "SoftwareReader.h"
#include "STBLEnableConfig.h"
#include "TextBuffer.h"
#include "UsbReader.h"
#include "UserReader.h"

#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <set>
#include <string>

#include <net/if.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmpx.h>

using testing::ElementsAre;

namespace
{
/// A planted host: files below a directory that ends with this object.
class Tree
{
public:
    QString root() const
    {
        return m_directory.path();
    }

    QByteArray path(const QByteArray &path) const
    {
        return HostFile::path(root(), path);
    }

    void directory(const QByteArray &path) const
    {
        ASSERT_TRUE(QDir().mkpath(QFile::decodeName(this->path(path))));
    }

    void file(const QByteArray &path, const QByteArray &content) const
    {
        directory(path.left(path.lastIndexOf('/')));
        QFile file(QFile::decodeName(this->path(path)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    void link(const QByteArray &path, const QByteArray &target) const
    {
        directory(path.left(path.lastIndexOf('/')));
        ASSERT_EQ(::symlink(target.constData(), this->path(path).constData()), 0);
    }

private:
    QTemporaryDir m_directory;
};

QStringList sourcesOf(const ReadingNotes &notes)
{
    QStringList sources;
    for (const ReadingNote &note : notes) {
        sources.append(note.source);
    }
    return sources;
}

bool notesOn(const ReadingNotes &notes, const char *source)
{
    return sourcesOf(notes).contains(QLatin1String(source));
}

/// Seconds since the epoch at noon of a day in local time.
qint64 noon(int year, int month, int day)
{
    return QDateTime(QDate(year, month, day), QTime(12, 0)).toSecsSinceEpoch();
}

QByteArray loginRecord(short type, const char *user, const char *line, const char *host, qint64 time)
{
    utmpx record{};
    record.ut_type = type;
    record.ut_pid = 321;
    record.ut_tv.tv_sec = static_cast<decltype(record.ut_tv.tv_sec)>(time);
    std::strncpy(record.ut_user, user, sizeof(record.ut_user) - 1);
    std::strncpy(record.ut_line, line, sizeof(record.ut_line) - 1);
    std::strncpy(record.ut_host, host, sizeof(record.ut_host) - 1);
    return {reinterpret_cast<const char *>(&record), sizeof(record)};
}

void plantUsers(const Tree &tree)
{
    tree.file("/etc/passwd",
              "root:x:0:0:root:/root:/bin/bash\n"
              "daemon:x:1:1:daemon:/usr/sbin:/usr/sbin/nologin\n"
              "alice:x:1000:1000:Alice Example,Room 1:/home/alice:/bin/bash\n"
              "bob:x:1001:1001::/home/bob:\n");
    tree.file("/etc/group", "root:x:0:\ndaemon:x:1:\nsudo:x:27:alice\nalice:x:1000:\nbob:x:1001:alice\n");
}

/// One process below /proc; @p flags as the kernel's, @p start in ticks since boot.
void plantProcess(const Tree &tree, int pid, const QByteArray &name, char state, int ppid, int uid, int effectiveUid,
                  const QByteArray &program, const QByteArray &flags = "4194304")
{
    const QByteArray directory = "/proc/" + QByteArray::number(pid);
    const QByteArray start = QByteArray::number(qlonglong(200) * ::sysconf(_SC_CLK_TCK));
    tree.file(directory + "/stat",
              QByteArray::number(pid) + " (" + name + ") " + state + ' ' + QByteArray::number(ppid) + " 1 1 0 -1 "
                  + flags + " 0 0 0 0 0 0 0 0 20 0 1 0 " + start + " 0 0\n");
    tree.file(directory + "/status",
              "Name:\tx\nUid:\t" + QByteArray::number(uid) + '\t' + QByteArray::number(effectiveUid) + "\t0\t0\n");
    tree.file(directory + "/cmdline", QByteArray("run\0--fast\0", 11));
    if (!program.isEmpty()) {
        tree.link(directory + "/exe", program);
    }
}
}

TEST(TextBuffer, CutsBetweenTwoCharacters)
{
    char buffer[6];
    std::memset(buffer, 'x', sizeof(buffer));
    TextBuffer::copy(buffer, "ab\u4e2d\u6587"); // two letters, two characters of three bytes
    EXPECT_STREQ(buffer, "ab\u4e2d");
    TextBuffer::copy(buffer, "abc\u4e2d");
    EXPECT_STREQ(buffer, "abc");
    EXPECT_EQ(buffer[4], '\0');
    EXPECT_EQ(buffer[5], '\0');
    TextBuffer::copy(buffer, "abcdef");
    EXPECT_STREQ(buffer, "abcde");
    TextBuffer::copy(buffer, "");
    EXPECT_STREQ(buffer, "");
}

TEST(TextBuffer, HoldsOneByteAtLeast)
{
    char buffer[1] = {'x'};
    TextBuffer::copy(buffer, "\u4e2d");
    EXPECT_EQ(buffer[0], '\0');
}

TEST(TextBuffer, ReplacesWhatIsNotUtf8)
{
    char buffer[8];
    TextBuffer::copy(buffer,
                     "a\xff"
                     "b");
    EXPECT_STREQ(buffer, "a\ufffdb");
    EXPECT_EQ(TextBuffer::message("a\xff"
                                  "b"),
              "a\ufffdb");
    EXPECT_EQ(TextBuffer::message(QByteArray("a\0b", 3)), "a");
}

TEST(HostFile, NeverOpensWhatCouldWait)
{
    const Tree tree;
    tree.directory("/proc");
    ASSERT_EQ(::mkfifo(tree.path("/proc/meminfo").constData(), 0600), 0);
    ReadingNotes notes;
    EXPECT_FALSE(HostFile::readOrNote(tree.root(), "/proc/meminfo", notes));
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes.at(0).reason, QStringLiteral("not a regular file"));
}

TEST(HostFile, ReadsFilesWhoseNamesAreNotUtf8)
{
    const Tree tree;
    tree.directory("/d");
    ASSERT_EQ(::mkdir(tree.path("/d/\xff\xfe").constData(), 0700), 0);
    EXPECT_THAT(HostFile::entries(tree.root(), "/d"), ElementsAre(QByteArray("\xff\xfe")));
    EXPECT_TRUE(HostFile::exists(tree.root(), "/d/\xff\xfe"));
    ASSERT_EQ(::rmdir(tree.path("/d/\xff\xfe").constData()), 0); // QTemporaryDir cannot
}

TEST(HostReader, TakesFiguresFromTheirFiles)
{
    const Tree tree;
    tree.file("/proc/meminfo",
              "MemTotal:       2048 kB\nMemFree: 1 kB\nMemAvailable:   1024 kB\nSwapTotal: 512 kB\nSwapFree: 256 kB\n");
    tree.file("/proc/cpuinfo", "processor\t: 0\nmodel name\t: Example CPU @ 2 GHz\n");
    tree.file("/proc/stat", "cpu  1 0 0 9 0 0 0 0 0 0\ncpu0 1 0 0 9 0\ncpu1 0 0 0 0 0\nbtime 1000\n");
    tree.file("/proc/uptime", "3600.25 7000.00\n");
    tree.file("/proc/loadavg", "0.52 1.05 12.00 1/200 4242\n");
    tree.file("/proc/self/mounts", "proc /proc proc rw 0 0\n/dev/sda1 / ext4 rw 0 0\n/dev/sda1 /again ext4 rw 0 0\n");
    tree.file("/proc/sys/kernel/osrelease", "6.1.0-example\n");
    tree.file("/proc/sys/kernel/hostname", "planted\n");
    tree.file("/etc/os-release", "ID=example\nPRETTY_NAME=\"Example OS 1\"\n");
    tree.directory("/proc/7");
    tree.directory("/proc/8");

    ReadingNotes notes;
    const STResourceInfoAsr info = HostReader::readResourceInfo(tree.root(), 0, notes);
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
    const Tree tree;
    ReadingNotes notes;
    const STResourceInfoAsr info = HostReader::readResourceInfo(tree.root(), 0, notes);
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
    const Tree tree;
    tree.file("/sys/kernel/security/lockdown", "none [integrity] confidentiality\n");
    tree.file("/proc/sys/kernel/tainted", "0\n");
    tree.file("/proc/modules", "signed 1 0 - Live 0x0\n");
    ReadingNotes notes;
    Tav::HostInfo::SystemFileStateAsr state = HostReader::readKernelState(tree.root(), notes);
    EXPECT_EQ(state.state(), 1);
    EXPECT_EQ(state.lockdown(), 1);
    EXPECT_TRUE(state.kexec_sig_enforce());
    EXPECT_FALSE(state.has_module_sig_enforce());
    EXPECT_EQ(state.module_count(), 1);
    EXPECT_EQ(state.unsigned_module_count(), 0);

    tree.file("/proc/sys/kernel/tainted", "12288\n");
    tree.file("/proc/modules", "foreign 1 0 - Live 0x0 (OE)\n");
    state = HostReader::readKernelState(tree.root(), notes);
    EXPECT_EQ(state.state(), 2);
    EXPECT_EQ(state.taint_letters(), "OE");
    EXPECT_EQ(state.unsigned_module_count(), 1);
}

TEST(HostReader, KernelStateOfAnEmptyHostIsUnknown)
{
    const Tree tree;
    ReadingNotes notes;
    const Tav::HostInfo::SystemFileStateAsr state = HostReader::readKernelState(tree.root(), notes);
    EXPECT_EQ(state.state(), 0);
    EXPECT_FALSE(state.has_lockdown());
    EXPECT_FALSE(state.has_taint());
    EXPECT_FALSE(state.has_secure_boot());
    EXPECT_FALSE(state.has_module_count());
    EXPECT_EQ(state.files_size(), 0);
    EXPECT_TRUE(notesOn(notes, "/proc/sys/kernel/tainted"));
    EXPECT_TRUE(notesOn(notes, "/sys/kernel/security/lockdown"));
}

TEST(UserReader, ReadsUsersGroupsAndLocks)
{
    const Tree tree;
    plantUsers(tree);
    tree.file("/etc/shadow", "root:*:20000:0:99999:7:::\nalice:$y$x:20001:0:90:7:::\nbob:!:20002:0:90:7:::\n");
    ReadingNotes notes;
    const QVector<UserReader::User> users = UserReader::readUsers(tree.root(), notes);
    ASSERT_EQ(users.size(), 4);
    EXPECT_TRUE(notes.isEmpty());
    EXPECT_EQ(users.at(2).fullName, "Alice Example");
    EXPECT_THAT(users.at(2).groups, ElementsAre(QByteArray("alice"), QByteArray("sudo"), QByteArray("bob")));
    EXPECT_EQ(users.at(2).passwordChange, 20001LL * 86400);
    EXPECT_EQ(users.at(2).passwordDays, 90);
    EXPECT_EQ(users.at(0).passwordDays, -1);

    const QVector<STLookUsersAsr> records = UserReader::records(users);
    EXPECT_EQ(records.at(0).locked, 1);
    EXPECT_EQ(records.at(1).locked, -1); // has no line in the password file
    EXPECT_EQ(records.at(2).locked, 0);
    EXPECT_EQ(records.at(3).locked, 1);
    EXPECT_EQ(records.at(1).canLogin, 0);
    EXPECT_EQ(records.at(3).canLogin, 1); // no shell means the standard one
    EXPECT_STREQ(records.at(2).home, "/home/alice");
    EXPECT_EQ(AccessReader::principalLevel(users.at(0)), 3);
    EXPECT_EQ(AccessReader::principalLevel(users.at(1)), 0);
    EXPECT_EQ(AccessReader::principalLevel(users.at(2)), 2);
    EXPECT_EQ(AccessReader::principalLevel(users.at(3)), 1);
}

TEST(UserReader, LeavesOutBrokenLinesAndUnknownLocks)
{
    const Tree tree;
    tree.file("/etc/passwd", "broken\n:x:5:5:::\nx:x:no:5:::\nok:x:5:5:::\n+::::::\n");
    ReadingNotes notes;
    const QVector<STLookUsersAsr> records = UserReader::records(UserReader::readUsers(tree.root(), notes));
    ASSERT_EQ(records.size(), 1);
    EXPECT_STREQ(records.at(0).name, "ok");
    EXPECT_EQ(records.at(0).locked, -1);
    EXPECT_THAT(
        sourcesOf(notes),
        ElementsAre(QStringLiteral("/etc/passwd"), QStringLiteral("/etc/group"), QStringLiteral("/etc/shadow")));
}

TEST(AccountReader, CountsTheDaysOfThePasswordAndTheFailedLogins)
{
    const Tree tree;
    plantUsers(tree);
    const qint64 day = 20050;
    const qint64 now = day * 86400 + 1000;
    tree.file("/etc/shadow", "alice:$y$x:20000:0:90:7:::\nbob:$y$x:19000:0:90:7:::\n");
    tree.file("/var/log/wtmp",
              loginRecord(USER_PROCESS, "alice", "pts/0", "192.0.2.1", now - 500)
                  + loginRecord(USER_PROCESS, "alice", "pts/1", "192.0.2.2", now - 300)
                  + loginRecord(USER_PROCESS, "bob", "pts/2", "192.0.2.3", now - 100));
    tree.file("/var/log/btmp",
              loginRecord(USER_PROCESS, "alice", "pts/0", "", now - 400)
                  + loginRecord(LOGIN_PROCESS, "alice", "pts/0", "", now - 200));
    ReadingNotes notes;
    const Tav::SystemConfig::LoginCheckAsr login = AccountReader::readLogin(tree.root(), 1000, now, notes);
    EXPECT_EQ(login.user_name(), "alice");
    EXPECT_EQ(login.password_days_left(), 40);
    EXPECT_FALSE(login.password_expired());
    EXPECT_EQ(login.last_login_time(), now - 300);
    EXPECT_EQ(login.last_login_address(), "192.0.2.2");
    EXPECT_EQ(login.failed_since_login(), 1);
    EXPECT_TRUE(AccountReader::readLogin(tree.root(), 1001, now, notes).password_expired());
    EXPECT_TRUE(notes.isEmpty());

    tree.file("/etc/security/pwquality.conf", "# minlen = 3\nminlen = 12\n minclass=3\n");
    const Tav::SystemConfig::PasswdChangeAsr password = AccountReader::readPassword(tree.root(), 1000, now, notes);
    EXPECT_EQ(password.result(), 4);
    EXPECT_EQ(password.change_time(), 20000LL * 86400);
    EXPECT_EQ(password.min_length(), 12);
    EXPECT_EQ(password.min_classes(), 3);
}

TEST(AccountReader, AnUnknownAccountHasNoFigures)
{
    const Tree tree;
    ReadingNotes notes;
    const Tav::SystemConfig::LoginCheckAsr login = AccountReader::readLogin(tree.root(), 1000, 0, notes);
    EXPECT_EQ(login.user_name(), "");
    EXPECT_FALSE(login.has_password_days_left());
    EXPECT_FALSE(login.has_last_login_time());
    EXPECT_FALSE(login.has_failed_since_login());
    EXPECT_TRUE(notesOn(notes, "/etc/passwd"));
}

TEST(NetReader, ReadsDevicesInOrderOfIndex)
{
    const Tree tree;
    const QByteArray eth = "/sys/devices/pci0000:00/net/eth0";
    tree.file(eth + "/flags", "0x1003\n");
    tree.file(eth + "/ifindex", "2\n");
    tree.file(eth + "/type", "1\n");
    tree.file(eth + "/address", "00:16:3e:5e:6c:00\n");
    tree.file(eth + "/mtu", "1500\n");
    tree.file(eth + "/speed", "1000\n");
    tree.file(eth + "/duplex", "full\n");
    tree.file(eth + "/carrier", "1\n");
    tree.file(eth + "/operstate", "up\n");
    tree.file(eth + "/statistics/rx_bytes", "18446744073709551615\n");
    tree.file(eth + "/statistics/tx_dropped", "3\n");
    tree.link(eth + "/device/driver", "../../bus/drivers/example_net");
    tree.link("/sys/class/net/eth0", "../../devices/pci0000:00/net/eth0");
    const QByteArray lo = "/sys/devices/virtual/net/lo";
    tree.file(lo + "/flags", "0x1002\n"); // all but switched on
    tree.file(lo + "/ifindex", "1\n");
    tree.file(lo + "/operstate", "unknown\n");
    tree.link("/sys/class/net/lo", "../../devices/virtual/net/lo");
    tree.file("/sys/class/net/bonding_masters", "");
    tree.file("/proc/net/route",
              "Iface Destination Gateway Flags\neth0\t00000000\t"
                  + QByteArray::number(QSysInfo::ByteOrder == QSysInfo::LittleEndian ? 0x010200c0 : 0xc0000201, 16)
                  + "\t0003\t0\n");

    ReadingNotes notes;
    const Tav::NetControl::NetDeviceInfos infos = NetReader::readDevices(tree.root(), notes);
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
    const Tree tree;
    tree.file("/proc/sys/net/ipv4/ip_forward", "0\n");
    ReadingNotes notes;
    const Tav::NetControl::NetRuleInfoAsr rules = NetReader::readRules(tree.root(), notes);
    EXPECT_EQ(rules.rules_size(), 0);
    EXPECT_EQ(rules.mode(), 0);
    EXPECT_TRUE(rules.has_forward_policy());
    EXPECT_FALSE(rules.has_input_policy());
    EXPECT_TRUE(notesOn(notes, "packet filter rules"));
}

TEST(UsbReader, ReadsDevicesWithTheirInterfaces)
{
    const Tree tree;
    const QByteArray stick = "/sys/bus/usb/devices/1-2.4";
    tree.file(stick + "/busnum", "1\n");
    tree.file(stick + "/devnum", "9\n");
    tree.file(stick + "/idVendor", "0abc\n");
    tree.file(stick + "/idProduct", "12ef\n");
    tree.file(stick + "/manufacturer", "Example\n");
    tree.file(stick + "/product", "Stick\n");
    tree.file(stick + "/serial", "0001\n");
    tree.file(stick + "/bDeviceClass", "00\n");
    tree.file(stick + "/speed", "1.5\n");
    tree.file(stick + "/version", " 2.10\n");
    tree.file(stick + "/bMaxPower", "500mA\n");
    tree.file(stick + "/authorized", "0\n");
    tree.file(stick + "/removable", "removable\n");
    tree.file(stick + ":1.0/bInterfaceClass", "08\n");
    tree.link(stick + ":1.0/driver", "../../../../bus/usb/drivers/usb-storage");
    tree.file(stick + ":1.1/bInterfaceClass", "ff\n");
    tree.file("/sys/bus/usb/devices/usb1/busnum", "1\n");
    tree.file("/sys/bus/usb/devices/usb1/devnum", "1\n");
    tree.file("/sys/bus/usb/devices/1-0:1.0/bInterfaceClass", "09\n");
    tree.directory("/sys/bus/usb/devices/1-3"); // has just been pulled out

    ReadingNotes notes;
    const Tav::DevControl::DevUsbInfoList list = UsbReader::readDevices(tree.root(), notes);
    EXPECT_TRUE(notes.isEmpty());
    ASSERT_EQ(list.devices_size(), 2);
    EXPECT_EQ(list.devices(0).port_path(), "usb1");
    EXPECT_THAT(list.devices(0).interface_classes(), ElementsAre(9U));
    EXPECT_FALSE(list.devices(0).has_vendor_id());
    EXPECT_FALSE(list.devices(0).has_state());
    const Tav::DevControl::DevUsbInfo &device = list.devices(1);
    EXPECT_EQ(device.device(), 9);
    EXPECT_EQ(device.vendor_id(), 0x0abcU);
    EXPECT_EQ(device.product_id(), 0x12efU);
    EXPECT_EQ(device.vendor_name(), "Example");
    EXPECT_EQ(device.serial(), "0001");
    EXPECT_EQ(device.speed(), 1500);
    EXPECT_EQ(device.usb_version(), 0x0210U);
    EXPECT_EQ(device.max_power(), 500);
    EXPECT_FALSE(device.authorized());
    EXPECT_EQ(device.state(), 0);
    EXPECT_TRUE(device.removable());
    EXPECT_THAT(device.interface_classes(), ElementsAre(8U, 255U));
    EXPECT_THAT(device.drivers(), ElementsAre("usb-storage", ""));

    tree.directory("/sys/module/usb_storage");
    const Tav::DevControl::DevFuncEnableInfo kinds = UsbReader::readKinds(tree.root(), list, {"uas"});
    ASSERT_EQ(kinds.functions_size(), 10);
    EXPECT_FALSE(kinds.control_enabled());
    EXPECT_EQ(kinds.functions(0).device_count(), 1);
    EXPECT_FALSE(kinds.functions(0).enabled());
    EXPECT_TRUE(kinds.functions(0).supported());
    EXPECT_THAT(kinds.functions(0).modules(), ElementsAre("usb_storage"));
    EXPECT_TRUE(kinds.functions(1).enabled());
    EXPECT_FALSE(kinds.functions(1).supported());
}

TEST(UsbReader, AHostWithoutUsbIsNoted)
{
    const Tree tree;
    ReadingNotes notes;
    EXPECT_EQ(UsbReader::readDevices(tree.root(), notes).devices_size(), 0);
    EXPECT_TRUE(notesOn(notes, "/sys/bus/usb/devices"));
}

TEST(ModuleReader, ReadsLoadedModulesWithTheirFiles)
{
    const Tree tree;
    tree.file("/proc/sys/kernel/osrelease", "6.1.0\n");
    tree.file("/proc/modules", "snd_example 4096 2 snd,other, Live 0x0000000000000000 (OE)\nlone 1024 0 - Live 0x0\n");
    tree.file("/lib/modules/6.1.0/modules.dep", "kernel/sound/snd-example.ko: kernel/sound/snd.ko\n");
    tree.file("/lib/modules/6.1.0/kernel/sound/snd-example.ko", "abc");
    ReadingNotes notes;
    const QVector<STKernelContentAsr> records = ModuleReader::readModuleRecords(tree.root(), notes);
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
    const Tree tree;
    tree.file("/etc/modprobe.d/a.conf",
              "# blacklist no\nblacklist  floppy-x\ninstall  dccp /bin/false\ninstall y /sbin/z\n");
    tree.file("/etc/modprobe.d/ignored.txt", "blacklist never\n");
    tree.file("/lib/modprobe.d/a.conf", "blacklist overridden\n");
    tree.file("/proc/cmdline", "quiet modprobe.blacklist=one,two\n");
    tree.file("/proc/modules", "dccp 512 1 - Live 0x0\n");
    ReadingNotes notes;
    const auto content = ModuleReader::readBlockedModules(tree.root(), notes);
    EXPECT_EQ(content.mode(), 2);
    ASSERT_EQ(content.entries_size(), 4);
    EXPECT_EQ(content.entries(0).name(), "floppy_x");
    EXPECT_FALSE(content.entries(0).loaded());
    EXPECT_EQ(content.entries(1).name(), "dccp");
    EXPECT_TRUE(content.entries(1).loaded());
    EXPECT_EQ(content.entries(1).size(), 512U);
    EXPECT_EQ(content.entries(3).name(), "two");
    const Tree empty;
    EXPECT_EQ(ModuleReader::readBlockedModules(empty.root(), notes).mode(), 0);
}

TEST(ProcessReader, ReadsNamesWithBracketsAndLeavesOutKernelThreads)
{
    const Tree tree;
    tree.file("/proc/stat", "cpu 1\nbtime 1000\n");
    plantProcess(tree, 10, "a) (b", 'S', 1, 1000, 1000, "/usr/bin/a");
    plantProcess(tree, 2, "kthreadd", 'S', 0, 0, 0, "", "2129984");
    ReadingNotes notes;
    const QVector<ProcessReader::Process> processes = ProcessReader::readProcesses(tree.root(), notes);
    EXPECT_TRUE(notes.isEmpty());
    ASSERT_EQ(processes.size(), 1);
    EXPECT_EQ(processes.at(0).name, "a) (b");
    EXPECT_EQ(processes.at(0).ppid, 1);
    EXPECT_EQ(processes.at(0).startTime, 1200);
    const QVector<STProProtectContentAsr> records = ProcessReader::records(processes, {{1000, "alice"}});
    EXPECT_STREQ(records.at(0).userName, "alice");
    EXPECT_STREQ(records.at(0).path, "/usr/bin/a");
    EXPECT_EQ(records.at(0).state, 0);
}

TEST(ProcessReader, AProcessThatVanishesIsLeftOut)
{
    const Tree tree;
    tree.file("/proc/stat", "btime 1000\n");
    tree.directory("/proc/10"); // gone before its first file
    plantProcess(tree, 11, "half", 'S', 1, 0, 0, "/bin/half");
    ASSERT_EQ(::unlink(tree.path("/proc/11/status").constData()), 0); // gone between two files
    plantProcess(tree, 12, "stays", 'S', 1, 0, 0, "/bin/stays");
    tree.file("/proc/13/stat", "13 (torn");
    ReadingNotes notes;
    const QVector<ProcessReader::Process> processes = ProcessReader::readProcesses(tree.root(), notes);
    ASSERT_EQ(processes.size(), 1);
    EXPECT_EQ(processes.at(0).name, "stays");
    EXPECT_TRUE(notes.isEmpty());
}

TEST(ProcessReader, ARealProcessThatHasEndedIsLeftOut)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::pause();
        ::_exit(0);
    }
    bool denied = false;
    EXPECT_TRUE(ProcessReader::readProcess(QStringLiteral("/"), child, 0, denied));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(ProcessReader::readProcess(QStringLiteral("/"), child, 0, denied));
}

TEST(ProcessReader, ListsNoMoreThanItsLimit)
{
    const Tree tree;
    tree.file("/proc/stat", "btime 1000\n");
    for (int pid = 1; pid <= 5; ++pid) {
        plantProcess(tree, pid, "many", 'S', 1, 0, 0, "");
    }
    ReadingNotes notes;
    EXPECT_EQ(ProcessReader::readProcesses(tree.root(), notes, 3).size(), 3);
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes.at(0).reason, QStringLiteral("2 further processes are not listed"));
}

TEST(ProcessReader, OnlyWhatIsOutOfTheOrdinaryIsAnException)
{
    const Tree tree;
    tree.file("/proc/stat", "btime 1000\n");
    plantProcess(tree, 10, "usual", 'S', 1, 0, 0, "/bin/usual");
    plantProcess(tree, 11, "gone", 'S', 1, 1000, 1000, "/tmp/gone (deleted)");
    plantProcess(tree, 12, "raised", 'S', 1, 1000, 0, "/usr/bin/raised");
    plantProcess(tree, 13, "dead", 'Z', 10, 0, 0, "");
    ReadingNotes notes;
    const Tav::Base::PriExceptionAsr answer
        = ProcessReader::exceptions(ProcessReader::readProcesses(tree.root(), notes), {{0, "root"}}, 5000);
    EXPECT_EQ(answer.total(), 3);
    ASSERT_EQ(answer.entries_size(), 3);
    EXPECT_EQ(answer.entries(0).process_name(), "gone");
    EXPECT_EQ(answer.entries(0).type(), 1);
    EXPECT_EQ(answer.entries(0).path(), "/tmp/gone");
    EXPECT_FALSE(answer.entries(0).has_command_line()); // it may hold a password
    EXPECT_EQ(answer.entries(0).time(), 5000);
    EXPECT_EQ(answer.entries(1).type(), 3);
    EXPECT_EQ(answer.entries(1).user_name(), "root");
    EXPECT_FALSE(answer.entries(2).has_type());
    EXPECT_EQ(answer.entries(2).state(), 2);
}

TEST(DirectoryReader, ReadsModesAndDigests)
{
    const Tree tree;
    tree.file("/etc/passwd", "abc");
    ASSERT_EQ(::chmod(tree.path("/etc/passwd").constData(), 04640), 0);
    tree.directory("/etc/sub");
    ReadingNotes notes;
    const QVector<STDirProtectContentAsr> directories = DirectoryReader::readDirectories(tree.root(), notes);
    ASSERT_EQ(directories.size(), DirectoryReader::keyDirectories().size());
    EXPECT_STREQ(directories.at(0).path, "/boot");
    EXPECT_EQ(directories.at(0).state, 3);
    EXPECT_STREQ(directories.at(1).path, "/etc");
    EXPECT_EQ(directories.at(1).state, 0);
    EXPECT_EQ(directories.at(1).fileCount, 1);
    const int at = DirectoryReader::keyFiles().indexOf("/etc/passwd");
    const QVector<STFileProtectContentAsr> files = DirectoryReader::readFiles(tree.root(), notes);
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

TEST(SoftwareReader, ListsWhatThePackageManagerRefusesToRemove)
{
    const Tree tree;
    tree.file("/var/lib/dpkg/status",
              "Package: base\nEssential: yes\nStatus: install ok installed\nInstalled-Size: 3\nArchitecture: arm64\n"
              "Version: 1.2\nDescription: the base\n of all\n\n"
              "Package: free\nStatus: install ok installed\n\n"
              "Package: gone\nEssential: yes\nStatus: deinstall ok config-files\n\n"
              "Package: kept\nStatus: hold ok installed\n");
    ReadingNotes notes;
    const auto content = SoftwareReader::readProtectedPackages(tree.root(), notes);
    ASSERT_EQ(content.entries_size(), 2);
    EXPECT_EQ(content.mode(), 2);
    EXPECT_EQ(content.entries(0).package(), "base");
    EXPECT_EQ(content.entries(0).version(), "1.2");
    EXPECT_EQ(content.entries(0).summary(), "the base");
    EXPECT_EQ(content.entries(0).size(), 3072U);
    EXPECT_EQ(content.entries(1).package(), "kept");
    EXPECT_TRUE(notes.isEmpty());
}

TEST(ImaReader, ReadsTheKernelsList)
{
    const Tree tree;
    const QByteArray digest(64, 'b');
    tree.file("/sys/kernel/security/ima/ascii_runtime_measurements",
              "10 aa ima-ng sha256:" + digest
                  + " boot_aggregate\n"
                    "10 bb ima-ng sha256:"
                  + QByteArray(64, '0')
                  + " /a path/with blanks\n"
                    "11 cc ima "
                  + QByteArray(40, 'd')
                  + " /old\n"
                    "10 dd ima-sig sha256:"
                  + digest
                  + " /signed 0302046730eefd00\n"
                    "broken line\n");
    tree.file("/sys/kernel/security/ima/runtime_measurements_count", "4\n");
    tree.file("/sys/kernel/security/ima/violations", "1\n");
    tree.file("/proc/cmdline", "ima_appraise=log quiet\n");
    ReadingNotes notes;
    const ImaReader::MeasurementList list = ImaReader::readList(tree.root(), notes);
    EXPECT_EQ(list.total, 4);
    ASSERT_EQ(list.entries.size(), 4);
    EXPECT_EQ(list.entries.at(0).pcr, 10);
    EXPECT_STREQ(list.entries.at(0).templateHash, "aa");
    EXPECT_STREQ(list.entries.at(0).templateName, "ima-ng");
    EXPECT_STREQ(list.entries.at(0).algorithm, "sha256");
    EXPECT_STREQ(list.entries.at(0).fileDigest, digest.constData());
    EXPECT_STREQ(list.entries.at(0).path, "boot_aggregate");
    EXPECT_EQ(list.entries.at(0).state, 0);
    EXPECT_STREQ(list.entries.at(1).path, "/a path/with blanks");
    EXPECT_EQ(list.entries.at(1).state, 4);
    EXPECT_STREQ(list.entries.at(2).algorithm, "sha1");
    EXPECT_STREQ(list.entries.at(3).path, "/signed");
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes.at(0).reason, QStringLiteral("1 lines are no measurement"));
    const STImaStateAsr state = ImaReader::readState(tree.root(), notes);
    EXPECT_EQ(state.mode, 2);
    EXPECT_EQ(state.state, 1);
    EXPECT_EQ(state.violations, 1);
    EXPECT_EQ(state.hasTpm, 0);
}

TEST(ImaReader, WithoutTheKernelsListThereIsOnlyANote)
{
    const Tree tree;
    ReadingNotes notes;
    EXPECT_EQ(ImaReader::readList(tree.root(), notes).total, 0);
    EXPECT_EQ(ImaReader::readState(tree.root(), notes).state, 0);
    EXPECT_EQ(notes.size(), 2);
}

TEST(MeasureReader, JudgesProgramsByTheirPackages)
{
    const Tree tree;
    tree.file("/usr/bin/bash", "abc");
    tree.file("/usr/bin/ls", "changed");
    tree.file("/usr/bin/ssh", "of nobody");
    tree.file("/usr/bin/dash", "diverted");
    // The digest of "abc"; one package still names the place before /usr was merged.
    const QByteArray abc = "900150983cd24fb0d6963f7d28e17f72";
    tree.file("/var/lib/dpkg/info/shell.md5sums",
              abc + "  bin/bash\n" + abc + "  usr/bin/ls\n" + abc + "  usr/bin/su\n");
    tree.file("/var/lib/dpkg/info/other.md5sums", abc + "  usr/bin/dash\n");
    tree.file("/var/lib/dpkg/diversions", "/usr/bin/dash\n/usr/bin/dash.real\nother\n");

    ReadingNotes notes;
    const auto digests = SoftwareReader::readPackageDigests(tree.root(), MeasureReader::programs(), notes);
    EXPECT_TRUE(notes.isEmpty());
    const QVector<QByteArray> paths = MeasureReader::presentPrograms(tree.root(), digests);
    EXPECT_THAT(paths,
                ElementsAre(QByteArray("/usr/bin/bash"), QByteArray("/usr/bin/dash"), QByteArray("/usr/bin/ls"),
                            QByteArray("/usr/bin/ssh"), QByteArray("/usr/bin/su")));
    Tav::Measure::ImaContentAsr list;
    for (const QByteArray &path : paths) {
        *list.add_entries() = MeasureReader::measure(tree.root(), path, digests, 7, notes);
    }
    EXPECT_EQ(list.entries(0).state(), 1);
    EXPECT_EQ(list.entries(0).file_digest(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(list.entries(1).state(), 3);
    EXPECT_EQ(list.entries(2).state(), 2);
    EXPECT_EQ(list.entries(2).algorithm(), "md5");
    EXPECT_EQ(list.entries(2).expected_digest(), abc.toStdString());
    EXPECT_EQ(list.entries(3).state(), 3);
    EXPECT_FALSE(list.entries(4).has_file_digest());
    EXPECT_TRUE(notesOn(notes, "/usr/bin/su"));
    const Tav::Measure::CompleteMeasureAsr result = MeasureReader::resultOf(tree.root(), list);
    EXPECT_EQ(result.state(), 3);
    EXPECT_EQ(result.measured_count(), 4);
    EXPECT_EQ(result.changed_count(), 1);
    EXPECT_EQ(result.missing_count(), 1);
    EXPECT_EQ(result.added_count(), 2);
    EXPECT_EQ(result.items_size(), 4);
    EXPECT_EQ(MeasureReader::resultOf(tree.root(), {}).state(), 4);
}

TEST(LoginReader, ReadsRecordsAndTheirPredecessors)
{
    const Tree tree;
    tree.file("/var/log/wtmp.1", loginRecord(USER_PROCESS, "alice", "tty1", "", 100));
    tree.file("/var/log/wtmp",
              loginRecord(BOOT_TIME, "reboot", "~", "6.1.0", 150)
                  + loginRecord(USER_PROCESS, "bob", "pts/3", "192.0.2.9", 200) + "torn");
    ReadingNotes notes;
    const auto logins = LoginReader::readLogins(tree.root(), notes);
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
    EXPECT_FALSE(LoginReader::readFailedLogins(tree.root(), notes));
    EXPECT_TRUE(notesOn(notes, "/var/log/btmp"));
}

TEST(AuditReader, CountsByTypeAndMonth)
{
    const Tree tree;
    plantUsers(tree);
    const qint64 now = noon(2025, 3, 15);
    tree.file("/var/log/wtmp",
              loginRecord(USER_PROCESS, "alice", "pts/0", "192.0.2.1", noon(2024, 3, 31))
                  + loginRecord(USER_PROCESS, "alice", "pts/0", "192.0.2.1", noon(2024, 4, 2))
                  + loginRecord(USER_PROCESS, "alice", "pts/0", "", noon(2025, 3, 1)));
    tree.file("/var/log/btmp", loginRecord(LOGIN_PROCESS, "guess", "ssh:notty", "192.0.2.66", noon(2025, 2, 10)));
    tree.file(
        "/var/log/auth.log",
        "2025-03-02T12:00:00.123456+00:00 host sudo:    alice : TTY=pts/0 ; PWD=/ ; USER=root ; COMMAND=/bin/ls -l\n"
        "2025-03-02T12:00:00+00:00 host sshd[7]: COMMAND=/no : such thing\n"
        "Mar  3 12:00:00 host sudo[55]: alice : 3 incorrect password attempts ; TTY=pts/0 ; USER=root ; COMMAND=/x\n");
    ReadingNotes notes;
    const AuditReader::Audit audit = AuditReader::readAudit(tree.root(), now, notes);
    EXPECT_TRUE(notes.isEmpty());
    EXPECT_EQ(audit.count.count, 6);
    ASSERT_EQ(audit.content.size(), 6);
    EXPECT_STREQ(audit.content.at(0).object, "/x");
    EXPECT_EQ(audit.content.at(0).time, noon(2025, 3, 3));
    EXPECT_EQ(audit.content.at(0).result, 0);
    EXPECT_EQ(audit.content.at(0).type, 2);
    EXPECT_EQ(audit.content.at(0).pid, 55);
    EXPECT_EQ(audit.content.at(0).uid, 1000U);
    EXPECT_STREQ(audit.content.at(1).object, "/bin/ls -l");
    EXPECT_EQ(audit.content.at(1).result, 1);
    EXPECT_STREQ(audit.content.at(3).userName, "guess");
    EXPECT_EQ(audit.content.at(3).uid, 4294967295U);
    EXPECT_STREQ(audit.content.at(3).detail, "failed log-in from 192.0.2.66");
    ASSERT_EQ(audit.typeCounts.size(), 2);
    EXPECT_EQ(audit.typeCounts.at(0).count, 4);
    EXPECT_EQ(audit.typeCounts.at(1).count, 2);
    ASSERT_EQ(audit.monthCounts.size(), 12);
    EXPECT_EQ(audit.monthCounts.at(0).year, 2024);
    EXPECT_EQ(audit.monthCounts.at(0).month, 4);
    EXPECT_EQ(audit.monthCounts.at(0).count, 1);
    EXPECT_EQ(audit.monthCounts.at(11).year, 2025);
    EXPECT_EQ(audit.monthCounts.at(11).month, 3);
    EXPECT_EQ(audit.monthCounts.at(11).count, 3);
    ASSERT_EQ(audit.monthFailCounts.size(), 12);
    EXPECT_EQ(audit.monthFailCounts.at(10).count, 1);
    EXPECT_EQ(audit.monthFailCounts.at(11).count, 1);
}

TEST(AuditReader, ALineWithoutAYearIsNotInTheFuture)
{
    const auto event = AuditReader::parseLine("Dec 31 12:00:00 host sudo: a : TTY=x ; COMMAND=/y", noon(2025, 1, 2));
    ASSERT_TRUE(event);
    EXPECT_EQ(event->time, noon(2024, 12, 31));
}

TEST(AuditReader, AHostWithoutRecordsHasNoSeries)
{
    const Tree tree;
    ReadingNotes notes;
    const AuditReader::Audit audit = AuditReader::readAudit(tree.root(), noon(2025, 3, 15), notes);
    EXPECT_EQ(audit.count.count, 0);
    EXPECT_TRUE(audit.typeCounts.isEmpty());
    EXPECT_TRUE(audit.monthCounts.isEmpty());
    EXPECT_TRUE(audit.monthFailCounts.isEmpty());
    EXPECT_EQ(notes.size(), 3);
}

TEST(ReinforceReader, ComparesTheKernelsParameters)
{
    const Tree tree;
    tree.file("/proc/sys/kernel/randomize_va_space", "2\n");
    tree.file("/proc/sys/kernel/kptr_restrict", "0\n");
    tree.file("/proc/sys/kernel/unprivileged_bpf_disabled", "1\n");
    tree.file("/proc/sys/fs/suid_dumpable", "0\n");
    tree.file("/sys/fs/selinux/enforce", "0");
    tree.file("/sys/kernel/security/lsm", "capability,selinux");
    ReadingNotes notes;
    const Tav::Reinforce::SecswitchAsr switches = ReinforceReader::readSwitches(tree.root(), notes);
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
    const Tav::AccessControl::AccessModeConfig mode = AccessReader::readMode(tree.root(), notes);
    EXPECT_EQ(mode.mode(), 1);
    EXPECT_THAT(mode.security_modules(), ElementsAre("capability", "selinux"));
}

TEST(BaselineReader, FindsTheFaultsOfTheConfiguration)
{
    const QJsonObject config = QJsonDocument::fromJson(R"({"enableConfig": [
        {"itemId": 1, "name": "a", "standardValue": "b", "checkValueScript": "/none.sh", "type": 1},
        {"itemId": 1, "name": 5, "standardValue": "b", "checkValueScript": "/none.sh"}]})")
                                   .object();
    EXPECT_THAT(BaselineList::idsOf(config), ElementsAre(1));
    const auto faults = BaselineReader::faultsOf(config, [](int) { return STBLEnableConfig(); });
    ASSERT_EQ(faults.items_size(), 4);
    EXPECT_EQ(faults.items(0).code(), 3);
    EXPECT_EQ(faults.items(1).code(), 2);
    EXPECT_EQ(faults.items(1).key(), "name");
    EXPECT_EQ(faults.items(2).code(), 1);
    EXPECT_EQ(faults.items(2).key(), "type");
    EXPECT_EQ(faults.items(3).code(), 5);
}

namespace
{
/// Stands in a manager's place and notes the thread on which it is fed.
class ThreadWitness : public QObject, public ITavHostInfoMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavHostInfoMgr)
public:
    QObject *getObject() override
    {
        return this;
    }
    void setResourceInfo(const STResourceInfoAsr &) override
    {
        threads.append(QThread::currentThread());
    }
    STResourceInfoAsr getResourceInfo() override
    {
        return {};
    }
    void setKernelSigState(const Tav::HostInfo::SystemFileStateAsr &) override
    {
        threads.append(QThread::currentThread());
    }
    Tav::HostInfo::SystemFileStateAsr getKernelSigState() override
    {
        return {};
    }

    QVector<QThread *> threads; ///< to be read after the feeding
};

constexpr int patience = 120 * 1000; ///< milliseconds; far more than a loaded machine needs

const AgentReading &readingOf(const AgentReport &report, const char *name)
{
    for (const AgentReading &reading : report.readings) {
        if (reading.name == QLatin1String(name)) {
            return reading;
        }
    }
    static const AgentReading none;
    ADD_FAILURE() << "no reading " << name;
    return none;
}
}

TEST(LocalAgent, TheManagersHoldWhatItReports)
{
    PluginHost host;
    TavGlobalInfoMgr::getInstance()->setSystemRoot(QStringLiteral(TAV_SOURCE_DIR "/share/demo"));
    LocalAgent agent;
    const AgentReport report = agent.feedAndWait(patience);
    TavGlobalInfoMgr::getInstance()->setSystemRoot(QString());
    ASSERT_TRUE(report.complete);
    for (const AgentReading &reading : report.readings) {
        EXPECT_TRUE(reading.fed) << qPrintable(reading.name);
        EXPECT_GE(reading.microseconds, 0);
    }
    const auto entries = [&report](const char *name) { return readingOf(report, name).entries; };

    const STResourceInfoAsr info = host.manager<ITavHostInfoMgr>()->getResourceInfo();
    EXPECT_GT(info.memoryTotal, 0U);
    EXPECT_GE(info.cpuCores, 1);
    EXPECT_GE(info.cpuUsage, 0);
    EXPECT_LE(info.cpuUsage, 1000);
    EXPECT_GT(info.processCount, 0);
    char hostName[TavTextLimits::HostName] = "";
    ASSERT_EQ(::gethostname(hostName, sizeof(hostName)), 0);
    EXPECT_STREQ(info.hostName, hostName);
    EXPECT_TRUE(host.manager<ITavHostInfoMgr>()->getKernelSigState().has_taint());

    auto *const access = host.manager<ITavAccessControlMgr>();
    EXPECT_EQ(access->getSystemUsers().size(), entries("users"));
    EXPECT_EQ(access->getUIUsers().size(), entries("users"));
    EXPECT_EQ(access->getUserDetail().size(), entries("users"));
    EXPECT_TRUE(access->hasUserDetail(QStringLiteral("root")));
    EXPECT_EQ(access->getObjectDetail().size(), entries("access objects"));
    EXPECT_EQ(access->getUIFiles().size(), entries("access objects"));
    EXPECT_EQ(access->getUIPriData().size(), 4);
    EXPECT_EQ(access->getUIObjectData().size(), 4);
    int objectCount = 0;
    for (int level = 0; level < 4; ++level) {
        objectCount += access->getObjectCount(true, level) + access->getObjectCount(false, level);
    }
    EXPECT_EQ(objectCount, entries("access objects"));
    EXPECT_EQ(access->getModeConfig().object_count(), entries("access objects"));

    auto *const net = host.manager<ITavNetControlMgr>();
    EXPECT_EQ(net->getDeviceInfo().devices_size(), entries("network devices"));
    const QVector<STProtoDataContainer> rows = net->getUIData();
    ASSERT_EQ(rows.size(), entries("network devices"));
    for (int i = 0; i < rows.size(); ++i) {
        Tav::NetControl::NetDeviceInfo device;
        ASSERT_TRUE(device.ParseFromString(rows.at(i).protoData));
        EXPECT_EQ(rows.at(i).index, i);
        EXPECT_EQ(device.name(), net->getDeviceInfo().devices(i).name());
    }

    auto *const devices = host.manager<ITavDevCtlMgr>();
    EXPECT_EQ(devices->getUsbInfoList().devices_size() + devices->getFuncEnableInfo().functions_size(),
              entries("USB devices"));

    auto *const protect = host.manager<ITavProtectMgr>();
    EXPECT_EQ(protect->getKernelContent().size(), entries("kernel modules"));
    EXPECT_EQ(protect->getKernelCount().count, entries("kernel modules"));
    EXPECT_EQ(protect->getKernelBlkContent().entries_size(), entries("blocked modules"));
    EXPECT_EQ(protect->getProContentList().size(), entries("processes"));
    EXPECT_EQ(protect->getDirContent().size(), entries("directories"));
    EXPECT_EQ(protect->getFileContent().size(), entries("files"));
    EXPECT_EQ(protect->getSoftUnloadContent().entries_size(), entries("software"));
    EXPECT_EQ(protect->getProtectUIData().size(), entries("protection rows"));
    EXPECT_EQ(protect->getProtectUIData().size(), protect->getProtoCount().total());
    EXPECT_EQ(protect->getSelfState().stateValue, 0);
    const QVector<STProProtectContentAsr> processes = protect->getProContentList();
    const auto self = std::find_if(processes.cbegin(), processes.cend(),
                                   [](const STProProtectContentAsr &process) { return process.pid == ::getpid(); });
    ASSERT_NE(self, processes.cend());
    EXPECT_EQ(self->uid, ::geteuid());

    EXPECT_EQ(host.manager<ITavProExceptionMgr>()->getUIData().size(), entries("process exceptions"));

    auto *const complete = host.manager<ITavCompleteProtectMgr>();
    EXPECT_EQ(complete->getImaList().size(), entries("kernel measurement"));
    EXPECT_EQ(complete->getCredibleVecUI().size(), entries("program measurement"));
    EXPECT_EQ(complete->getCredibleCount().total(), entries("program measurement"));
    EXPECT_STREQ(complete->getCurPathState().path, "");

    auto *const audit = host.manager<ITavAuditMgr>();
    EXPECT_EQ(audit->getAuditContent().size(), entries("audit events"));

    auto *const baseline = host.manager<ITavLineScanMgr>();
    EXPECT_GT(entries("baseline items"), 0);
    EXPECT_EQ(baseline->getLineCount().total(), entries("baseline items"));
    EXPECT_EQ(baseline->getLineScanContent().items_size(), entries("baseline items"));
    EXPECT_EQ(baseline->getItemConfig(101).itemId, 101);

    auto *const hardening = host.manager<ITavOneReinforceMgr>();
    EXPECT_EQ(hardening->getSecswitchContent().switches_size(), entries("hardening"));
    EXPECT_FALSE(hardening->getStateInfo().isEmpty());

    EXPECT_EQ(host.manager<ITavSystemConfigMgr>()->getServerInfo().address(), hostName);
    EXPECT_EQ(host.manager<ITavSystemConfigMgr>()->getOnlineState().state(), 1);
    EXPECT_EQ(host.manager<ITavAuthInfoMgr>()->getPwdChange().result(), 4);
}

TEST(LocalAgent, FeedsOnItsOwnThread)
{
    PluginHost host;
    ThreadWitness witness;
    // Of two objects under one key the newest is found: the witness stands before the real manager.
    TavGlobalInfoMgr::getObjectMgr()->registerObject(tavManagerKey("ITavHostInfoMgr"), &witness, false);
    const Tree tree;
    LocalAgent agent(tree.root());
    ASSERT_TRUE(agent.feedAndWait(patience).complete);
    EXPECT_THAT(witness.threads, ElementsAre(agent.workerThread(), agent.workerThread()));
    EXPECT_NE(agent.workerThread(), QThread::currentThread());
}

TEST(LocalAgent, AnEmptyHostGivesNotesAndNoEntries)
{
    PluginHost host;
    const Tree tree;
    LocalAgent agent(tree.root());
    const AgentReport report = agent.feedAndWait(patience);
    ASSERT_TRUE(report.complete);
    for (const char *const name : {"users", "access objects", "kernel modules", "blocked modules", "processes",
                                   "software", "process exceptions", "kernel measurement", "audit events"}) {
        EXPECT_EQ(readingOf(report, name).entries, 0) << name;
    }
    for (const char *const name : {"resources", "users", "kernel modules", "processes", "software"}) {
        EXPECT_FALSE(readingOf(report, name).notes.isEmpty()) << name;
    }
    EXPECT_TRUE(host.manager<ITavAuditMgr>()->getAuditMonthCount().isEmpty());
    EXPECT_EQ(host.manager<ITavCompleteProtectMgr>()->getImaInitState().initState, 3);
}

TEST(LocalAgent, ManagersThatAreNotThereAreReported)
{
    TavObjectMgr registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    const Tree tree;
    LocalAgent agent(tree.root());
    const AgentReport report = agent.feedAndWait(patience);
    TavGlobalInfoMgr::setObjectMgr(nullptr);
    EXPECT_TRUE(report.complete);
    EXPECT_FALSE(report.readings.isEmpty());
    for (const AgentReading &reading : report.readings) {
        EXPECT_FALSE(reading.fed);
        EXPECT_EQ(reading.notes.size(), 1);
    }
}

TEST(LocalAgent, TellsWhenItHasFinished)
{
    PluginHost host;
    const Tree tree;
    LocalAgent agent(tree.root());
    QEventLoop loop;
    QThread *thread = nullptr;
    AgentReport received;
    QObject::connect(&agent, &LocalAgent::finished, &loop, [&](const AgentReport &report) {
        thread = QThread::currentThread();
        received = report;
        loop.quit();
    });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    agent.feed();
    loop.exec();
    EXPECT_TRUE(received.complete);
    EXPECT_EQ(thread, QThread::currentThread());
}

TEST(LocalAgent, ADeadlineGivesAnIncompleteReport)
{
    PluginHost host;
    LocalAgent agent;
    EXPECT_FALSE(agent.feedAndWait(0).complete);
}

#include "LocalAgentTest.moc"
