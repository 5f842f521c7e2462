#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

/// @brief A line to filter a table with, and beside it how many rows are shown. The standard key for finding leads to
/// it from anywhere in its panel; Escape empties it.
class FilterBar : public QWidget
{
    Q_OBJECT
public:
    /// @p table is what accessibility calls the table, @p panel the widget that both are in.
    FilterBar(const QString &table, QWidget *panel);

    /// Shows that @p shown of @p all rows are left.
    void setCount(int shown, int all);

signals:
    void textChanged(const QString &text);

private:
    QLineEdit *const m_text;
    QLabel *const m_count;
};
