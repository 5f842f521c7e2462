#include "ITavNetControlMgr.h"
#include "ManagerFeeds.h"
#include "NetReader.h"

int ManagerFeeds::feedNetwork(const QString &root, ITavNetControlMgr &manager, ReadingNotes &notes)
{
    Tav::NetControl::NetDeviceInfos devices = NetReader::readDevices(root, notes);
    if (devices.devices_size() == 0 && root == QLatin1String("/")) {
        devices = NetReader::readLinks(notes);
    }
    NetReader::addAddresses(devices, notes);
    manager.setDeviceInfo(devices);
    manager.setNetCount(NetReader::countsOf(devices));
    manager.setRuleInfo(NetReader::readRules(root, notes));

    Tav::Base::CommandStateAsr state;
    state.set_state(0);
    manager.setState(state);

    QVector<STProtoDataContainer> rows;
    for (const auto &device : devices.devices()) {
        rows.append({false, rows.size(), device.SerializeAsString()});
    }
    manager.setUIData(rows);
    return devices.devices_size();
}
