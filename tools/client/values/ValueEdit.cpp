#include "ValueEdit.h"

#include <algorithm>

namespace
{
ValueEdit checkOf(const PageValue &value, const ValueTable &table, int row, int column, bool checked)
{
    QJsonObject argument = table.argument(row);
    argument.insert(table.columns()[column].name, checked);
    if (value.isByPosition) {
        argument.insert("index", row);
    }
    return {value.rowEdit, {argument}};
}
}

QVector<ValueEdit> ValueEdits::check(const PageValue &value, const ValueTable &table, const QVector<int> &rows,
                                     bool checked)
{
    const auto &columns = table.columns();
    const auto mark = std::find_if(columns.begin(), columns.end(),
                                   [](const ValueColumn &column) { return column.kind == TavFields::Kind::CheckMark; });
    if (value.rowEdit.isEmpty() || mark == columns.end()) {
        return {};
    }
    const int column = static_cast<int>(mark - columns.begin());
    QVector<ValueEdit> edits;
    for (int row = 0; value.isExclusive && checked && row < table.rowCount(); ++row) {
        if (!rows.contains(row) && table.cell(row, column).toBool()) {
            edits.append(checkOf(value, table, row, column, false));
        }
    }
    for (const int row : rows) {
        edits.append(checkOf(value, table, row, column, checked));
    }
    return edits;
}

QVector<ValueEdit> ValueEdits::checkAll(const PageValue &value, bool checked)
{
    if (!value.checkAll.isEmpty()) {
        return {{value.checkAll, {checked}}};
    }
    return checked || value.uncheckAll.isEmpty() ? QVector<ValueEdit>() : QVector<ValueEdit>{{value.uncheckAll, {}}};
}

QVector<ValueEdit> ValueEdits::toggle(const PageValue &value, const QVector<int> &rows)
{
    QVector<ValueEdit> edits;
    for (const int row : rows) {
        edits.append({value.toggleRow, {row}});
    }
    return edits;
}

QVector<ValueEdit> ValueEdits::toggleAll(const PageValue &value)
{
    return {{value.toggleAll, {}}};
}
