#pragma once

#include "ReadingNote.h"

class ITavAccessControlMgr;
class ITavAuditMgr;
class ITavAuthInfoMgr;
class ITavCompleteProtectMgr;
class ITavDevCtlMgr;
class ITavHostInfoMgr;
class ITavLineScanMgr;
class ITavNetControlMgr;
class ITavOneReinforceMgr;
class ITavProExceptionMgr;
class ITavProtectMgr;
class ITavSystemConfigMgr;
template<class Manager>
class AgentCalls;

/**
 * @brief Each function reads one thing below the root, makes the calls on its manager as a page controller would, and
 * returns the number of entries handed over. They are implemented in one file per manager.
 */
namespace ManagerFeeds
{
int feedServer(const QString &root, const AgentCalls<ITavSystemConfigMgr> &calls, ReadingNotes &notes);
int feedAccount(const QString &root, const AgentCalls<ITavAuthInfoMgr> &calls, ReadingNotes &notes);
int feedResources(const QString &root, const AgentCalls<ITavHostInfoMgr> &calls, ReadingNotes &notes);
int feedKernelState(const QString &root, const AgentCalls<ITavHostInfoMgr> &calls, ReadingNotes &notes);
int feedDevices(const QString &root, const AgentCalls<ITavDevCtlMgr> &calls, ReadingNotes &notes);
int feedNetwork(const QString &root, const AgentCalls<ITavNetControlMgr> &calls, ReadingNotes &notes);
int feedUsers(const QString &root, const AgentCalls<ITavAccessControlMgr> &calls, ReadingNotes &notes);
int feedObjects(const QString &root, const AgentCalls<ITavAccessControlMgr> &calls, ReadingNotes &notes);
int feedAccessMode(const QString &root, const AgentCalls<ITavAccessControlMgr> &calls, ReadingNotes &notes);
int feedModules(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedBlockedModules(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedProcesses(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedDirectories(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedFiles(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedSoftware(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedProtectionStates(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedProtectionRows(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &notes);
int feedExceptions(const QString &root, const AgentCalls<ITavProExceptionMgr> &calls, ReadingNotes &notes);
int feedKernelMeasurement(const QString &root, const AgentCalls<ITavCompleteProtectMgr> &calls, ReadingNotes &notes);
int feedProgramMeasurement(const QString &root, const AgentCalls<ITavCompleteProtectMgr> &calls, ReadingNotes &notes);
int feedAudit(const QString &root, const AgentCalls<ITavAuditMgr> &calls, ReadingNotes &notes);
int feedBaseline(const QString &root, const AgentCalls<ITavLineScanMgr> &calls, ReadingNotes &notes);
int feedHardening(const QString &root, const AgentCalls<ITavOneReinforceMgr> &calls, ReadingNotes &notes);
}
