#include "DirectoryReader.h"
#include "ITavProtectMgr.h"
#include "ManagerFeeds.h"
#include "ModuleReader.h"
#include "ProcessReader.h"
#include "SoftwareReader.h"
#include "UserReader.h"

int ManagerFeeds::feedModules(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes)
{
    const QVector<STKernelContentAsr> records = ModuleReader::readModuleRecords(root, notes);
    manager.setKernelContent(records);
    manager.setKernelCount({records.size()});
    return records.size();
}

int ManagerFeeds::feedBlockedModules(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes)
{
    const Tav::SystemProtect::KernelBlkProtectContentAsr content = ModuleReader::readBlockedModules(root, notes);
    manager.setKernelBlkContent(content);
    manager.setKernelBlkMode({content.mode(), 0});
    return content.entries_size();
}

int ManagerFeeds::feedProcesses(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes)
{
    const QVector<STProProtectContentAsr> records
        = ProcessReader::records(ProcessReader::readProcesses(root, notes), UserReader::readNames(root));
    manager.setProContentList(records);
    manager.setProCount({records.size()});
    return records.size();
}

int ManagerFeeds::feedDirectories(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes)
{
    const QVector<STDirProtectContentAsr> records = DirectoryReader::readDirectories(root, notes);
    manager.setDirContent(records);
    manager.setDirCount({records.size()});
    return records.size();
}

int ManagerFeeds::feedFiles(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes)
{
    const QVector<STFileProtectContentAsr> records = DirectoryReader::readFiles(root, notes);
    manager.setFileContent(records);
    manager.setFileCount({records.size()});
    return records.size();
}

int ManagerFeeds::feedSoftware(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes)
{
    constexpr int installedSoftware = 7;
    const Tav::SystemProtect::SoftUnloadProtectContentAsr content = SoftwareReader::readProtectedPackages(root, notes);
    manager.setSoftUnloadContent(content);
    manager.setSoftUnloadMode({content.mode(), 0});
    Tav::SystemProtect::ContentCountAsr count;
    count.set_type(installedSoftware);
    count.set_total(content.entries_size());
    count.set_enabled(content.entries_size());
    manager.setSoftUnloadCount(count);
    return content.entries_size();
}

int ManagerFeeds::feedProtectionStates(const QString &, ITavProtectMgr &manager, ReadingNotes &)
{
    // The local agent protects nothing and destroys nothing.
    constexpr STStateAsr notInForce{0, 0};
    manager.setSelfState(notInForce);
    manager.setKernelState(notInForce);
    manager.setProState(notInForce);
    manager.setDirState(notInForce);
    manager.setFileState(notInForce);

    // All kinds together, hence without a type.
    Tav::SystemProtect::ContentCountAsr count;
    count.set_total(manager.getKernelCount().count + manager.getProCount().count + manager.getDirCount().count
                    + manager.getFileCount().count);
    count.set_enabled(0);
    manager.setProtoCount(count);

    Tav::SystemProtect::FileSmashAsr smash;
    smash.set_task_id(0);
    smash.set_state(0);
    manager.setFileSmash(smash);
    return 7;
}
