#include "ITavDevCtlMgr.h"
#include "ManagerFeeds.h"
#include "ModuleReader.h"
#include "UsbReader.h"

int ManagerFeeds::feedDevices(const QString &root, ITavDevCtlMgr &manager, ReadingNotes &notes)
{
    const Tav::DevControl::DevUsbInfoList devices = UsbReader::readDevices(root, notes);
    manager.setUsbInfoList(devices);

    const Tav::SystemProtect::KernelBlkProtectContentAsr blocked = ModuleReader::readBlockedModules(root, notes);
    QVector<QByteArray> blockedModules;
    for (const auto &entry : blocked.entries()) {
        blockedModules.append(QByteArray::fromStdString(entry.name()));
    }
    const Tav::DevControl::DevFuncEnableInfo kinds = UsbReader::readKinds(root, devices, blockedModules);
    manager.setFuncEnableInfo(kinds);
    return devices.devices_size() + kinds.functions_size();
}
