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

/**
 * @brief Each function reads one thing below the root, hands it to the manager as its page controller would, and
 * returns the number of entries handed over. They are implemented in one file per manager.
 */
namespace ManagerFeeds
{
int feedServer(const QString &root, ITavSystemConfigMgr &manager, ReadingNotes &notes);
int feedAccount(const QString &root, ITavAuthInfoMgr &manager, ReadingNotes &notes);
int feedResources(const QString &root, ITavHostInfoMgr &manager, ReadingNotes &notes);
int feedKernelState(const QString &root, ITavHostInfoMgr &manager, ReadingNotes &notes);
int feedDevices(const QString &root, ITavDevCtlMgr &manager, ReadingNotes &notes);
int feedNetwork(const QString &root, ITavNetControlMgr &manager, ReadingNotes &notes);
int feedUsers(const QString &root, ITavAccessControlMgr &manager, ReadingNotes &notes);
int feedObjects(const QString &root, ITavAccessControlMgr &manager, ReadingNotes &notes);
int feedAccessMode(const QString &root, ITavAccessControlMgr &manager, ReadingNotes &notes);
int feedModules(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedBlockedModules(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedProcesses(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedDirectories(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedFiles(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedSoftware(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedProtectionStates(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedProtectionRows(const QString &root, ITavProtectMgr &manager, ReadingNotes &notes);
int feedExceptions(const QString &root, ITavProExceptionMgr &manager, ReadingNotes &notes);
int feedKernelMeasurement(const QString &root, ITavCompleteProtectMgr &manager, ReadingNotes &notes);
int feedProgramMeasurement(const QString &root, ITavCompleteProtectMgr &manager, ReadingNotes &notes);
int feedAudit(const QString &root, ITavAuditMgr &manager, ReadingNotes &notes);
int feedBaseline(const QString &root, ITavLineScanMgr &manager, ReadingNotes &notes);
int feedHardening(const QString &root, ITavOneReinforceMgr &manager, ReadingNotes &notes);
}
