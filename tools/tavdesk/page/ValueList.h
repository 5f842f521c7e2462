#pragma once

#include "ValueEdit.h"

#include <QWidget>

#include <functional>

class FilterBar;
class QBoxLayout;
class QComboBox;
class QTableView;
class ValueModel;

/**
 * @brief A list that a manager holds: a table to sort, filter and copy from, and what edits it.
 *
 * | key | |
 * |---|---|
 * | the standard key for finding | to the filter |
 * | Escape in the filter | empties it |
 * | Space | the check mark, or the state, of the selected rows is set the other way; of the current row when none is |
 * | Ctrl+Shift+S | sorts by the current column: ascending, descending, not at all |
 * | the standard key for copying | the same rows as text, a tabulator between the cells |
 */
class ValueList : public QWidget
{
    Q_OBJECT
public:
    /// @p model has its first rows; it and @p value outlive the list. @p name is what accessibility calls the table.
    ValueList(const PageValue &value, const QString &part, ValueModel &model, const QString &name,
              QWidget *parent = nullptr);

    /// Offers to show what is held under one of these keys; none: does not.
    void setKeys(const QVector<QJsonArray> &keys);

    /// The calls of an edit, for the list as it then is.
    using Edit = std::function<QVector<ValueEdit>(const ValueTable &table)>;

signals:
    /// @p rows, of the table of values, are to be edited; none: all are.
    void edited(const QVector<int> &rows, const ValueList::Edit &edit);

    /// The text of @p rows, of the table of values, is to be put on the clipboard.
    void copyRequested(const QVector<int> &rows);

private:
    void addEdits(QBoxLayout &bar, const QString &part);
    void setColumnWidths();
    void updateCount();
    void check(const QVector<int> &rows, bool checked);
    void toggle(const QVector<int> &rows);
    void toggleOrCheckSelected();
    void sortByCurrentColumn();
    void fitFirstRows();
    QVector<int> rowsForKeys() const; ///< the selected ones, or the current one where none is
    QVector<int> selectedRows() const; ///< of the table of values, in the order in which they are shown

    const PageValue &m_value;
    ValueModel &m_model;
    const bool m_isToggled; ///< the part's entries have a state to toggle
    QComboBox *m_keys;
    FilterBar *m_filter;
    QTableView *m_view;
    QMetaObject::Connection m_widthsOfTitles; ///< until there are rows, or somebody sets a width
};
