#include "AgentCalls.h"
#include "BaselineList.h"
#include "BaselineReader.h"
#include "InstallationPaths.h"
#include "ManagerFeeds.h"

int ManagerFeeds::feedBaseline(const QString &, const AgentCalls<ITavLineScanMgr> &calls, ReadingNotes &notes)
{
    calls.make<&ITavLineScanMgr::loadJsonConfig>();
    const QJsonObject config = BaselineList::read();
    if (config.isEmpty()) {
        notes.append({InstallationPaths::baseline(), QStringLiteral("cannot be read or holds no items")});
    }

    // The checks are not run: every item stands there as not checked.
    Tav::Reinforce::LineScanContentAsr content;
    const QVector<int> ids = BaselineList::idsOf(config);
    for (const int id : ids) {
        auto *const item = content.add_items();
        item->set_item_id(id);
        item->set_state(0);
        item->set_standard_value(calls.make<&ITavLineScanMgr::getItemConfig>(id).standardValue.toStdString());
    }
    calls.make<&ITavLineScanMgr::setLineScanContent>(content);

    const int total = content.items_size();
    Tav::Reinforce::LineCountAsr count;
    count.set_total(total);
    count.set_not_checked(total);
    calls.make<&ITavLineScanMgr::setLineCount>(count);

    Tav::Reinforce::LineScanStateAsr state;
    state.set_scan_id(0);
    state.set_state(0);
    state.set_total_count(total);
    calls.make<&ITavLineScanMgr::setscanState>(state);

    calls.make<&ITavLineScanMgr::setScanItemConfigErr>(
        BaselineReader::faultsOf(config, [&calls](int id) { return calls.make<&ITavLineScanMgr::getItemConfig>(id); }));

    Tav::Reinforce::LineScanLevelState level;
    level.set_reached_level(0);
    level.set_scan_time(0);
    calls.make<&ITavLineScanMgr::setLineLevel>(level);
    return total;
}
