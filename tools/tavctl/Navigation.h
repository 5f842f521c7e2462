#pragma once

#include "TavFuncTypeData_.h"
#include "TavSubFuncTypeData_.h"

#include <QJsonArray>
#include <QVector>

/// @brief A function of the navigation with its pages and the functions nested in it.
struct NavigationNode {
    TavFuncTypeData_ function;
    QVector<TavSubFuncTypeData_> pages;
    QVector<NavigationNode> nested;
};

/// @brief One page change as one subscriber received it.
struct PageDelivery {
    QString page; ///< key of the page's type
    QString subscriber;
    QString thread; ///< name of the thread in which the subscriber was called
    qint64 nanoseconds; ///< from just before the selection to the subscriber's call
};

/// The navigation as a client builds it from ITavFuncTypeMgr. Several entries of one type are one node, since look-ups
/// tell no difference; entries of the type 0 are no function, and each stands for itself.
QVector<NavigationNode> navigationTree();

/// Loads the catalogue under the system root. Throws ToolError when there is none or it holds no page.
void loadCatalogue();

/// Selects every page in catalogue order, with subscribers on three threads, and waits for each delivery. Throws
/// ToolError when one does not arrive within five seconds.
QVector<PageDelivery> walkPages();

QJsonArray navigationJson(const QVector<NavigationNode> &nodes);
QJsonArray deliveriesJson(const QVector<PageDelivery> &deliveries);
void printNavigation(const QVector<NavigationNode> &nodes);
void printDeliveries(const QVector<PageDelivery> &deliveries);

/// Key text of a page type, its number for a value without one.
QString pageKey(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ type);

/// Key text of a function type, its number for a value without one.
QString functionKey(CTavFuncTypeHeader::TavFuncTypeHeader_ type);
