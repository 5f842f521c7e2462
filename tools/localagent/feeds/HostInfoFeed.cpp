#include "HostReader.h"
#include "ITavHostInfoMgr.h"
#include "ManagerFeeds.h"

int ManagerFeeds::feedResources(const QString &root, ITavHostInfoMgr &manager, ReadingNotes &notes)
{
    constexpr int sampleMilliseconds = 100;
    manager.setResourceInfo(HostReader::readResourceInfo(root, sampleMilliseconds, notes));
    return 1;
}

int ManagerFeeds::feedKernelState(const QString &root, ITavHostInfoMgr &manager, ReadingNotes &notes)
{
    manager.setKernelSigState(HostReader::readKernelState(root, notes));
    return 1;
}
