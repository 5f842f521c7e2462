#pragma once

class QTableView;

/// Has the standard key for copying put the selected rows of @p view on the clipboard, the current one where none is
/// selected: a line for each, with a tabulator between the cells.
void addRowCopy(QTableView &view);
