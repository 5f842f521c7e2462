#include "TableLook.h"

#include "LetterWidth.h"

#include <QHeaderView>
#include <QTableView>

void setTableLook(QTableView &view)
{
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setShowGrid(false);
    view.setAlternatingRowColors(true);
    view.setWordWrap(false);
    view.setTabKeyNavigation(false); // the tabulator leaves the table, as it leaves every other field
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setCornerButtonEnabled(false);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + 6);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void setColumnWidths(QTableView &view, int widest, const QVector<int> &widths)
{
    for (int column = 0; column < widths.size(); ++column) {
        view.setColumnWidth(column, letterWidth(view.fontMetrics()) * widths[column] + 12);
    }
    view.horizontalHeader()->setSectionResizeMode(widest, QHeaderView::Stretch);
}
