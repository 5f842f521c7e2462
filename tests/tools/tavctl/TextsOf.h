#pragma once

#include <QJsonArray>
#include <QStringList>

/// The texts under @p key in the rows of a JSON document.
inline QStringList textsOf(const QJsonArray &rows, const char *key)
{
    QStringList texts;
    for (const QJsonValue &row : rows) {
        texts.append(row[QLatin1String(key)].toString());
    }
    return texts;
}
