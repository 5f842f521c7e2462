#include "BaselineList.h"
#include "BaselineReader.h"
#include "InstallationPaths.h"
#include "ITavLineScanMgr.h"
#include "ManagerFeeds.h"

int ManagerFeeds::feedBaseline(const QString &, ITavLineScanMgr &manager, ReadingNotes &notes)
{
    manager.loadJsonConfig();
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
        item->set_standard_value(manager.getItemConfig(id).standardValue.toStdString());
    }
    manager.setLineScanContent(content);

    const int total = content.items_size();
    Tav::Reinforce::LineCountAsr count;
    count.set_total(total);
    count.set_not_checked(total);
    manager.setLineCount(count);

    Tav::Reinforce::LineScanStateAsr state;
    state.set_scan_id(0);
    state.set_state(0);
    state.set_total_count(total);
    manager.setscanState(state);

    manager.setScanItemConfigErr(
        BaselineReader::faultsOf(config, [&manager](int id) { return manager.getItemConfig(id); }));

    Tav::Reinforce::LineScanLevelState level;
    level.set_reached_level(0);
    level.set_scan_time(0);
    manager.setLineLevel(level);
    return total;
}
