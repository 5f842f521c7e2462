#include "TavAuditMgr.h"

#include "TavHeldValue.h"

TavAuditMgr::TavAuditMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavAuditMgr::getObject()
{
    return this;
}

void TavAuditMgr::setAuditCount(const STAuditCountAsr &value)
{
    TavHeldValue::set(mutex, auditCount, value);
}

STAuditCountAsr TavAuditMgr::getAuditCount()
{
    return TavHeldValue::get(mutex, auditCount);
}

void TavAuditMgr::setAuditTypeCount(const QVector<STAuditTypeCountAsr> &value)
{
    TavHeldValue::set(mutex, auditTypeCount, value);
}

QVector<STAuditTypeCountAsr> TavAuditMgr::getAuditTypeCount()
{
    return TavHeldValue::get(mutex, auditTypeCount);
}

void TavAuditMgr::setAuditMonthCount(const QVector<STAuditMonthCountAsr> &value)
{
    TavHeldValue::set(mutex, auditMonthCount, value);
}

QVector<STAuditMonthCountAsr> TavAuditMgr::getAuditMonthCount()
{
    return TavHeldValue::get(mutex, auditMonthCount);
}

void TavAuditMgr::setAuditContent(const QVector<STAuditContentAsr> &value)
{
    TavHeldValue::set(mutex, auditContent, value);
}

QVector<STAuditContentAsr> TavAuditMgr::getAuditContent()
{
    return TavHeldValue::get(mutex, auditContent);
}

void TavAuditMgr::setAuditMonthFailCount(const QVector<STAuditMonthCountAsr> &value)
{
    TavHeldValue::set(mutex, auditMonthFailCount, value);
}

QVector<STAuditMonthCountAsr> TavAuditMgr::getAuditMonthFailCount()
{
    return TavHeldValue::get(mutex, auditMonthFailCount);
}
