#include "RowCopy.h"

#include "WaitCursor.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTableView>

#include <algorithm>

namespace
{
QString textOf(const QAbstractItemModel &model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
        cells.append(model.index(row, column).data().toString().simplified()); // or it would be more than one cell
    }
    return cells.join(QLatin1Char('\t'));
}

void copyRows(const QTableView &view)
{
    const WaitCursor waiting; // a full log has 20,000 rows
    QModelIndexList rows = view.selectionModel()->selectedRows();
    if (rows.isEmpty() && view.currentIndex().isValid()) {
        rows.append(view.currentIndex());
    }
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex &row : qAsConst(rows)) {
        lines.append(textOf(*view.model(), row.row()));
    }
    if (!lines.isEmpty()) {
        QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
    }
}
}

void addRowCopy(QTableView &view)
{
    auto *const action = new QAction(&view);
    action->setShortcut(QKeySequence::Copy);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, &view, [&view] { copyRows(view); });
    view.addAction(action);
}
