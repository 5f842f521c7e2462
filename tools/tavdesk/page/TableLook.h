#pragma once

#include <QVector>

class QTableView;

/// Gives a table of this program its look: whole rows, no grid, low rows.
void setTableLook(QTableView &view);

/// Its columns take @p widths in letters, the column @p widest what is left.
void setColumnWidths(QTableView &view, int widest, const QVector<int> &widths);
