#include "LogTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
constexpr int mostLetters = 200;
constexpr int mostElements = 4; // of a list that is shown: one of 100,000 rows is not written out to be cut

QJsonValue beginningOf(const QJsonValue &value)
{
    if (!value.isArray()) {
        return value;
    }
    const QJsonArray array = value.toArray();
    QJsonArray beginning;
    for (int i = 0; i < qMin(array.size(), mostElements); ++i) {
        beginning.append(beginningOf(array[i]));
    }
    return beginning;
}
}

QString LogTexts::time(const QDateTime &time)
{
    return time.toString(QStringLiteral("HH:mm:ss.zzz"));
}

QString LogTexts::microseconds(qint64 nanoseconds)
{
    return nanoseconds < 0 ? QStringLiteral("–") : QString::number(double(nanoseconds) / 1000, 'f', 1);
}

QString LogTexts::shortJson(const QJsonValue &value)
{
    if (value.isUndefined() || value.isNull()) {
        return {};
    }
    const QJsonDocument list(QJsonArray{beginningOf(value)});
    const QString text = QString::fromUtf8(list.toJson(QJsonDocument::Compact).mid(1).chopped(1));
    return text.size() > mostLetters ? text.left(mostLetters) + QChar(u'…') : text;
}
