#include "UsbReader.h"

#include "NoteSources.h"
#include "PlantedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

TEST(UsbReader, ReadsDevicesWithTheirInterfaces)
{
    const PlantedHost host;
    const QByteArray stick = "/sys/bus/usb/devices/1-2.4";
    host.file(stick + "/busnum", "1\n");
    host.file(stick + "/devnum", "9\n");
    host.file(stick + "/idVendor", "0abc\n");
    host.file(stick + "/idProduct", "12ef\n");
    host.file(stick + "/manufacturer", "Example\n");
    host.file(stick + "/product", "Stick\n");
    host.file(stick + "/serial", "0001\n");
    host.file(stick + "/bDeviceClass", "00\n");
    host.file(stick + "/speed", "1.5\n");
    host.file(stick + "/version", " 2.10\n");
    host.file(stick + "/bMaxPower", "500mA\n");
    host.file(stick + "/authorized", "0\n");
    host.file(stick + "/removable", "removable\n");
    host.file(stick + ":1.0/bInterfaceClass", "08\n");
    host.link(stick + ":1.0/driver", "../../../../bus/usb/drivers/usb-storage");
    host.file(stick + ":1.1/bInterfaceClass", "ff\n");
    host.file("/sys/bus/usb/devices/usb1/busnum", "1\n");
    host.file("/sys/bus/usb/devices/usb1/devnum", "1\n");
    host.file("/sys/bus/usb/devices/1-0:1.0/bInterfaceClass", "09\n");
    host.directory("/sys/bus/usb/devices/1-3"); // has just been pulled out

    ReadingNotes notes;
    const Tav::DevControl::DevUsbInfoList list = UsbReader::readDevices(host.root(), notes);
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

    host.directory("/sys/module/usb_storage");
    const Tav::DevControl::DevFuncEnableInfo kinds = UsbReader::readKinds(host.root(), list, {"uas"});
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
    const PlantedHost host;
    ReadingNotes notes;
    EXPECT_EQ(UsbReader::readDevices(host.root(), notes).devices_size(), 0);
    EXPECT_TRUE(notesOn(notes, "/sys/bus/usb/devices"));
}
