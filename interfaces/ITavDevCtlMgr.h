#pragma once

#include "DevControl.pb.h"

#include <QObject>

/**
 * @brief Holds the USB devices of the host and the switches per kind of device.
 *
 * Any thread may call any operation. Getters return copies, empty messages before the first set. Nothing is
 * signalled on a set: readers ask again.
 */
class ITavDevCtlMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the list of USB devices.
    virtual void setUsbInfoList(const Tav::DevControl::DevUsbInfoList &list) = 0;
    /// Copy of the list of USB devices.
    [[nodiscard]] virtual Tav::DevControl::DevUsbInfoList getUsbInfoList() = 0;

    /// Replaces the switches per kind of device.
    virtual void setFuncEnableInfo(const Tav::DevControl::DevFuncEnableInfo &info) = 0;
    /// Copy of the switches per kind of device.
    [[nodiscard]] virtual Tav::DevControl::DevFuncEnableInfo getFuncEnableInfo() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavDevCtlMgr() = default;
};

Q_DECLARE_INTERFACE(ITavDevCtlMgr, "ITavDevCtlMgr")
