#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// @brief A table of text, its columns aligned as a terminal shows them: Chinese characters take two places.
class TextTable
{
public:
    enum Alignment { Left, Right };

    struct Column {
        QString title;
        Alignment alignment = Left;
        int maximumWidth = 60; ///< in places of the terminal; longer texts are cut and end in "…"
    };

    explicit TextTable(const QVector<Column> &columns);

    void addRow(const QStringList &cells);
    int rowCount() const;

    /// Takes out the columns that are empty and, the numbers first, those for which @p width places have no room; the
    /// titles of the latter.
    QStringList fitInto(int width);

    /// Writes title line and rows to standard output, indented by @p indent places.
    void print(int indent = 0) const;

private:
    QVector<int> widths() const;
    void removeColumn(int column);
    QString line(const QStringList &cells, const QVector<int> &widths) const;

    QVector<Column> m_columns;
    QVector<QStringList> m_rows;
};

/// Places that @p text takes on a terminal.
int displayWidth(const QString &text);

/// @p text without control characters, each replaced by "�": what comes from files must not steer a terminal.
QString printable(const QString &text);
