#include "RunCommand.h"

#include "AccessCheck.h"
#include "Backend.h"
#include "InstallationPaths.h"
#include "ITavFuncTypeMgr.h"
#include "NavigationReport.h"
#include "PluginView.h"
#include "Presentation.h"
#include "RunReport.h"
#include "TavCommonUtils.h"
#include "TavObjectMgr.h"

#include <QFileInfo>

namespace
{
/// Rows of a long list that are shown while walking through all pages.
constexpr int mostRows = 8;

void loadCatalogue()
{
    auto &catalogue = *tavObject<ITavFuncTypeMgr>();
    catalogue.loadConfig();
    if (!catalogue.getSubFuncInfo().isEmpty()) {
        return;
    }
    const QString file = TavCommonUtils::pathInSystemRoot(InstallationPaths::catalogue());
    throw ToolError(ExitCode::NoConfiguration,
                    file
                        + (QFileInfo::exists(file)
                               ? ": holds no page; it must be the Base64 text of a JSON array of functions"
                               : ": there is no navigation catalogue; put one there or name another system root "
                                 "with --root"));
}

QVector<PageDelivery> deliverPageChanges()
{
    const PageWalk walk = walkPages();
    if (!walk.stoppedAt.isEmpty()) {
        throw ToolError(ExitCode::NotDelivered,
                        QString("%1: the page change did not reach every subscriber within %2 s")
                            .arg(walk.stoppedAt)
                            .arg(PageWalk::patience));
    }
    return walk.deliveries;
}

AgentReport feedManagers()
{
    const Findings findings = checkProcessFiles();
    for (const Finding &finding : findings) { // without them much is 0 that is not
        printError(finding.file + ' ' + QStringList{finding.problem, finding.effect, finding.advice}.join("; "));
    }
    AgentReport report = feedFromThisMachine();
    if (!report.complete) {
        throw ToolError(ExitCode::BackendTooSlow,
                        QString("this machine's state was not read within %1 s; some file "
                                "below /proc, /sys or /etc does not answer")
                            .arg(backendPatience));
    }
    return report;
}

/// The pages to show: the one that is asked for, or all of them.
QVector<TavSubFuncTypeData_> pagesFor(const RunOptions &options)
{
    const QVector<TavSubFuncTypeData_> all = tavObject<ITavFuncTypeMgr>()->getSubFuncInfo();
    if (options.page.isEmpty()) {
        return all;
    }
    QStringList keys;
    for (const TavSubFuncTypeData_ &page : all) {
        if (pageKey(page.subFuncType) == options.page) {
            return {page};
        }
        keys.append(pageKey(page.subFuncType));
    }
    throw ToolError(ExitCode::Usage,
                    QString("--page: the catalogue has no page \"%1\"; it has %2").arg(options.page, keys.join(", ")));
}

void printPage(const TavSubFuncTypeData_ &page, int rows)
{
    printHeading(page.subFuncTitle + "  " + dimmed(pageKey(page.subFuncType)));
    printValues(valuesOf(page.subFuncType), rows);
}

QJsonObject titledPageJson(const TavSubFuncTypeData_ &page)
{
    QJsonObject json = pageJson(page.subFuncType);
    json.insert("title", page.subFuncTitle);
    return json;
}

void printEverything(const TavPluginHost &host, const QVector<TavSubFuncTypeData_> &pages, bool isVerbose)
{
    const QVector<IconPicture> pictures = loadIconPictures();
    const QVector<PageDelivery> deliveries = deliverPageChanges();
    const AgentReport backend = feedManagers();
    printPlugin(host);
    printNavigation(navigationTree());
    for (const TavSubFuncTypeData_ &page : pages) {
        printPage(page, mostRows);
    }
    printBackend(backend);
    printRegistry(host);
    printPictures(pictures, isVerbose);
    printDeliveries(deliveries, isVerbose);
    printEdits(makeEdits());
}

void printEverythingAsJson(const TavPluginHost &host, const QVector<TavSubFuncTypeData_> &pages)
{
    const QJsonArray deliveries = deliveriesJson(deliverPageChanges());
    const QJsonArray backend = backendJson(feedManagers());
    QJsonArray pageDocuments;
    for (const TavSubFuncTypeData_ &page : pages) {
        pageDocuments.append(titledPageJson(page));
    }
    QJsonObject document = pagesJson(pageDocuments);
    document.insert("plugin", pluginJson(host));
    document.insert("registry", registryJson(host));
    document.insert("navigation", navigationJson(navigationTree()));
    document.insert("pictures", picturesJson(loadIconPictures()));
    document.insert("deliveries", deliveries);
    document.insert("backend", backend);
    document.insert("edits", editsJson(makeEdits()));
    printJson(document);
}
}

ExitCode showRegistry(const RegistryOptions &options)
{
    const TavPluginHost host = loadPlugin(options.plugin);
    if (options.json) {
        printJson({{"plugin", pluginJson(host)}, {"registry", registryJson(host)}});
    } else {
        printPlugin(host);
        printRegistry(host);
    }
    return ExitCode::Success;
}

ExitCode run(const RunOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    const TavPluginHost host = loadPlugin(options.plugin);
    loadCatalogue();
    const QVector<TavSubFuncTypeData_> pages = pagesFor(options);
    if (options.json) {
        printEverythingAsJson(host, pages);
    } else if (options.page.isEmpty()) {
        printEverything(host, pages, options.verbose);
    } else {
        feedManagers();
        printPage(pages.first(), 0);
    }
    return ExitCode::Success;
}
