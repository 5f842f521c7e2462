#include "ValueTable.h"

#include <algorithm>

QString ValueColumn::title() const
{
    QString words;
    for (const QChar letter : name) {
        if (letter == '_') {
            words += ' ';
        } else if (letter == '.') {
            words += ": ";
        } else if (letter.isUpper() && !words.isEmpty() && words.back().isLower()) {
            words += QString(' ') + letter.toLower();
        } else {
            words += letter;
        }
    }
    return words;
}

bool ValueColumn::isNumber() const
{
    using TavFields::Kind;
    switch (kind) {
    case Kind::Number:
    case Kind::Percent:
    case Kind::Permille:
    case Kind::Hundredths:
    case Kind::Size:
    case Kind::Duration:
    case Kind::FileMode:
        return true;
    default:
        return false;
    }
}

int ValueTable::column(const QString &name) const
{
    const auto found = std::find_if(m_columns.begin(), m_columns.end(),
                                    [&name](const ValueColumn &column) { return column.name == name; });
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}
