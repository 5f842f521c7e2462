#include "AreaPages.h"

#include "CellText.h"
#include "ITavAuditMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using namespace CellText;

QVector<PageSection> AreaPages::auditPage()
{
    auto &model = *tavObject<ITavAuditMgr>();
    const QVector<PageField<STAuditMonthCountAsr>> monthFields{
        {"month",
         [](const auto &row) { return QString("%1-%2").arg(row.year).arg(row.month, 2, 10, QLatin1Char('0')); }},
        {"events", [](const auto &row) { return number(row.count); }, CellKind::Number}};
    return {factsOf("Total", {{"events", number(model.getAuditCount().count)}}),
            tableOf<>("By type", model.getAuditTypeCount(),
                      {{"type", [](const auto &row) { return number(row.type); }, CellKind::Number},
                       {"events", [](const auto &row) { return number(row.count); }, CellKind::Number}}),
            tableOf<>("By month", model.getAuditMonthCount(), monthFields),
            tableOf<>("Failures by month", model.getAuditMonthFailCount(), monthFields),
            tableOf<>("Entries", model.getAuditContent(),
                      {{"time", [](const auto &row) { return timeText(row.time); }},
                       {"type", [](const auto &row) { return number(row.type); }, CellKind::Number},
                       {"result", [](const auto &row) { return row.result ? "ok" : "failed"; }},
                       {"user", [](const auto &row) { return text(row.userName); }},
                       {"process", [](const auto &row) { return text(row.processName); }},
                       {"detail", [](const auto &row) { return text(row.detail); }}})};
}
