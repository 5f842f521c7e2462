#include "NavigationReport.h"

#include "Presentation.h"
#include "TextTable.h"

#include <QJsonObject>

namespace
{
QString pageNote(const TavSubFuncTypeData_ &page)
{
    if (page.subFuncHasParent) {
        return {};
    }
    return page.realParentType > 0 ? "opened from " + pageKey(page.realParentType) : QString("stands alone");
}

/// Adds the rows of @p nodes, which stand @p depth levels below the top; @p prefix holds the branches on their left.
void addTo(TextTable &table, const QVector<NavigationNode> &nodes, int depth, const QString &prefix)
{
    for (int i = 0; i < nodes.size(); ++i) {
        const NavigationNode &node = nodes[i];
        const bool isTop = depth == 0;
        const bool isLast = i == nodes.size() - 1;
        table.addRow({(isTop ? QString() : prefix + (isLast ? "└─ " : "├─ ")) + node.function.funcTitle,
                      functionKey(node.function.funcType), node.function.funcIcon});
        const QString below = isTop ? QString() : prefix + (isLast ? "   " : "│  ");
        for (int p = 0; p < node.pages.size(); ++p) {
            const TavSubFuncTypeData_ &page = node.pages[p];
            const bool isLastBelow = p == node.pages.size() - 1 && node.nested.isEmpty();
            table.addRow({below + (isLastBelow ? "└─ " : "├─ ") + page.subFuncTitle, pageKey(page.subFuncType),
                          QString(), page.subFuncClassName, pageNote(page)});
        }
        addTo(table, node.nested, depth + 1, below);
    }
}
}

QJsonArray navigationJson(const QVector<NavigationNode> &nodes)
{
    QJsonArray functions;
    for (const NavigationNode &node : nodes) {
        QJsonArray pages;
        for (const TavSubFuncTypeData_ &page : node.pages) {
            pages.append(QJsonObject{
                {"title", page.subFuncTitle},
                {"type", pageKey(page.subFuncType)},
                {"controller", page.subFuncClassName},
                {"help", page.subFuncHelp},
                {"hasParent", page.subFuncHasParent},
                {"realParent", pageKey(page.realParentType)},
            });
        }
        functions.append(QJsonObject{
            {"title", node.function.funcTitle},
            {"type", functionKey(node.function.funcType)},
            {"icon", node.function.funcIcon},
            {"pages", pages},
            {"nested", navigationJson(node.nested)},
        });
    }
    return functions;
}

void printNavigation(const QVector<NavigationNode> &nodes)
{
    printHeading("Navigation");
    TextTable table({{"title"}, {"type"}, {"icon"}, {"controller"}, {"note"}});
    addTo(table, nodes, 0, QString());
    table.print();
}
