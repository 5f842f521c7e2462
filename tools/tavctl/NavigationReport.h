#pragma once

#include "NavigationTree.h"

#include <QJsonArray>

QJsonArray navigationJson(const QVector<NavigationNode> &nodes);
void printNavigation(const QVector<NavigationNode> &nodes);
