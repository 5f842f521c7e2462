#include "Edits.h"

#include "ITavAccessControlMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavProtectMgr.h"
#include "TavCountedText.h"
#include "TavObjectMgr.h"

#include <algorithm>

namespace
{
Edit rowByKey()
{
    auto &model = *tavObject<ITavProtectMgr>();
    Edit edit{"row by key", "ITavProtectMgr::updateUIItem", "isChecked"};
    const QVector<STSystemProUIData> rows = model.getProtectUIData();
    if (!rows.isEmpty()) {
        STSystemProUIData row = rows.first();
        row.isChecked = !row.isChecked;
        model.updateUIItem(row);
        edit.target = row.title;
        edit.before = bool(rows.first().isChecked);
        edit.after = bool(model.getProtectUIData().constFirst().isChecked);
    }
    return edit;
}

Edit rowByIndex()
{
    auto &model = *tavObject<ITavCompleteProtectMgr>();
    Edit edit{"row by stored index", "ITavCompleteProtectMgr::setCredibleImteUI", "isChecked"};
    const QVector<STProtoDataContainer> rows = model.getCredibleVecUI();
    if (!rows.isEmpty()) {
        STProtoDataContainer row = rows.last();
        row.isChecked = !row.isChecked;
        model.setCredibleImteUI(row);
        edit.target = QString("row with index %1").arg(row.index);
        edit.before = rows.last().isChecked;
        edit.after = model.getCredibleVecUI().constLast().isChecked;
    }
    return edit;
}

Edit rowByPosition()
{
    auto &model = *tavObject<ITavNetControlMgr>();
    Edit edit{"row by position", "ITavNetControlMgr::updateUIItem", "isChecked"};
    const QVector<STProtoDataContainer> rows = model.getUIData();
    if (!rows.isEmpty()) {
        STProtoDataContainer row = rows.first();
        row.isChecked = !row.isChecked;
        row.index = 0;
        model.updateUIItem(row);
        edit.target = "row at position 0";
        edit.before = rows.first().isChecked;
        edit.after = model.getUIData().constFirst().isChecked;
    }
    return edit;
}

Edit allChecks()
{
    auto &model = *tavObject<ITavNetControlMgr>();
    Edit edit{"all checks", "ITavNetControlMgr::setAllCheck", "checked rows"};
    const auto checked = [&model] {
        const QVector<STProtoDataContainer> rows = model.getUIData();
        return int(std::count_if(rows.begin(), rows.end(), [](const auto &row) { return row.isChecked; }));
    };
    if (const int count = model.getUIData().size(); count > 0) {
        edit.target = countedText(count, "row");
        edit.before = checked();
        model.setAllCheck(true);
        edit.after = checked();
    }
    return edit;
}

Edit deviceToggled()
{
    auto &model = *tavObject<ITavNetControlMgr>();
    Edit edit{"device toggled", "ITavNetControlMgr::reverseDeviceState", "state"};
    // An index out of range would be fatal, so an empty list is not asked.
    if (const Tav::NetControl::NetDeviceInfos infos = model.getDeviceInfo(); infos.devices_size() > 0) {
        edit.target = QString::fromStdString(infos.devices(0).name());
        edit.before = infos.devices(0).state();
        model.reverseDeviceState(0);
        edit.after = model.getDeviceInfo().devices(0).state();
    }
    return edit;
}

Edit levelChecked()
{
    auto &model = *tavObject<ITavAccessControlMgr>();
    Edit edit{"level checked", "ITavAccessControlMgr::updateUIPriData", "checked level"};
    const QVector<STAccessSetUIData> levels = model.getUIPriData();
    if (!levels.isEmpty()) {
        edit.target = countedText(levels.size(), "level");
        edit.before = model.getCheckPriLevel();
        // The manager lets several levels be checked, so the page unchecks the others itself.
        for (STAccessSetUIData entry : levels) {
            entry.checked = int(entry.level) == int(levels.last().level);
            model.updateUIPriData(entry);
        }
        edit.after = model.getCheckPriLevel();
    }
    return edit;
}
}

QVector<Edit> makeEdits()
{
    return {rowByKey(), rowByIndex(), rowByPosition(), allChecks(), deviceToggled(), levelChecked()};
}
