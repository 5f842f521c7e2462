#include "Edits.h"

#include "ITavAccessControlMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavProtectMgr.h"
#include "TavObjectMgr.h"

#include <algorithm>

namespace
{
QString check(bool checked)
{
    return checked ? "☑ " : "☐ ";
}

/// The check mark and the index of the row at @p position.
QString rowText(const QVector<STProtoDataContainer> &rows, int position)
{
    return check(rows[position].isChecked) + QString("index %1 at position %2").arg(rows[position].index).arg(position);
}

Edit rowByKey()
{
    auto &model = *tavObject<ITavProtectMgr>();
    Edit edit{"row by key", "ITavProtectMgr::updateUIItem", {}, {}};
    const QVector<STSystemProUIData> rows = model.getProtectUIData();
    if (!rows.isEmpty()) {
        STSystemProUIData row = rows.first();
        row.isChecked = !row.isChecked;
        model.updateUIItem(row);
        const STSystemProUIData edited = model.getProtectUIData().constFirst();
        edit.before = check(rows.first().isChecked) + QString(rows.first().title);
        edit.after = check(edited.isChecked) + QString(edited.title);
    }
    return edit;
}

Edit rowByIndex()
{
    auto &model = *tavObject<ITavCompleteProtectMgr>();
    Edit edit{"row by stored index", "ITavCompleteProtectMgr::setCredibleImteUI", {}, {}};
    const QVector<STProtoDataContainer> rows = model.getCredibleVecUI();
    if (!rows.isEmpty()) {
        STProtoDataContainer row = rows.last();
        row.isChecked = !row.isChecked;
        model.setCredibleImteUI(row);
        edit.before = rowText(rows, rows.size() - 1);
        edit.after = rowText(model.getCredibleVecUI(), rows.size() - 1);
    }
    return edit;
}

Edit rowByPosition()
{
    auto &model = *tavObject<ITavNetControlMgr>();
    Edit edit{"row by position", "ITavNetControlMgr::updateUIItem", {}, {}};
    const QVector<STProtoDataContainer> rows = model.getUIData();
    if (!rows.isEmpty()) {
        STProtoDataContainer row = rows.first();
        row.isChecked = !row.isChecked;
        row.index = 0;
        model.updateUIItem(row);
        edit.before = rowText(rows, 0);
        edit.after = rowText(model.getUIData(), 0);
    }
    return edit;
}

Edit allChecks()
{
    auto &model = *tavObject<ITavNetControlMgr>();
    Edit edit{"all checks", "ITavNetControlMgr::setAllCheck", {}, {}};
    const auto checked = [&model] {
        const QVector<STProtoDataContainer> rows = model.getUIData();
        const auto count = std::count_if(rows.begin(), rows.end(), [](const auto &row) { return row.isChecked; });
        return QString("%1 of %2 checked").arg(count).arg(rows.size());
    };
    if (!model.getUIData().isEmpty()) {
        edit.before = checked();
        model.setAllCheck(true);
        edit.after = checked();
    }
    return edit;
}

Edit deviceToggled()
{
    auto &model = *tavObject<ITavNetControlMgr>();
    Edit edit{"device toggled", "ITavNetControlMgr::reverseDeviceState", {}, {}};
    const auto state = [&model] {
        const Tav::NetControl::NetDeviceInfos infos = model.getDeviceInfo();
        return QString("%1: state %2")
            .arg(QString::fromStdString(infos.devices(0).name()))
            .arg(infos.devices(0).state());
    };
    // An index out of range would be fatal, so an empty list is not asked.
    if (model.getDeviceInfo().devices_size() > 0) {
        edit.before = state();
        model.reverseDeviceState(0);
        edit.after = state();
    }
    return edit;
}

Edit levelChecked()
{
    auto &model = *tavObject<ITavAccessControlMgr>();
    Edit edit{"level checked", "ITavAccessControlMgr::updateUIPriData", {}, {}};
    const auto level = [&model] { return QString("checked level %1").arg(model.getCheckPriLevel()); };
    const QVector<STAccessSetUIData> levels = model.getUIPriData();
    if (!levels.isEmpty()) {
        edit.before = level();
        // The manager lets several levels be checked, so the page unchecks the others itself.
        for (STAccessSetUIData entry : levels) {
            entry.checked = int(entry.level) == int(levels.last().level);
            model.updateUIPriData(entry);
        }
        edit.after = level();
    }
    return edit;
}
}

QVector<Edit> makeEdits()
{
    return {rowByKey(), rowByIndex(), rowByPosition(), allChecks(), deviceToggled(), levelChecked()};
}
