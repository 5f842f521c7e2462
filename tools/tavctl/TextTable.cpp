#include "TextTable.h"

#include "Presentation.h"

#include <QVector>

#include <algorithm>
#include <clocale>
#include <cwchar>

namespace
{
QString cut(const QString &text, int maximumWidth)
{
    if (displayWidth(text) <= maximumWidth) {
        return text;
    }
    QString shortened = text;
    while (displayWidth(shortened) > maximumWidth - 1) {
        shortened.chop(shortened.at(shortened.size() - 1).isLowSurrogate() ? 2 : 1);
    }
    return shortened + QStringLiteral("…");
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

void TextTable::print(int indent) const
{
    QStringList titles;
    QVector<int> widths;
    for (int column = 0; column < m_columns.size(); ++column) {
        titles.append(m_columns[column].title);
        int width = displayWidth(titles.last());
        for (const QStringList &row : m_rows) {
            width = std::max(width, displayWidth(row[column]));
        }
        widths.append(width);
    }
    const QString margin(indent, QLatin1Char(' '));
    printLine(margin + dimmed(line(titles, widths)));
    for (const QStringList &row : m_rows) {
        printLine(margin + line(row, widths));
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
    // The widths are those of Unicode, whatever the user's own locale is. No other thread depends on the locale.
    static const bool hasUnicode = std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr; // NOLINT(concurrency-mt-unsafe)
    int width = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        width += hasUnicode ? std::max(0, wcwidth(static_cast<wchar_t>(character))) : 1;
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
