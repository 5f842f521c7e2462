#include "UsbReader.h"

#include "HostFile.h"
#include "TextBuffer.h"

#include <QDateTime>

#include <algorithm>

namespace
{
const QByteArray devicesDirectory = QByteArrayLiteral("/sys/bus/usb/devices");

void readInterfaces(const QString &root, const QVector<QByteArray> &names, const QByteArray &device,
                    Tav::DevControl::DevUsbInfo &info)
{
    // The interfaces of the device "1-2" are "1-2:1.0" and so on, those of the hub of bus 1 "1-0:1.0".
    const QByteArray prefix = (device.startsWith("usb") ? device.mid(3) + "-0" : device) + ':';
    for (const QByteArray &name : names) {
        if (!name.startsWith(prefix)) {
            continue;
        }
        const QByteArray directory = devicesDirectory + '/' + name;
        if (const auto interfaceClass = HostFile::number(root, directory + "/bInterfaceClass", 16)) {
            info.add_interface_classes(static_cast<quint32>(*interfaceClass));
            const QByteArray driver = HostFile::link(root, directory + "/driver").value_or(QByteArray());
            info.add_drivers(TextBuffer::message(driver.mid(driver.lastIndexOf('/') + 1)));
        }
    }
}

/// "2.00" as 0x0200.
quint32 binaryCodedDecimal(const QByteArray &version)
{
    return QByteArray(version).replace(".", "").toUInt(nullptr, 16);
}

Tav::DevControl::DevUsbInfo readUsbDevice(const QString &root, const QByteArray &name)
{
    const QByteArray directory = devicesDirectory + '/' + name + '/';
    const auto decimal = [&](const char *attribute) { return HostFile::number(root, directory + attribute); };
    const auto hexadecimal = [&](const char *attribute) { return HostFile::number(root, directory + attribute, 16); };
    const auto text
        = [&](const char *attribute) { return TextBuffer::message(HostFile::attribute(root, directory + attribute)); };
    Tav::DevControl::DevUsbInfo info;
    if (const auto bus = decimal("busnum")) {
        info.set_bus(static_cast<qint32>(*bus));
    }
    if (const auto device = decimal("devnum")) {
        info.set_device(static_cast<qint32>(*device));
    }
    if (const auto vendor = hexadecimal("idVendor")) {
        info.set_vendor_id(static_cast<quint32>(*vendor));
    }
    if (const auto product = hexadecimal("idProduct")) {
        info.set_product_id(static_cast<quint32>(*product));
    }
    info.set_vendor_name(text("manufacturer"));
    info.set_product_name(text("product"));
    info.set_serial(text("serial"));
    if (const auto deviceClass = hexadecimal("bDeviceClass")) {
        info.set_device_class(static_cast<quint32>(*deviceClass));
    }
    if (const auto subclass = hexadecimal("bDeviceSubClass")) {
        info.set_device_subclass(static_cast<quint32>(*subclass));
    }
    if (const auto protocol = hexadecimal("bDeviceProtocol")) {
        info.set_device_protocol(static_cast<quint32>(*protocol));
    }
    info.set_port_path(TextBuffer::message(name));
    bool ok = false;
    const double megabits = HostFile::attribute(root, directory + "speed").toDouble(&ok);
    if (ok) {
        info.set_speed(qRound(megabits * 1000));
    }
    const QByteArray version = HostFile::attribute(root, directory + "version");
    if (!version.isEmpty()) {
        info.set_usb_version(binaryCodedDecimal(version));
    }
    const QByteArray power = HostFile::attribute(root, directory + "bMaxPower");
    if (power.endsWith("mA")) {
        info.set_max_power(power.left(power.size() - 2).toInt());
    }
    if (const auto authorized = decimal("authorized")) {
        info.set_authorized(*authorized != 0);
        info.set_state(*authorized != 0 ? 1 : 0);
    }
    const QByteArray removable = HostFile::attribute(root, directory + "removable");
    if (removable == "removable" || removable == "fixed") {
        info.set_removable(removable == "removable");
    }
    return info;
}

/// How one kind of device is recognised.
struct Kind {
    int id; ///< `func_id` in the message
    const char *name;
    const char *directory; ///< has one entry for each device; null for kinds that are told by their USB interface class
    const char *prefix; ///< what the names of the devices' entries begin with
    int usbClass; ///< USB interface class; -1 for kinds that have a directory
    QVector<QByteArray> modules; ///< the usual drivers
};

int deviceCount(const QString &root, const Kind &kind, const Tav::DevControl::DevUsbInfoList &usbDevices)
{
    if (kind.directory != nullptr) {
        const QVector<QByteArray> names = HostFile::entries(root, kind.directory);
        return static_cast<int>(std::count_if(
            names.cbegin(), names.cend(), [&kind](const QByteArray &name) { return name.startsWith(kind.prefix); }));
    }
    return static_cast<int>(
        std::count_if(usbDevices.devices().begin(), usbDevices.devices().end(), [&kind](const auto &device) {
            const auto &classes = device.interface_classes();
            return std::find(classes.begin(), classes.end(), static_cast<quint32>(kind.usbClass)) != classes.end();
        }));
}

int wirelessCount(const QString &root)
{
    int count = 0;
    const QVector<QByteArray> names = HostFile::entries(root, "/sys/class/net");
    for (const QByteArray &name : names) {
        count += HostFile::exists(root, "/sys/class/net/" + name + "/phy80211") ? 1 : 0;
    }
    return count;
}

/// Serial ports with hardware behind them: a port of the usual controller without hardware has the type 0.
int serialPortCount(const QString &root)
{
    int count = 0;
    const QVector<QByteArray> names = HostFile::entries(root, "/sys/class/tty");
    for (const QByteArray &name : names) {
        const bool ownDriver = name.startsWith("ttyUSB") || name.startsWith("ttyACM") || name.startsWith("ttyAMA");
        const bool controller
            = name.startsWith("ttyS") && HostFile::number(root, "/sys/class/tty/" + name + "/type").value_or(0) > 0;
        count += ownDriver || controller ? 1 : 0;
    }
    return count;
}
}

Tav::DevControl::DevUsbInfoList UsbReader::readDevices(const QString &root, ReadingNotes &notes)
{
    const QVector<QByteArray> names = HostFile::entriesOrNote(root, devicesDirectory, notes);
    QVector<Tav::DevControl::DevUsbInfo> devices;
    for (const QByteArray &name : names) {
        // The names of interfaces hold a colon. A device that was pulled out meanwhile has no bus number any more.
        if (name.contains(':')) {
            continue;
        }
        Tav::DevControl::DevUsbInfo device = readUsbDevice(root, name);
        if (device.has_bus()) {
            readInterfaces(root, names, name, device);
            devices.append(device);
        }
    }
    std::stable_sort(devices.begin(), devices.end(), [](const auto &a, const auto &b) {
        return a.bus() != b.bus() ? a.bus() < b.bus() : a.device() < b.device();
    });
    Tav::DevControl::DevUsbInfoList list;
    for (const auto &device : qAsConst(devices)) {
        list.add_devices()->CopyFrom(device);
    }
    return list;
}

Tav::DevControl::DevFuncEnableInfo UsbReader::readKinds(const QString &root,
                                                        const Tav::DevControl::DevUsbInfoList &usbDevices,
                                                        const QVector<QByteArray> &blockedModules)
{
    static const QVector<Kind> kinds{
        {1, "USB storage", nullptr, nullptr, 0x08, {"usb_storage", "uas"}},
        {2, "USB input", nullptr, nullptr, 0x03, {"usbhid"}},
        {3, "Bluetooth", "/sys/class/bluetooth", "hci", -1, {"bluetooth", "btusb"}},
        {4, "wireless network", "/sys/class/net", nullptr, -1, {"cfg80211"}},
        {5, "optical drive", "/sys/class/block", "sr", -1, {"sr_mod"}},
        {6, "camera", "/sys/class/video4linux", "video", -1, {"uvcvideo"}},
        {7, "sound", "/sys/class/sound", "card", -1, {"snd"}},
        {8, "printer", nullptr, nullptr, 0x07, {"usblp"}},
        {9, "serial port", "/sys/class/tty", nullptr, -1, {"8250", "usbserial", "cdc_acm"}},
        {10, "card reader", "/sys/class/mmc_host", "mmc", -1, {"mmc_core"}},
    };
    Tav::DevControl::DevFuncEnableInfo info;
    info.set_control_enabled(false);
    for (const Kind &kind : kinds) {
        auto *const function = info.add_functions();
        function->set_func_id(kind.id);
        function->set_name(kind.name);
        bool blocked = false;
        for (const QByteArray &module : kind.modules) {
            if (HostFile::exists(root, "/sys/module/" + module)) {
                function->add_modules(module.toStdString());
            }
            blocked = blocked || blockedModules.contains(module);
        }
        const int count = kind.id == 4 ? wirelessCount(root)
            : kind.id == 9             ? serialPortCount(root)
                                       : deviceCount(root, kind, usbDevices);
        function->set_device_count(count);
        function->set_enabled(!blocked);
        function->set_supported(count > 0 || function->modules_size() > 0);
    }
    return info;
}
