#pragma once

#include "STAuditContentAsr.h"
#include "STAuditCountAsr.h"
#include "STAuditMonthCountAsr.h"
#include "STAuditTypeCountAsr.h"

#include <QObject>
#include <QVector>

/**
 * @brief What the audit page shows.
 *
 * Any thread may call any operation. Getters return copies, 0 or empty lists before the first set. Nothing is
 * signalled on a set: readers ask again.
 */
class ITavAuditMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the total number of events.
    virtual void setAuditCount(const STAuditCountAsr &count) = 0;
    /// Copy of the total number of events.
    [[nodiscard]] virtual STAuditCountAsr getAuditCount() = 0;

    /// Replaces the audit entries.
    virtual void setAuditContent(const QVector<STAuditContentAsr> &content) = 0;
    /// Copy of the audit entries.
    [[nodiscard]] virtual QVector<STAuditContentAsr> getAuditContent() = 0;

    /// Replaces the numbers of events by type.
    virtual void setAuditTypeCount(const QVector<STAuditTypeCountAsr> &counts) = 0;
    /// Copy of the numbers of events by type.
    [[nodiscard]] virtual QVector<STAuditTypeCountAsr> getAuditTypeCount() = 0;

    /// Replaces the numbers of all events by month.
    virtual void setAuditMonthCount(const QVector<STAuditMonthCountAsr> &counts) = 0;
    /// Copy of the numbers of all events by month.
    [[nodiscard]] virtual QVector<STAuditMonthCountAsr> getAuditMonthCount() = 0;

    /// Replaces the numbers of failed events by month.
    virtual void setAuditMonthFailCount(const QVector<STAuditMonthCountAsr> &counts) = 0;
    /// Copy of the numbers of failed events by month.
    [[nodiscard]] virtual QVector<STAuditMonthCountAsr> getAuditMonthFailCount() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavAuditMgr() = default;
};

Q_DECLARE_INTERFACE(ITavAuditMgr, "ITavAuditMgr")
