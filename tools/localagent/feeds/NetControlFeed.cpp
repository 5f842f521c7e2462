#include "AgentCalls.h"
#include "ManagerFeeds.h"
#include "NetReader.h"

int ManagerFeeds::feedNetwork(const QString &root, const AgentCalls<ITavNetControlMgr> &calls, ReadingNotes &notes)
{
    Tav::NetControl::NetDeviceInfos devices = NetReader::readDevices(root, notes);
    if (devices.devices_size() == 0 && root == QLatin1String("/")) {
        devices = NetReader::readLinks(notes);
    }
    NetReader::addAddresses(devices, notes);
    calls.make<&ITavNetControlMgr::setDeviceInfo>(devices);
    calls.make<&ITavNetControlMgr::setNetCount>(NetReader::countsOf(devices));
    calls.make<&ITavNetControlMgr::setRuleInfo>(NetReader::readRules(root, notes));

    Tav::Base::CommandStateAsr state;
    state.set_state(0);
    calls.make<&ITavNetControlMgr::setState>(state);

    QVector<STProtoDataContainer> rows;
    for (const auto &device : devices.devices()) {
        rows.append({false, rows.size(), device.SerializeAsString()});
    }
    calls.make<&ITavNetControlMgr::setUIData>(rows);
    return devices.devices_size();
}
