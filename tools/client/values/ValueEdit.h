#pragma once

#include "PageValues.h"

#include <QJsonArray>

/// @brief A call that edits what a manager holds.
struct ValueEdit {
    QString operation; ///< of the value's manager
    QJsonArray arguments;
};

/// Which calls make an edit of a value, as a page would make them.
namespace ValueEdits
{
/// Sets the check mark of the rows. Of an exclusive list, the marks of all other rows are taken off.
QVector<ValueEdit> check(const PageValue &value, const ValueTable &table, const QVector<int> &rows, bool checked);

/// Sets the check mark of every row.
QVector<ValueEdit> checkAll(const PageValue &value, bool checked);

/// Toggles the entries at these rows.
QVector<ValueEdit> toggle(const PageValue &value, const QVector<int> &rows);

QVector<ValueEdit> toggleAll(const PageValue &value);
}
