#include "ValueList.h"

#include "FilterBar.h"
#include "LetterWidth.h"
#include "RoomyButton.h"
#include "TableLook.h"
#include "TableStyle.h"
#include "ValueModel.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableView>

#include <algorithm>

namespace
{
constexpr int widestColumn = 48; // letters
}

ValueList::ValueList(const PageValue &value, const QString &part, ValueModel &model, const QString &name,
                     QWidget *parent)
    : QWidget(parent)
    , m_value(value)
    , m_model(model)
    , m_isToggled(!value.toggleRow.isEmpty() && !part.isEmpty())
    , m_keys(new QComboBox)
    , m_filter(new FilterBar(name, this))
    , m_view(new QTableView)
{
    connect(m_filter, &FilterBar::textChanged, &model, &ValueModel::setFilter);

    m_keys->setAccessibleName(tr("Key of %1").arg(name));
    m_keys->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_keys->addItem(tr("all keys"), QJsonArray());
    m_keys->hide();
    connect(m_keys, QOverload<int>::of(&QComboBox::currentIndexChanged), &model,
            [this](int index) { m_model.setKey(m_keys->itemData(index).toJsonArray()); });

    auto *const style = new TableStyle;
    style->setParent(m_view);
    m_view->setStyle(style);
    m_view->horizontalHeader()->setStyle(style);
    m_view->setAccessibleName(name);
    setTableLook(*m_view);
    m_view->setModel(&model); // after the heights, or each row would be given another one
    const auto isNumber = [&model](int column) { return model.rows().table->columns()[column].isNumber(); };
    m_view->horizontalHeader()->setStretchLastSection(!isNumber(model.columnCount() - 1)); // far from its name
    m_view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder); // the list's own order
    m_view->setSortingEnabled(true);

    auto *const bar = new QHBoxLayout;
    bar->addWidget(m_keys);
    bar->addWidget(m_filter, 1);
    bar->addStretch(1);
    addEdits(*bar, part);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    layout->addLayout(bar);
    layout->addWidget(m_view, 1);

    const auto addKey = [this](const QKeySequence &key, auto slot) {
        auto *const action = new QAction(m_view);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, slot);
        m_view->addAction(action);
    };
    addKey(QKeySequence::Copy, [this] { emit copyRequested(rowsForKeys()); });
    addKey(Qt::Key_Space, [this] { toggleOrCheckSelected(); });
    addKey(Qt::CTRL + Qt::SHIFT + Qt::Key_S, [this] { sortByCurrentColumn(); });

    connect(&model, &ValueModel::checkRequested, this,
            [this](int row, bool checked) { check({m_model.rows().order[row]}, checked); });
    connect(&model, &ValueModel::applied, this, &ValueList::updateCount);
    if (model.rowCount() == 0) { // the widths fit the titles alone
        m_widthsOfTitles = connect(&model, &ValueModel::rowsInserted, this, &ValueList::fitFirstRows);
    }
    updateCount();
    setColumnWidths();
    connect(m_view->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
        if (column + 1 < m_model.columnCount()) { // the last one takes what is left, whoever changes that
            disconnect(m_widthsOfTitles); // they are somebody's own now
        }
    });
}

void ValueList::setKeys(const QVector<QJsonArray> &keys)
{
    const int first = 1; // behind the entry for all
    {
        const QSignalBlocker blocker(m_keys); // the choice stays, unless its key is gone
        const QVariant chosen = m_keys->currentData();
        while (m_keys->count() > first) {
            m_keys->removeItem(first);
        }
        for (const QJsonArray &key : keys) {
            QStringList texts;
            for (int i = 0; i < key.size(); ++i) {
                texts.append(m_value.keyNames[i] + QLatin1Char(' ') + key[i].toVariant().toString());
            }
            m_keys->addItem(texts.join(QStringLiteral(", ")), key);
        }
        m_keys->setCurrentIndex(std::max(0, m_keys->findData(chosen)));
    }
    m_keys->setVisible(!keys.isEmpty());
    if (const QJsonArray key = m_keys->currentData().toJsonArray(); key != m_model.arrangement().key) {
        m_model.setKey(key);
    }
}

void ValueList::addEdits(QBoxLayout &bar, const QString &part)
{
    const auto addButton = [this, &bar](const QString &text, const QString &operation, auto clicked) {
        auto *const button = new RoomyButton(text);
        button->setToolTip(m_value.manager + QStringLiteral("::") + operation);
        connect(button, &QPushButton::clicked, this, clicked);
        bar.addWidget(button);
    };
    const auto checkAll = [this](bool checked) {
        return [this, checked] {
            emit edited(
                {}, [&value = m_value, checked](const ValueTable &) { return ValueEdits::checkAll(value, checked); });
        };
    };
    if (!m_value.checkAll.isEmpty() && part.isEmpty()) {
        addButton(tr("Check all"), m_value.checkAll, checkAll(true));
        addButton(tr("Uncheck all"), m_value.checkAll, checkAll(false));
    } else if (!m_value.uncheckAll.isEmpty() && part.isEmpty()) {
        addButton(tr("Uncheck all"), m_value.uncheckAll, checkAll(false));
    }
    if (m_isToggled) {
        addButton(tr("Toggle selected"), m_value.toggleRow, [this] { toggle(selectedRows()); });
        addButton(tr("Toggle all"), m_value.toggleAll, [this] {
            emit edited({}, [&value = m_value](const ValueTable &) { return ValueEdits::toggleAll(value); });
        });
    }
}

void ValueList::setColumnWidths()
{
    // Of the first rows: looking at all would take long, and columns that follow their contents jump.
    constexpr int looked = 50;
    const QFontMetrics metrics = fontMetrics();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        int width = metrics.horizontalAdvance(m_model.headerData(column, Qt::Horizontal).toString()) + 32;
        for (int row = 0; row < std::min(looked, m_model.rowCount()); ++row) {
            width = std::max(width, metrics.horizontalAdvance(m_model.index(row, column).data().toString()) + 20);
        }
        m_view->setColumnWidth(column, std::min(width, letterWidth(metrics) * widestColumn));
    }
}

void ValueList::fitFirstRows()
{
    disconnect(m_widthsOfTitles);
    setColumnWidths();
}

/// Ascending, then descending, then in the list's own order again.
void ValueList::sortByCurrentColumn()
{
    QHeaderView &header = *m_view->horizontalHeader();
    const int column = m_view->currentIndex().column();
    if (header.sortIndicatorSection() != column) {
        header.setSortIndicator(column, Qt::AscendingOrder);
    } else if (header.sortIndicatorOrder() == Qt::AscendingOrder) {
        header.setSortIndicator(column, Qt::DescendingOrder);
    } else {
        header.setSortIndicator(-1, Qt::AscendingOrder);
    }
}

void ValueList::updateCount()
{
    m_filter->setCount(m_model.rowCount(), m_model.rows().table->rowCount());
}

void ValueList::check(const QVector<int> &rows, bool checked)
{
    emit edited(rows, [&value = m_value, rows, checked](const ValueTable &table) {
        return ValueEdits::check(value, table, rows, checked);
    });
}

void ValueList::toggle(const QVector<int> &rows)
{
    if (!rows.isEmpty()) {
        emit edited(rows, [&value = m_value, rows](const ValueTable &) { return ValueEdits::toggle(value, rows); });
    }
}

void ValueList::toggleOrCheckSelected()
{
    const QVector<int> rows = rowsForKeys();
    if (m_isToggled) {
        toggle(rows);
        return;
    }
    for (int column = 0; column < m_model.columnCount() && !rows.isEmpty(); ++column) {
        const QModelIndex mark = m_model.index(m_view->currentIndex().row(), column);
        if (mark.flags().testFlag(Qt::ItemIsUserCheckable)) {
            // Of an exclusive list the current row alone: its page would take the mark off all others.
            const int current = m_model.rows().order[m_view->currentIndex().row()];
            check(m_value.isExclusive ? QVector<int>{current} : rows,
                  mark.data(Qt::CheckStateRole).toInt() != Qt::Checked);
        }
    }
}

QVector<int> ValueList::rowsForKeys() const
{
    const QVector<int> rows = selectedRows();
    const int current = m_view->currentIndex().row(); // a table that the tabulator has led to has selected nothing yet
    return rows.isEmpty() && current >= 0 ? QVector<int>{m_model.rows().order[current]} : rows;
}

QVector<int> ValueList::selectedRows() const
{
    QVector<int> rows;
    QModelIndexList selected = m_view->selectionModel()->selectedRows();
    std::sort(selected.begin(), selected.end());
    for (const QModelIndex &index : qAsConst(selected)) {
        rows.append(m_model.rows().order[index.row()]);
    }
    return rows;
}
