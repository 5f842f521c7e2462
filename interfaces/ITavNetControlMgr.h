#pragma once

#include "Base.pb.h"
#include "NetControl.pb.h"
#include "STProtoDataContainer.h"

#include <QObject>
#include <QVector>

/**
 * @brief What the network-control pages show and edit.
 *
 * Any thread may call any operation. Getters return copies. Before the first set messages and list are empty, but for
 * the command state. Nothing is signalled on a set: readers ask again.
 *
 * All edits change the client's copy only. Nothing is sent to the agent: whoever edits has the command sent, too.
 */
class ITavNetControlMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the counts of devices and rules.
    virtual void setNetCount(const Tav::NetControl::NetControlCountAsr &count) = 0;
    /// Copy of the counts of devices and rules.
    [[nodiscard]] virtual Tav::NetControl::NetControlCountAsr getNetCount() = 0;

    /// Replaces all rows of the page's list.
    virtual void setUIData(const QVector<STProtoDataContainer> &rows) = 0;
    /// Copy of the rows of the page's list.
    [[nodiscard]] virtual QVector<STProtoDataContainer> getUIData() = 0;

    /// Replaces the state of the last network-control command.
    virtual void setState(const Tav::Base::CommandStateAsr &state) = 0;
    /// Copy of the state of the last network-control command; before the first set `state` is present and 0.
    [[nodiscard]] virtual Tav::Base::CommandStateAsr getState() = 0;

    /// Replaces the network devices.
    virtual void setDeviceInfo(const Tav::NetControl::NetDeviceInfos &info) = 0;
    /// Copy of the network devices.
    [[nodiscard]] virtual Tav::NetControl::NetDeviceInfos getDeviceInfo() = 0;

    /// Replaces the rules.
    virtual void setRuleInfo(const Tav::NetControl::NetRuleInfoAsr &info) = 0;
    /// Copy of the rules.
    [[nodiscard]] virtual Tav::NetControl::NetRuleInfoAsr getRuleInfo() = 0;

    /// Overwrites the row at the position `item.index`; at or beyond the end: nothing changes, none is added. Here the
    /// index is a position, and kept so: the number stored in the row overwritten plays no part. Never pass a negative.
    virtual void updateUIItem(const STProtoDataContainer &item) = 0;
    /// Sets the check mark of every row and nothing else.
    virtual void setAllCheck(bool check) = 0;

    /**
     * @brief Toggles the state of the device at this position, in the client's copy.
     *
     * | state before | state after |
     * |---|---|
     * | 1 | 0 |
     * | 0, any other value | 1 |
     * | absent | 1, present |
     *
     * The position must be one of the held list; any other is fatal to the process. Looking for the position and
     * toggling are two steps, which cannot be made one from outside. So one plugin sets a manager's devices and toggles
     * them, under one lock that all its pages share; the others only read.
     */
    virtual void reverseDeviceState(int index) = 0;
    /// Toggles the state of every device as reverseDeviceState() does.
    virtual void reverseDevicesState() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavNetControlMgr() = default;
};

Q_DECLARE_INTERFACE(ITavNetControlMgr, "ITavNetControlMgr")
