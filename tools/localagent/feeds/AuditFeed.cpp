#include "AuditReader.h"
#include "ITavAuditMgr.h"
#include "ManagerFeeds.h"

#include <QDateTime>

int ManagerFeeds::feedAudit(const QString &root, ITavAuditMgr &manager, ReadingNotes &notes)
{
    const AuditReader::Audit audit = AuditReader::readAudit(root, QDateTime::currentSecsSinceEpoch(), notes);
    manager.setAuditCount(audit.count);
    manager.setAuditContent(audit.content);
    manager.setAuditTypeCount(audit.typeCounts);
    manager.setAuditMonthCount(audit.monthCounts);
    manager.setAuditMonthFailCount(audit.monthFailCounts);
    return audit.content.size();
}
