#include "AgentCalls.h"
#include "AuditReader.h"
#include "ManagerFeeds.h"

#include <QDateTime>

int ManagerFeeds::feedAudit(const QString &root, const AgentCalls<ITavAuditMgr> &calls, ReadingNotes &notes)
{
    const AuditReader::Audit audit = AuditReader::readAudit(root, QDateTime::currentSecsSinceEpoch(), notes);
    calls.make<&ITavAuditMgr::setAuditCount>(audit.count);
    calls.make<&ITavAuditMgr::setAuditContent>(audit.content);
    calls.make<&ITavAuditMgr::setAuditTypeCount>(audit.typeCounts);
    calls.make<&ITavAuditMgr::setAuditMonthCount>(audit.monthCounts);
    calls.make<&ITavAuditMgr::setAuditMonthFailCount>(audit.monthFailCounts);
    return audit.content.size();
}
