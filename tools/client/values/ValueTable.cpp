#include "ValueTable.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace
{
/// The name of one field in words, in English.
QString wordsOf(const QString &name)
{
    QString words;
    for (const QChar letter : name) {
        if (letter == '_') {
            words += ' ';
        } else if (letter.isUpper() && !words.isEmpty() && words.back().isLower()) {
            words += QString(' ') + letter.toLower();
        } else {
            words += letter;
        }
    }
    return words;
}
}

ValueColumn ValueColumn::of(const QString &type, const QString &field, TavFields::Kind kind)
{
    return {field, kind, kind == TavFields::Kind::Number ? documentedMeanings(type, field) : CodeMeanings()};
}

QString ValueColumn::title() const
{
    QStringList titles;
    const QStringList fields = name.split('.');
    for (const QString &field : fields) {
        titles.append(QCoreApplication::translate("Fields", wordsOf(field).toUtf8().constData()));
    }
    return titles.join(": ");
}

bool ValueColumn::isNumber() const
{
    using TavFields::Kind;
    switch (kind) {
    case Kind::Number:
        return meanings.isEmpty();
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
