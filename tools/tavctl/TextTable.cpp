#include "TextTable.h"

#include "Presentation.h"

#include <QVector>

#include <algorithm>
#include <clocale>
#include <cwchar>
#include <numeric>

namespace
{
/// Places that a character takes.
int widthOf(uint character)
{
    // The widths are those of Unicode, whatever the user's own locale is. No other thread depends on the locale.
    static const bool hasUnicode = std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr; // NOLINT(concurrency-mt-unsafe)
    return hasUnicode ? std::max(0, wcwidth(static_cast<wchar_t>(character))) : 1;
}

QString cut(const QString &text, int maximumWidth)
{
    if (displayWidth(text) <= maximumWidth) {
        return text;
    }
    int width = 0;
    int end = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        width += widthOf(character);
        if (width > maximumWidth - 1) {
            break;
        }
        end += QChar::requiresSurrogates(character) ? 2 : 1;
    }
    return text.left(end) + QStringLiteral("…");
}
}

TextTable::TextTable(const QVector<Column> &columns) : m_columns(columns)
{
}

void TextTable::addRow(const QStringList &cells)
{
    QStringList row;
    for (int column = 0; column < m_columns.size(); ++column) {
        row.append(cut(printable(cells.value(column)), m_columns[column].maximumWidth));
    }
    m_rows.append(row);
}

int TextTable::rowCount() const
{
    return m_rows.size();
}

QStringList TextTable::fitInto(int width)
{
    for (int column = m_columns.size() - 1; column >= 0; --column) {
        if (std::all_of(m_rows.begin(), m_rows.end(), [column](const auto &row) { return row[column].isEmpty(); })) {
            removeColumn(column);
        }
    }
    QStringList leftOut;
    while (true) {
        const QVector<int> needed = widths();
        if (needed.size() <= 1 || std::accumulate(needed.begin(), needed.end(), 2 * (needed.size() - 1)) <= width) {
            return leftOut;
        }
        int last = m_columns.size() - 1;
        while (last > 0 && m_columns[last].alignment == Left) {
            --last;
        }
        // Texts tell the rows apart, so the numbers make room first.
        const int column = m_columns[last].alignment == Right ? last : m_columns.size() - 1;
        leftOut.prepend(m_columns[column].title);
        removeColumn(column);
    }
}

void TextTable::print(int indent) const
{
    QStringList titles;
    for (const Column &column : m_columns) {
        titles.append(column.title);
    }
    const QVector<int> columnWidths = widths();
    const QString margin(indent, QLatin1Char(' '));
    printLine(margin + dimmed(line(titles, columnWidths)));
    for (const QStringList &row : m_rows) {
        printLine(margin + line(row, columnWidths));
    }
}

QVector<int> TextTable::widths() const
{
    QVector<int> widths;
    for (int column = 0; column < m_columns.size(); ++column) {
        int width = displayWidth(m_columns[column].title);
        for (const QStringList &row : m_rows) {
            width = std::max(width, displayWidth(row[column]));
        }
        widths.append(width);
    }
    return widths;
}

void TextTable::removeColumn(int column)
{
    m_columns.removeAt(column);
    for (QStringList &row : m_rows) {
        row.removeAt(column);
    }
}

QString TextTable::line(const QStringList &cells, const QVector<int> &widths) const
{
    QString text;
    for (int column = 0; column < cells.size(); ++column) {
        const QString padding(widths[column] - displayWidth(cells[column]), QLatin1Char(' '));
        text += m_columns[column].alignment == Right ? padding + cells[column] : cells[column] + padding;
        text += QStringLiteral("  ");
    }
    while (text.endsWith(QLatin1Char(' '))) {
        text.chop(1);
    }
    return text;
}

int displayWidth(const QString &text)
{
    int width = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        width += widthOf(character);
    }
    return width;
}

QString printable(const QString &text)
{
    QString clean = text;
    std::replace_if(
        clean.begin(), clean.end(), [](QChar character) { return character.category() == QChar::Other_Control; },
        QChar(QChar::ReplacementCharacter));
    return clean;
}
