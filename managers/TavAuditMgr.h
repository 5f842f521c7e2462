#pragma once

#include "ITavAuditMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The audit statistics.
class TavAuditMgr : public QObject, public ITavAuditMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavAuditMgr)
public:
    explicit TavAuditMgr(QObject *parent);

    QObject *getObject() override;
    void setAuditCount(const STAuditCountAsr &value) override;
    STAuditCountAsr getAuditCount() override;

    // The class's own virtual order from here on differs from the interface's, which callers bind to.
    void setAuditTypeCount(const QVector<STAuditTypeCountAsr> &value) override;
    QVector<STAuditTypeCountAsr> getAuditTypeCount() override;
    void setAuditMonthCount(const QVector<STAuditMonthCountAsr> &value) override;
    QVector<STAuditMonthCountAsr> getAuditMonthCount() override;
    void setAuditContent(const QVector<STAuditContentAsr> &value) override;
    QVector<STAuditContentAsr> getAuditContent() override;
    void setAuditMonthFailCount(const QVector<STAuditMonthCountAsr> &value) override;
    QVector<STAuditMonthCountAsr> getAuditMonthFailCount() override;

private:
    QMutex mutex;
    STAuditCountAsr auditCount = {};
    QVector<STAuditContentAsr> auditContent;
    QVector<STAuditTypeCountAsr> auditTypeCount;
    QVector<STAuditMonthCountAsr> auditMonthCount;
    QVector<STAuditMonthCountAsr> auditMonthFailCount;
};
