#include "TableLook.h"

#include <QHeaderView>
#include <QTableView>

void setTableLook(QTableView &view, int widest, const QVector<int> &widths)
{
    const QFontMetrics metrics = view.fontMetrics();
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setShowGrid(false);
    view.setAlternatingRowColors(true);
    view.setWordWrap(false);
    view.setTabKeyNavigation(false); // the tabulator leaves the table, as it leaves every other field
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(metrics.height() + 6);
    QHeaderView &header = *view.horizontalHeader();
    header.setHighlightSections(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int column = 0; column < widths.size(); ++column) {
        view.setColumnWidth(column, metrics.averageCharWidth() * widths[column] + 12);
    }
    header.setSectionResizeMode(widest, QHeaderView::Stretch);
}
