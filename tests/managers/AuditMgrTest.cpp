#include "SampleValue.h"
#include "TavPluginHost.h"

#include "ITavAuditMgr.h"

#include <gtest/gtest.h>

using SampleValue::content;

namespace
{
using Months = QVector<STAuditMonthCountAsr>;

/// Twelve months with @p count events each.
Months year(int count)
{
    Months months;
    for (int month = 1; month <= 12; ++month) {
        months.append({2024, month, count});
    }
    return months;
}
}

class AuditMgr : public testing::Test
{
protected:
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavAuditMgr *const mgr = host.manager<ITavAuditMgr>();
};

TEST_F(AuditMgr, TheTotalIs0BeforeTheFirstSet)
{
    EXPECT_EQ(mgr->getAuditCount().count, 0);
}

TEST_F(AuditMgr, MonthAndFailSeriesAreIndependent)
{
    mgr->setAuditMonthCount(year(5));
    mgr->setAuditMonthFailCount(Months());
    EXPECT_EQ(content(mgr->getAuditMonthCount()), content(year(5)));
    EXPECT_EQ(content(mgr->getAuditMonthFailCount()), content(Months()));
}

TEST_F(AuditMgr, FailSeriesAndMonthSeriesAreIndependent)
{
    mgr->setAuditMonthFailCount(year(5));
    mgr->setAuditMonthCount(Months());
    EXPECT_EQ(content(mgr->getAuditMonthFailCount()), content(year(5)));
    EXPECT_EQ(content(mgr->getAuditMonthCount()), content(Months()));
}

TEST_F(AuditMgr, OneListSetAsBothSeriesIsHeldTwice)
{
    const Months months = year(5);
    mgr->setAuditMonthCount(months);
    mgr->setAuditMonthFailCount(months);
    mgr->getAuditMonthCount()[0].count = 6;
    mgr->setAuditMonthCount(year(7));
    EXPECT_EQ(content(mgr->getAuditMonthFailCount()), content(year(5)));
}

TEST_F(AuditMgr, AListReadIsUnchangedByALaterSet)
{
    mgr->setAuditMonthCount(year(5));
    const Months copy = mgr->getAuditMonthCount();
    mgr->setAuditMonthCount(year(6));
    EXPECT_EQ(content(copy), content(year(5)));
}

TEST_F(AuditMgr, ASeriesKeepsItsOrder)
{
    const Months backwards = {{2024, 3, 1}, {2024, 1, 2}, {2023, 12, 3}};
    mgr->setAuditMonthCount(backwards);
    EXPECT_EQ(content(mgr->getAuditMonthCount()), content(backwards));
}
