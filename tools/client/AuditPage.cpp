#include "AreaPages.h"

#include "ITavAuditMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

QVector<PageSection> AreaPages::auditPage()
{
    auto &model = *tavObject<ITavAuditMgr>();
    const QVector<PageField<STAuditMonthCountAsr>> monthFields{
        {"month",
         [](const auto &row) { return QString("%1-%2").arg(row.year).arg(row.month, 2, 10, QLatin1Char('0')); }},
        column<&STAuditMonthCountAsr::count>("events")};
    return {
        factsOf("Total", {{"events", QString::number(model.getAuditCount().count)}}),
        tableOf<>("By type", model.getAuditTypeCount(),
                  {column<&STAuditTypeCountAsr::type>("type"), column<&STAuditTypeCountAsr::count>("events")}),
        tableOf<>("By month", model.getAuditMonthCount(), monthFields),
        tableOf<>("Failures by month", model.getAuditMonthFailCount(), monthFields),
        tableOf<>("Entries", model.getAuditContent(),
                  {column<&STAuditContentAsr::time>("time"), column<&STAuditContentAsr::type>("type"),
                   column<&STAuditContentAsr::result>("result"), column<&STAuditContentAsr::userName>("user"),
                   column<&STAuditContentAsr::processName>("process"), column<&STAuditContentAsr::detail>("detail")})};
}
