#include "LogPanel.h"

#include "FilterBar.h"
#include "LogTable.h"
#include "RowCopy.h"
#include "SymbolIcon.h"
#include "TableLook.h"

#include <QAction>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QSet>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

namespace
{
constexpr int lookEvery = 150; // milliseconds
constexpr int typingEnds = 150; // after the last key: to filter a full log at each would hold up the next
}

LogPanel::LogPanel(LogTable *model, const QString &name, int widest, const QVector<int> &widths, QWidget *parent)
    : QWidget(parent), m_model(model)
{
    m_model->setParent(this);
    m_filter = new FilterBar(name, this);
    auto *const clear = new QAction(symbolIcon(Symbol::Clear), tr("Clear"), this);

    m_line = new QHBoxLayout;
    m_line->addWidget(m_filter, 1);
    m_line->addStretch(1);

    m_view = new QTableView;
    m_view->setModel(m_model);
    m_view->setAccessibleName(name);
    setTableLook(*m_view);
    addRowCopy(*m_view);
    setColumnWidths(*m_view, widest, widths);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(m_line);
    layout->addWidget(m_view);
    addButton(clear);

    m_typing.setSingleShot(true);
    m_typing.setInterval(typingEnds);
    connect(m_filter, &FilterBar::textChanged, this, [this](const QString &text) {
        m_typed = text;
        m_typing.start();
    });
    connect(&m_typing, &QTimer::timeout, this, [this] { setFilter(m_typed); });
    connect(clear, &QAction::triggered, this, [this] {
        m_model->clearLog();
        showCount();
    });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &LogPanel::selectionChanged);
    connect(&m_timer, &QTimer::timeout, this, &LogPanel::takeOver);
    showCount();
}

void LogPanel::addButton(QAction *action)
{
    auto *const button = new QToolButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::TabFocus);
    m_line->addWidget(button);
}

bool LogPanel::hasSelection() const
{
    return m_view->selectionModel()->hasSelection();
}

QVector<int> LogPanel::selectedRows() const
{
    QVector<int> rows;
    const QModelIndexList selected = m_view->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected) {
        rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void LogPanel::takeOver()
{
    QScrollBar &bar = *m_view->verticalScrollBar();
    const bool isAtEnd = bar.value() == bar.maximum();
    const QPersistentModelIndex top = m_view->indexAt({0, 0});
    const int before = m_view->visualRect(top).top();
    m_model->update();
    if (isAtEnd) {
        m_view->scrollToBottom();
    } else if (top.isValid()) { // rows above it may have gone
        bar.setValue(bar.value() + m_view->visualRect(top).top() - before);
    }
    showCount();
}

void LogPanel::focusInEvent(QFocusEvent *event)
{
    m_view->setFocus(event->reason());
}

void LogPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    takeOver();
    m_timer.start(lookEvery);
}

void LogPanel::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}

void LogPanel::setFilter(const QString &text)
{
    QSet<qint64> selected;
    const QVector<int> rows = selectedRows();
    for (const int row : rows) {
        selected.insert(m_model->number(row));
    }
    m_model->setFilter(text);
    QItemSelection still;
    int first = -1; // of the selected rows that follow one another
    for (int row = 0; row <= m_model->rowCount(); ++row) {
        const bool isSelected = row < m_model->rowCount() && selected.contains(m_model->number(row));
        if (isSelected && first < 0) {
            first = row;
        } else if (!isSelected && first >= 0) {
            still.select(m_model->index(first, 0), m_model->index(row - 1, 0));
            first = -1;
        }
    }
    m_view->scrollToBottom();
    m_view->selectionModel()->select(still, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    if (!still.isEmpty()) {
        m_view->scrollTo(still.constLast().bottomRight());
    }
    showCount();
    emit selectionChanged();
}

void LogPanel::showCount()
{
    m_filter->setCount(m_model->rowCount(), m_model->held());
}
