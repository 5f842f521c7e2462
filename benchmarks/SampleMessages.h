#pragma once

#include "Base.pb.h"
#include "DevControl.pb.h"

/// The answer to a command, with a text too long to be kept inside a string object.
inline Tav::Base::CommandStateAsr smallMessage()
{
    Tav::Base::CommandStateAsr message;
    message.set_command(17);
    message.set_state(1);
    message.set_message("the device could not be switched");
    return message;
}

/// A list of USB devices, each with what a real one has.
inline Tav::DevControl::DevUsbInfoList messageOfEntries(int count)
{
    Tav::DevControl::DevUsbInfoList message;
    for (int i = 0; i < count; ++i) {
        Tav::DevControl::DevUsbInfo &device = *message.add_devices();
        device.set_bus(1 + i / 127);
        device.set_device(1 + i % 127);
        device.set_vendor_id(0x1d6b);
        device.set_product_id(0x0002);
        device.set_vendor_name("A Maker of Storage Devices");
        device.set_product_name("Portable Storage Device");
        device.set_serial("0123456789ABCDEF" + std::to_string(i));
        device.add_interface_classes(8);
        device.add_drivers("usb-storage");
        device.set_port_path("1-2.4");
        device.set_speed(480000);
        device.set_state(1);
    }
    return message;
}
