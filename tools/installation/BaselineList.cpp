#include "BaselineList.h"

#include "InstallationPaths.h"
#include "TavCommonUtils.h"

#include <QJsonArray>
#include <QSet>

QJsonObject BaselineList::read()
{
    return TavCommonUtils::readJsonFromFile(InstallationPaths::baseline());
}

QJsonArray BaselineList::itemsOf(const QJsonObject &list)
{
    return list["enableConfig"].toArray();
}

int BaselineList::idOf(const QJsonValue &item)
{
    return item["itemId"].toInt();
}

QVector<int> BaselineList::idsOf(const QJsonObject &list)
{
    QVector<int> ids;
    QSet<int> known;
    const QJsonArray items = itemsOf(list);
    for (const QJsonValue &item : items) {
        const int id = idOf(item);
        if (!known.contains(id)) {
            known.insert(id);
            ids.append(id);
        }
    }
    return ids;
}
