#include "AgentCalls.h"
#include "DirectoryReader.h"
#include "ManagerFeeds.h"
#include "ModuleReader.h"
#include "ProcessReader.h"
#include "SoftwareReader.h"
#include "UserReader.h"

int ManagerFeeds::feedModules(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes)
{
    const QVector<STKernelContentAsr> records = ModuleReader::readModuleRecords(root, notes);
    calls.make<&ITavProtectMgr::setKernelContent>(records);
    calls.make<&ITavProtectMgr::setKernelCount>(STProtectCountAsr{records.size()});
    return records.size();
}

int ManagerFeeds::feedBlockedModules(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes)
{
    const Tav::SystemProtect::KernelBlkProtectContentAsr content = ModuleReader::readBlockedModules(root, notes);
    calls.make<&ITavProtectMgr::setKernelBlkContent>(content);
    calls.make<&ITavProtectMgr::setKernelBlkMode>(STStateAsr{content.mode(), 0});
    return content.entries_size();
}

int ManagerFeeds::feedProcesses(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes)
{
    const QVector<STProProtectContentAsr> records
        = ProcessReader::records(ProcessReader::readProcesses(root, notes), UserReader::readNames(root));
    calls.make<&ITavProtectMgr::setProContentList>(records);
    calls.make<&ITavProtectMgr::setProCount>(STProtectCountAsr{records.size()});
    return records.size();
}

int ManagerFeeds::feedDirectories(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes)
{
    const QVector<STDirProtectContentAsr> records = DirectoryReader::readDirectories(root, notes);
    calls.make<&ITavProtectMgr::setDirContent>(records);
    calls.make<&ITavProtectMgr::setDirCount>(STProtectCountAsr{records.size()});
    return records.size();
}

int ManagerFeeds::feedFiles(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes)
{
    const QVector<STFileProtectContentAsr> records = DirectoryReader::readFiles(root, notes);
    calls.make<&ITavProtectMgr::setFileContent>(records);
    calls.make<&ITavProtectMgr::setFileCount>(STProtectCountAsr{records.size()});
    return records.size();
}

int ManagerFeeds::feedSoftware(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes)
{
    constexpr int installedSoftware = 7;
    const Tav::SystemProtect::SoftUnloadProtectContentAsr content = SoftwareReader::readProtectedPackages(root, notes);
    calls.make<&ITavProtectMgr::setSoftUnloadContent>(content);
    calls.make<&ITavProtectMgr::setSoftUnloadMode>(STStateAsr{content.mode(), 0});
    Tav::SystemProtect::ContentCountAsr count;
    count.set_type(installedSoftware);
    count.set_total(content.entries_size());
    count.set_enabled(content.entries_size());
    calls.make<&ITavProtectMgr::setSoftUnloadCount>(count);
    return content.entries_size();
}

int ManagerFeeds::feedProtectionStates(const QString &, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &)
{
    // The local agent protects nothing and destroys nothing.
    constexpr STStateAsr notInForce{0, 0};
    calls.make<&ITavProtectMgr::setSelfState>(notInForce);
    calls.make<&ITavProtectMgr::setKernelState>(notInForce);
    calls.make<&ITavProtectMgr::setProState>(notInForce);
    calls.make<&ITavProtectMgr::setDirState>(notInForce);
    calls.make<&ITavProtectMgr::setFileState>(notInForce);

    // All kinds together, hence without a type.
    Tav::SystemProtect::ContentCountAsr count;
    count.set_total(
        calls.make<&ITavProtectMgr::getKernelCount>().count + calls.make<&ITavProtectMgr::getProCount>().count
        + calls.make<&ITavProtectMgr::getDirCount>().count + calls.make<&ITavProtectMgr::getFileCount>().count);
    count.set_enabled(0);
    calls.make<&ITavProtectMgr::setProtoCount>(count);

    Tav::SystemProtect::FileSmashAsr smash;
    smash.set_task_id(0);
    smash.set_state(0);
    calls.make<&ITavProtectMgr::setFileSmash>(smash);
    return 7;
}
