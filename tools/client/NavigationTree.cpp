#include "NavigationTree.h"

#include "ITavFuncTypeMgr.h"
#include "TavObjectMgr.h"

#include <QMetaEnum>
#include <QSet>

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;

template<class Enum>
QString keyOf(Enum value)
{
    const char *const key = QMetaEnum::fromType<Enum>().valueToKey(value);
    return key ? QString::fromLatin1(key) : QString::number(value);
}

/// The nodes for the entries nested in @p parent; @p done holds the types that are in the tree already.
QVector<NavigationNode> nodesUnder(FuncType parent, ITavFuncTypeMgr &catalogue, QSet<int> &done)
{
    QVector<NavigationNode> nodes;
    const QVector<TavFuncTypeData_> functions = catalogue.getFuncInfos();
    for (const TavFuncTypeData_ &function : functions) {
        if (function.parentFuncType != parent) {
            continue;
        }
        if (function.funcType == CTavFuncTypeHeader::Func_None) {
            // An entry nested in it has the parent type 0, as those at the top have, and is shown there already.
            nodes.append({function, catalogue.getSubFuncInfo(function.funcType), {}});
        } else if (!done.contains(function.funcType)) {
            done.insert(function.funcType);
            nodes.append({function, catalogue.getSubFuncInfo(function.funcType),
                          nodesUnder(function.funcType, catalogue, done)});
        }
    }
    return nodes;
}
}

QVector<NavigationNode> navigationTree()
{
    QSet<int> done;
    return nodesUnder(CTavFuncTypeHeader::Func_None, *tavObject<ITavFuncTypeMgr>(), done);
}

QString pageKey(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ type)
{
    return keyOf(type);
}

QString functionKey(FuncType type)
{
    return keyOf(type);
}
