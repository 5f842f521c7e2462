#include "AgentCalls.h"
#include "ManagerFeeds.h"
#include "ModuleReader.h"
#include "UsbReader.h"

int ManagerFeeds::feedDevices(const QString &root, const AgentCalls<ITavDevCtlMgr> &calls, ReadingNotes &notes)
{
    const Tav::DevControl::DevUsbInfoList devices = UsbReader::readDevices(root, notes);
    calls.make<&ITavDevCtlMgr::setUsbInfoList>(devices);

    const Tav::SystemProtect::KernelBlkProtectContentAsr blocked = ModuleReader::readBlockedModules(root, notes);
    QVector<QByteArray> blockedModules;
    for (const auto &entry : blocked.entries()) {
        blockedModules.append(QByteArray::fromStdString(entry.name()));
    }
    const Tav::DevControl::DevFuncEnableInfo kinds = UsbReader::readKinds(root, devices, blockedModules);
    calls.make<&ITavDevCtlMgr::setFuncEnableInfo>(kinds);
    return devices.devices_size() + kinds.functions_size();
}
