#pragma once

#include <QTimer>
#include <QWidget>

class FilterBar;
class LogTable;
class QHBoxLayout;
class QTableView;

/**
 * @brief A log with a line to filter it. While its last row is in sight, it stays so when further ones come; otherwise
 * the rows stay where they are.
 *
 * It looks at the log only while it is in sight itself.
 */
class LogPanel : public QWidget
{
    Q_OBJECT
public:
    /// @p model becomes the panel's own; accessibility calls its table @p name. The column @p widest takes the width
    /// that is left.
    LogPanel(LogTable *model, const QString &name, int widest, const QVector<int> &widths, QWidget *parent = nullptr);

    /// Puts a button into the line above the table.
    void addButton(QAction *action);

    bool hasSelection() const;

    /// The selected rows, in their order.
    QVector<int> selectedRows() const;

    /// Takes over what has happened; otherwise that is done some times a second.
    void takeOver();

signals:
    void selectionChanged();

protected:
    /// To the table; with a proxy for that, the tabulator would pass the filter by.
    void focusInEvent(QFocusEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void setFilter(const QString &text);
    void showCount();

    LogTable *const m_model;
    QHBoxLayout *m_line = nullptr;
    FilterBar *m_filter = nullptr;
    QTableView *m_view = nullptr;
    QTimer m_timer;
    QString m_typed; ///< into the filter
    QTimer m_typing; ///< runs until that has an effect
};
