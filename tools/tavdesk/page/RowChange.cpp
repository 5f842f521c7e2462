#include "RowChange.h"

#include "CellText.h"

#include <QHash>
#include <QtAlgorithms>

#include <algorithm>
#include <numeric>

namespace
{
QVector<quint64> fingerprintsOf(const ValueTable &table)
{
    QVector<quint64> fingerprints(table.rowCount());
    for (int row = 0; row < fingerprints.size(); ++row) {
        fingerprints[row] = table.fingerprint(row);
    }
    return fingerprints;
}

/// Whether cells of this kind name what their row is about; others count and measure it.
bool isText(TavFields::Kind kind)
{
    using TavFields::Kind;
    return kind == Kind::Text || kind == Kind::Texts || kind == Kind::Digest || kind == Kind::Bytes;
}

/// @brief The cells in which two rows differ, a bit for each column, and whether they still are one row.
struct CellDifference {
    quint64 cells = 0;
    bool isSameRow = true;
};

CellDifference differenceOf(const ValueTable &before, int oldRow, const ValueTable &table, int row)
{
    CellDifference difference;
    const int columns = table.columns().size();
    int count = 0;
    for (int column = 0; column < columns; ++column) {
        if (table.cell(row, column) != before.cell(oldRow, column)) {
            difference.cells |= column < CellMarks::columns ? quint64(1) << column : 0;
            ++count;
        }
    }
    difference.isSameRow = 2 * count <= columns || !table.isList();
    return difference;
}

/// @brief Finds for each row of a table which row of the table before it is.
class Predecessors
{
public:
    Predecessors(const ShownRows &before, const ValueTable &table, const QVector<quint64> &fingerprints)
        : m_before(before)
        , m_table(table)
        , m_rows(fingerprints.size(), -1)
        , m_isTaken(before.fingerprints.size(), false)
    {
        // Most rows stay where they were, seen from the beginning or from the end.
        const QVector<quint64> &old = before.fingerprints;
        const int common = std::min(old.size(), fingerprints.size());
        for (int row = 0; row < common; ++row) {
            if (old[row] == fingerprints[row]) {
                take(row, row);
            }
        }
        for (int fromEnd = 1; fromEnd <= common; ++fromEnd) {
            const int row = fingerprints.size() - fromEnd;
            const int oldRow = old.size() - fromEnd;
            if (m_rows[row] < 0 && !m_isTaken[oldRow] && old[oldRow] == fingerprints[row]) {
                take(row, oldRow);
            }
        }
        takeMoved(fingerprints);
        takeChanged();
    }

    /// Row of the table before; -1 for a new row.
    int of(int row) const
    {
        return m_rows[row];
    }

    /// The cells in which the row is not what it was: a bit for each column.
    quint64 changedCells(int row) const
    {
        return m_changed.isEmpty() ? 0 : m_changed[row];
    }

private:
    void take(int row, int oldRow)
    {
        m_rows[row] = oldRow;
        m_isTaken[oldRow] = true;
    }

    void takeMoved(const QVector<quint64> &fingerprints)
    {
        QMultiHash<quint64, int> rest;
        for (int oldRow = m_isTaken.size() - 1; oldRow >= 0; --oldRow) {
            if (!m_isTaken[oldRow]) {
                rest.insert(m_before.fingerprints[oldRow], oldRow);
            }
        }
        for (int row = 0; row < m_rows.size() && !rest.isEmpty(); ++row) {
            if (m_rows[row] >= 0) {
                continue;
            }
            if (const auto found = rest.find(fingerprints[row]); found != rest.end()) {
                take(row, *found);
                rest.erase(found);
            }
        }
    }

    /// Behind the row that was before it, or at its own place, a row may stand that is the same in half its cells.
    void takeChanged()
    {
        for (int row = 0; row < m_rows.size(); ++row) {
            const int next = row == 0 ? 0 : m_rows[row - 1] + 1;
            if (m_rows[row] < 0 && !takeIfSimilar(row, next)) {
                takeIfSimilar(row, row);
            }
        }
    }

    bool takeIfSimilar(int row, int oldRow)
    {
        if (oldRow >= m_isTaken.size() || m_isTaken[oldRow]) {
            return false;
        }
        const CellDifference difference = differenceOf(*m_before.table, oldRow, m_table, row);
        if (!difference.isSameRow) {
            return false;
        }
        if (m_changed.isEmpty()) {
            m_changed.resize(m_rows.size());
        }
        m_changed[row] = difference.cells;
        take(row, oldRow);
        return true;
    }

    const ShownRows &m_before;
    const ValueTable &m_table;
    QVector<int> m_rows;
    QVector<bool> m_isTaken;
    QVector<quint64> m_changed;
};

/// What a cell shows; of a digest all digits, so that who searches for one from elsewhere finds it.
QString searchedText(const ValueColumn &column, const QVariant &value)
{
    return column.kind == TavFields::Kind::Digest ? value.toString() : CellText::of(column, value);
}

bool isShown(const ValueTable &table, int row, const QString &filter)
{
    for (int column = 0; column < table.columns().size(); ++column) {
        if (searchedText(table.columns()[column], table.cell(row, column)).contains(filter, Qt::CaseInsensitive)) {
            return true;
        }
    }
    return false;
}

/// The rows that the filter leaves. What it left before is not asked again.
QVector<int> filtered(const ShownRows &before, const ValueTable &table, const QString &filter,
                      const Predecessors *predecessors)
{
    QVector<int> rows;
    if (filter.isEmpty()) {
        rows.resize(table.rowCount());
        std::iota(rows.begin(), rows.end(), 0);
        return rows;
    }
    const bool isKnown = predecessors && before.arrangement.filter == filter;
    QVector<bool> wasShown(isKnown ? before.fingerprints.size() : 0, false);
    for (int i = 0; isKnown && i < before.order.size(); ++i) {
        wasShown[before.order[i]] = true;
    }
    for (int row = 0; row < table.rowCount(); ++row) {
        const int oldRow = isKnown ? predecessors->of(row) : -1;
        const bool isSame = oldRow >= 0 && predecessors->changedCells(row) == 0;
        if (isSame ? wasShown[oldRow] : isShown(table, row, filter)) {
            rows.append(row);
        }
    }
    return rows;
}

/// @brief What a row is sorted by: nothing before anything, numbers by their value, all else by its text, which is as
/// good as an empty one when it is null.
struct SortKey {
    bool isValid;
    quint64 number;
    QString text;
    int row;
};

SortKey keyOf(const QVariant &value, int row)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return {false, 0, {}, row};
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return {true, value.toULongLong(), {}, row};
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return {true, quint64(value.toLongLong()) ^ quint64(1) << 63, {}, row}; // negative ones come first
    case QMetaType::QStringList:
    case QMetaType::QVariantList: // has no text as a whole
        return {true, 0, value.toStringList().join(QStringLiteral(", ")), row};
    default:
        return {true, 0, value.toString(), row};
    }
}

void sort(QVector<int> &rows, const ValueTable &table, const Arrangement &arrangement)
{
    std::vector<SortKey> keys;
    keys.reserve(std::size_t(rows.size()));
    for (const int row : qAsConst(rows)) {
        keys.push_back(keyOf(table.cell(row, arrangement.column), row));
    }
    const bool isDescending = arrangement.order == Qt::DescendingOrder;
    std::sort(keys.begin(), keys.end(), [isDescending](const SortKey &left, const SortKey &right) {
        const SortKey &a = isDescending ? right : left;
        const SortKey &b = isDescending ? left : right;
        if (a.isValid != b.isValid) {
            return b.isValid;
        }
        if (a.number != b.number) {
            return a.number < b.number;
        }
        const int text = QString::compare(a.text, b.text, Qt::CaseInsensitive);
        return text != 0 ? text < 0 : left.row < right.row;
    });
    std::transform(keys.begin(), keys.end(), rows.begin(), [](const SortKey &key) { return key.row; });
}

/// @p positions, or none when each is where it was.
QVector<int> moved(const QVector<int> &positions)
{
    for (int position = 0; position < positions.size(); ++position) {
        if (positions[position] != position) {
            return positions;
        }
    }
    return {};
}

void fillSteps(RowChange &change, const ShownRows &before, const Predecessors *predecessors)
{
    QVector<int> oldPositions(before.fingerprints.size(), -1); // by row of the table before
    for (int position = 0; position < before.order.size(); ++position) {
        oldPositions[before.order[position]] = position;
    }
    QVector<int> toStaying(before.order.size(), -1);
    QVector<int> toOrder;
    QVector<int> added; // positions
    for (int position = 0; position < change.rows.order.size(); ++position) {
        const int row = change.rows.order[position];
        const int oldRow = predecessors ? predecessors->of(row) : row;
        const int oldPosition = oldRow < 0 ? -1 : oldPositions[oldRow];
        if (oldPosition < 0) {
            added.append(position);
            continue;
        }
        toStaying[oldPosition] = change.staying.size();
        change.staying.append(oldRow);
        change.arrived.append(row);
        toOrder.append(position);
    }
    for (int position = 0; position < before.order.size(); ++position) {
        if (toStaying[position] < 0) {
            toStaying[position] = change.staying.size();
            change.staying.append(before.order[position]);
            ++change.gone;
        }
    }
    for (const int position : qAsConst(added)) {
        change.arrived.append(change.rows.order[position]);
        toOrder.append(position);
    }
    change.added = added.size();
    change.toStaying = moved(toStaying);
    change.toOrder = moved(toOrder);
}

/// The marks that have not faded, and those of what changes now.
QVector<CellMarks> marksAfter(const ShownRows &before, int rows, const Predecessors *predecessors, qint64 now)
{
    const bool areAllOver = std::all_of(before.marks.begin(), before.marks.end(),
                                        [now](const CellMarks &marks) { return marks.until <= now; });
    if (areAllOver && !predecessors) {
        return {};
    }
    QVector<CellMarks> marks(rows);
    for (int row = 0; row < rows; ++row) {
        const int oldRow = predecessors ? predecessors->of(row) : row;
        const quint64 changed = oldRow < 0 ? ~quint64(0) : predecessors ? predecessors->changedCells(row) : 0;
        if (changed != 0) {
            marks[row] = {changed, now + CellMarks::duration};
        } else if (!areAllOver && before.marks[oldRow].until > now) {
            marks[row] = before.marks[oldRow];
        }
    }
    return marks;
}
}

std::optional<RowChange> changeOf(const ShownRows &before, const ValueTablePointer &table,
                                  const Arrangement &arrangement, qint64 now)
{
    const bool isFirst = !before.table;
    bool isSame = !isFirst && (table == before.table || table->sharesRowsWith(*before.table));
    if (isSame && arrangement == before.arrangement) {
        return {};
    }
    RowChange change;
    change.rows.table = table;
    change.rows.arrangement = arrangement;
    change.rows.fingerprints = isSame ? before.fingerprints : fingerprintsOf(*table);
    isSame = isSame || (!isFirst && change.rows.fingerprints == before.fingerprints);

    std::optional<Predecessors> found;
    if (!isFirst && !isSame) {
        found.emplace(before, *table, change.rows.fingerprints);
    }
    const Predecessors *const predecessors = found ? &*found : nullptr;
    if (isSame && arrangement == before.arrangement) {
        change.rows.order = before.order;
    } else {
        change.rows.order = filtered(before, *table, arrangement.filter, predecessors);
        if (arrangement.column >= 0) {
            sort(change.rows.order, *table, arrangement);
        }
    }
    if (isFirst) {
        return change;
    }
    if (arrangement.key == before.arrangement.key) { // what is held under another key is not what has changed
        change.rows.marks = marksAfter(before, table->rowCount(), predecessors, now);
    }
    change.hasChangedCells = predecessors;
    fillSteps(change, before, predecessors);
    return change;
}

bool isSameRow(const ValueTable &before, int oldRow, const ValueTable &table, int row)
{
    if (row >= table.rowCount()) {
        return false;
    }
    int texts = 0;
    for (int column = 0; column < table.columns().size(); ++column) {
        if (isText(table.columns()[column].kind)) {
            ++texts;
            if (table.cell(row, column) != before.cell(oldRow, column)) {
                return false;
            }
        }
    }
    return texts > 0 || table.fingerprint(row) == before.fingerprint(oldRow);
}
