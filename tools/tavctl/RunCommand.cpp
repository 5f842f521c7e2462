#include "RunCommand.h"

#include "Navigation.h"
#include "PluginClient.h"
#include "Presentation.h"

void showRegistry(const RunOptions &options)
{
    const PluginClient client(options.pluginFile);
    if (options.json) {
        printJson(
            {{QStringLiteral("plugin"), client.pluginJson()}, {QStringLiteral("registry"), client.registryJson()}});
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
    const QVector<NavigationNode> navigation = navigationTree();
    const QVector<PageDelivery> deliveries = walkPages();
    if (options.json) {
        printJson({
            {QStringLiteral("plugin"), client.pluginJson()},
            {QStringLiteral("registry"), client.registryJson()},
            {QStringLiteral("navigation"), navigationJson(navigation)},
            {QStringLiteral("deliveries"), deliveriesJson(deliveries)},
        });
    } else {
        client.printPlugin();
        client.printRegistry();
        printNavigation(navigation);
        printDeliveries(deliveries);
    }
}
