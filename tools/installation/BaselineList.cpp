#include "BaselineList.h"

#include "InstallationPaths.h"
#include "TavCommonUtils.h"

#include <QJsonArray>

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
    const QJsonArray items = itemsOf(list);
    for (const QJsonValue &item : items) {
        if (!ids.contains(idOf(item))) {
            ids.append(idOf(item));
        }
    }
    return ids;
}
