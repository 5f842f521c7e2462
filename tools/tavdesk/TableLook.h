#pragma once

#include <QVector>

class QTableView;

/// Gives a table of this program its look: whole rows, no grid, low rows. Its columns take @p widths in letters, the
/// column @p widest what is left.
void setTableLook(QTableView &view, int widest, const QVector<int> &widths);
