#include "RunCommand.h"

#include "Backend.h"
#include "Edits.h"
#include "Navigation.h"
#include "PageView.h"
#include "Pictures.h"
#include "PluginClient.h"
#include "Presentation.h"
#include "TavObjectMgr.h"
#include "ToolError.h"

#include "ITavFuncTypeMgr.h"

#include <QJsonArray>

namespace
{
/// Rows of a long list that are shown while walking through all pages.
constexpr int mostRows = 8;

QVector<TavSubFuncTypeData_> pages()
{
    return tavObject<ITavFuncTypeMgr>()->getSubFuncInfo();
}

TavSubFuncTypeData_ pageWithKey(const QString &key)
{
    QStringList keys;
    const QVector<TavSubFuncTypeData_> all = pages();
    for (const TavSubFuncTypeData_ &page : all) {
        if (pageKey(page.subFuncType) == key) {
            return page;
        }
        keys.append(pageKey(page.subFuncType));
    }
    throw ToolError(ExitCode::Usage,
                    QString("--page: the catalogue has no page \"%1\"; it has %2").arg(key, keys.join(", ")));
}

void printPage(const TavSubFuncTypeData_ &page, int rows)
{
    printHeading(page.subFuncTitle + "  " + dimmed(pageKey(page.subFuncType)));
    printSections(pageSections(page.subFuncType), rows);
}

QJsonObject pageJson(const TavSubFuncTypeData_ &page)
{
    return {{"title", page.subFuncTitle},
            {"type", pageKey(page.subFuncType)},
            {"sections", sectionsJson(pageSections(page.subFuncType))}};
}

void showPage(const RunOptions &options)
{
    const TavSubFuncTypeData_ page = pageWithKey(options.page);
    feedFromThisMachine();
    if (options.json) {
        printJson(pageJson(page));
    } else {
        printPage(page, 0);
    }
}

void printEverything(const PluginClient &client)
{
    client.printPlugin();
    client.printRegistry();
    printNavigation(navigationTree());
    printPictures(loadIconPictures());
    printDeliveries(walkPages());
    printBackend(feedFromThisMachine());
    const QVector<TavSubFuncTypeData_> all = pages();
    for (const TavSubFuncTypeData_ &page : all) {
        printPage(page, mostRows);
    }
    printEdits(makeEdits());
}

void printEverythingAsJson(const PluginClient &client)
{
    QJsonObject document{{"plugin", client.pluginJson()},
                         {"registry", client.registryJson()},
                         {"navigation", navigationJson(navigationTree())},
                         {"pictures", picturesJson(loadIconPictures())},
                         {"deliveries", deliveriesJson(walkPages())},
                         {"backend", backendJson(feedFromThisMachine())}};
    QJsonArray pageDocuments;
    const QVector<TavSubFuncTypeData_> all = pages();
    for (const TavSubFuncTypeData_ &page : all) {
        pageDocuments.append(pageJson(page));
    }
    document.insert("pages", pageDocuments);
    document.insert("edits", editsJson(makeEdits()));
    printJson(document);
}
}

void showRegistry(const RunOptions &options)
{
    const PluginClient client(options.pluginFile);
    if (options.json) {
        printJson({{"plugin", client.pluginJson()}, {"registry", client.registryJson()}});
    } else {
        client.printPlugin();
        client.printRegistry();
    }
}

void run(const RunOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.systemRoot);
    const PluginClient client(options.pluginFile);
    loadCatalogue();
    if (!options.page.isEmpty()) {
        showPage(options);
    } else if (options.json) {
        printEverythingAsJson(client);
    } else {
        printEverything(client);
    }
}
