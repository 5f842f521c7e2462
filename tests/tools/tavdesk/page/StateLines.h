#pragma once

#include "RecordTable.h"
#include "RowChange.h"
#include "STStateInfo.h"

#include <initializer_list>

/// A list of two texts a row, as small as lists are.
inline ValueTablePointer stateLines(const QVector<STStateInfo> &lines)
{
    return std::make_shared<RecordTable<STStateInfo>>(lines);
}

/// The first texts of the rows that are shown.
inline QStringList shownItems(const ShownRows &rows)
{
    QStringList items;
    for (const int row : rows.order) {
        items.append(rows.table->cell(row, 0).toString());
    }
    return items;
}
