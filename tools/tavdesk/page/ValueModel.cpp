#include "ValueModel.h"

#include "CellText.h"
#include "MarkColor.h"
#include "PlainToolTip.h"
#include "ShortText.h"

#include <chrono>

namespace
{
using TavFields::Kind;

constexpr int repaintInterval = 250; // milliseconds between two shades of a mark that fades
constexpr int mostLetters = 1000; // that a cell shows: views lay out all that they are given
}

ValueModel::ValueModel(bool isEditable, QObject *parent) : QAbstractTableModel(parent), m_isEditable(isEditable)
{
    m_fading.setInterval(repaintInterval);
    connect(&m_fading, &QTimer::timeout, this, [this] {
        if (now() >= m_markedUntil) {
            m_fading.stop();
        }
        if (!m_rows.order.isEmpty()) {
            emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::BackgroundRole});
        }
    });
}

qint64 ValueModel::now()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

ShownRows ValueModel::apply(const RowChange &change)
{
    ShownRows before = m_rows;
    if (!before.table) {
        beginResetModel();
        m_rows = change.rows;
        endResetModel();
        emit applied();
        return before;
    }
    move(change.toStaying, change.staying);
    const int staying = change.staying.size() - change.gone;
    if (change.gone > 0) {
        beginRemoveRows({}, staying, staying + change.gone - 1);
        m_rows.order.resize(staying);
        endRemoveRows();
    }
    m_rows = change.rows;
    m_rows.order = change.arrived;
    if (change.added > 0) {
        m_rows.order.resize(staying);
        beginInsertRows({}, staying, staying + change.added - 1);
        m_rows.order = change.arrived;
        endInsertRows();
    }
    move(change.toOrder, change.rows.order);
    if (change.hasChangedCells && !m_rows.order.isEmpty()) {
        m_markedUntil = now() + CellMarks::duration;
        m_fading.start();
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
    emit applied();
    return before;
}

void ValueModel::move(const QVector<int> &positions, const QVector<int> &order)
{
    if (positions.isEmpty()) {
        return;
    }
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    m_rows.order = order;
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &index : before) {
        after.append(createIndex(positions[index.row()], index.column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ValueModel::setFilter(const QString &text)
{
    m_arrangement.filter = text;
    emit arrangementChanged();
}

void ValueModel::setKey(const QJsonArray &key)
{
    m_arrangement.key = key;
    emit arrangementChanged();
}

void ValueModel::sort(int column, Qt::SortOrder order)
{
    m_arrangement.column = column;
    m_arrangement.order = order;
    emit arrangementChanged();
}

int ValueModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.order.size();
}

int ValueModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_rows.table ? 0 : m_rows.table->columns().size();
}

QVariant ValueModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const ValueColumn &column = m_rows.table->columns()[index.column()];
    const QVariant value = m_rows.table->cell(m_rows.order[index.row()], index.column());
    const bool isCheckMark = column.kind == Kind::CheckMark;
    switch (role) {
    case Qt::DisplayRole:
        return isCheckMark ? QVariant() : shortText(CellText::of(column, value), mostLetters);
    case Qt::CheckStateRole:
        return isCheckMark ? QVariant(value.toBool() ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::AccessibleTextRole:
        return isCheckMark ? fullText(column, value) : QVariant();
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (column.isNumber() ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::BackgroundRole:
        return background(m_rows.order[index.row()], index.column());
    case Qt::ToolTipRole:
        return ValueModel::toolTip(column, value);
    default:
        return {};
    }
}

QVariant ValueModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical || section < 0 || section >= columnCount()) {
        return {};
    }
    const ValueColumn &column = m_rows.table->columns()[section];
    switch (role) {
    case Qt::DisplayRole:
        return column.title();
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (column.isNumber() ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ToolTipRole: {
        const QString unit = CellText::unitOf(column.kind);
        return unit.isEmpty() ? column.name : tr("%1, in %2").arg(column.name, unit);
    }
    default:
        return {};
    }
}

Qt::ItemFlags ValueModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const bool isCheckable
        = m_isEditable && index.isValid() && m_rows.table->columns()[index.column()].kind == Kind::CheckMark;
    return isCheckable ? flags | Qt::ItemIsUserCheckable : flags;
}

bool ValueModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable)) {
        return false;
    }
    emit checkRequested(index.row(), value.toInt() == Qt::Checked);
    return false;
}

QVariant ValueModel::background(int row, int column) const
{
    if (m_rows.marks.isEmpty() || column >= CellMarks::columns) {
        return {};
    }
    const CellMarks &marks = m_rows.marks[row];
    const qint64 left = marks.until - now();
    if (left <= 0 || (marks.cells >> column & 1) == 0) {
        return {};
    }
    return markColor(double(left) / CellMarks::duration);
}

QString ValueModel::fullText(const ValueColumn &column, const QVariant &value)
{
    if (column.kind != Kind::CheckMark) {
        return CellText::inFull(column, value);
    }
    return value.toBool() ? tr("checked") : tr("not checked");
}

QString ValueModel::toolTip(const ValueColumn &column, const QVariant &value)
{
    if (!value.isValid()) {
        return tr("%1: absent").arg(column.name);
    }
    const QString unit = CellText::unitOf(column.kind);
    const QString raw = column.kind == Kind::Bytes ? QString::fromLatin1(value.toByteArray().left(64).toHex(' '))
        : column.kind == Kind::Texts               ? value.toStringList().join(QLatin1Char('\n'))
                                                   : value.toString();
    return plainToolTip((column.name + QStringLiteral(": ") + raw + QLatin1Char(' ') + unit).trimmed());
}
