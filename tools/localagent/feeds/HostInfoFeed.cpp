#include "AgentCalls.h"
#include "HostReader.h"
#include "ManagerFeeds.h"

int ManagerFeeds::feedResources(const QString &root, const AgentCalls<ITavHostInfoMgr> &calls, ReadingNotes &notes)
{
    constexpr int sampleMilliseconds = 100;
    calls.make<&ITavHostInfoMgr::setResourceInfo>(HostReader::readResourceInfo(root, sampleMilliseconds, notes));
    return 1;
}

int ManagerFeeds::feedKernelState(const QString &root, const AgentCalls<ITavHostInfoMgr> &calls, ReadingNotes &notes)
{
    calls.make<&ITavHostInfoMgr::setKernelSigState>(HostReader::readKernelState(root, notes));
    return 1;
}
