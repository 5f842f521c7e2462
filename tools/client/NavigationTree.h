#pragma once

#include "TavFuncTypeData_.h"
#include "TavSubFuncTypeData_.h"

#include <QVector>

/// @brief A function of the navigation with its pages and the functions nested in it.
struct NavigationNode {
    TavFuncTypeData_ function;
    QVector<TavSubFuncTypeData_> pages;
    QVector<NavigationNode> nested;
};

/// The navigation as a client builds it from ITavFuncTypeMgr. Several entries of one type are one node, since look-ups
/// tell no difference; entries of the type 0 are no function, and each stands for itself.
QVector<NavigationNode> navigationTree();

/// Key text of a page type, its number for a value without one.
QString pageKey(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ type);

/// Key text of a function type, its number for a value without one.
QString functionKey(CTavFuncTypeHeader::TavFuncTypeHeader_ type);
