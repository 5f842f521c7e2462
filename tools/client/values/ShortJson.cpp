#include "ShortJson.h"

#include "ShortText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
constexpr int mostLetters = 200;
constexpr int mostElements = 4;

QJsonValue beginningOf(const QJsonValue &value)
{
    if (value.isArray()) {
        const QJsonArray array = value.toArray();
        QJsonArray beginning;
        for (int i = 0; i < qMin(array.size(), mostElements); ++i) {
            beginning.append(beginningOf(array[i]));
        }
        return beginning;
    }
    if (value.isObject()) {
        QJsonObject object = value.toObject();
        for (QJsonValueRef member : object) {
            member = beginningOf(member);
        }
        return object;
    }
    return value.isString() ? value.toString().left(mostLetters) : value;
}
}

QString shortJson(const QJsonValue &value)
{
    if (value.isUndefined() || value.isNull()) {
        return {};
    }
    const QJsonArray list{QJsonValue(beginningOf(value))};
    const QString text = QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact).mid(1).chopped(1));
    return shortText(text, mostLetters);
}
