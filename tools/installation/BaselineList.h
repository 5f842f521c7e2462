#pragma once

#include <QJsonObject>
#include <QVector>

/// The list of baseline check items as the plugin reads it. The plugin answers for one id at a time, so the list itself
/// has to say which ids there are.
namespace BaselineList
{
/// The list under the system root; empty when it cannot be read.
QJsonObject read();

QJsonArray itemsOf(const QJsonObject &list);

/// The id under which the plugin keeps @p item; 0 for a value that holds none.
int idOf(const QJsonValue &item);

/// The ids of the items, each once, in the order of the list.
QVector<int> idsOf(const QJsonObject &list);
}
