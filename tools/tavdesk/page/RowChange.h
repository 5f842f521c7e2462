#pragma once

#include "ValueTable.h"

#include <QJsonArray>
#include <QVector>

#include <optional>

/// @brief Which rows of a table are shown, and in which order.
struct Arrangement {
    QString filter; ///< rows with this text in one of their cells, whatever its case; all when empty
    int column = -1; ///< sorted by the values of this column; -1 for the table's own order
    Qt::SortOrder order = Qt::AscendingOrder;
    QJsonArray key = {}; ///< of a keyed table, what is held under this key alone; all of it when empty

    bool operator==(const Arrangement &other) const
    {
        return filter == other.filter && column == other.column && order == other.order && key == other.key;
    }
};

/// @brief The cells of a row that have changed of late.
struct CellMarks {
    static constexpr int columns = 64; ///< the first ones; no record has more

    quint64 cells = 0; ///< a bit for each column
    qint64 until = 0; ///< milliseconds of the clock that changeOf() was given

    static constexpr int duration = 2000; ///< milliseconds
};

/// @brief The rows that a view shows of a table.
struct ShownRows {
    ValueTablePointer table; ///< null before the first
    Arrangement arrangement;
    QVector<quint64> fingerprints; ///< by row of the table
    QVector<int> order; ///< rows of the table as they are shown
    QVector<CellMarks> marks; ///< by row of the table; empty for none
};

/**
 * @brief How the rows that are shown become others, in the few steps that a model announces to its views.
 *
 * However many rows come, go and move: those that go are moved to the end and removed there, those that come are added
 * at the end and moved to their places. A row that has changed in some cells stays the same row.
 */
struct RowChange {
    ShownRows rows; ///< afterwards

    QVector<int> staying; ///< rows of the table before: those that stay, in the order to come, then those that go
    QVector<int> toStaying; ///< by position before: the place in `staying`; empty when all are there already
    int gone = 0;

    int added = 0;
    QVector<int> arrived; ///< rows of the table afterwards: those that stayed, then the added ones
    QVector<int> toOrder; ///< by place in `arrived`: the position afterwards; empty when all are there already

    bool hasChangedCells = false;
};

/// The change from @p before to the rows of @p table in this arrangement; none when all stays as it is. @p now is the
/// time, in milliseconds. It takes time for long lists: to be called on a worker.
std::optional<RowChange> changeOf(const ShownRows &before, const ValueTablePointer &table,
                                  const Arrangement &arrangement, qint64 now);

/// Whether @p row of @p table is about the same thing as @p oldRow of @p before, so that an edit of the one may be made
/// on the other: all its texts are equal, while numbers and check marks may have changed; without texts, all its cells.
bool isSameRow(const ValueTable &before, int oldRow, const ValueTable &table, int row);
