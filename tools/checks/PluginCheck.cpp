#include "PluginCheck.h"

#include "TavPluginHost.h"

Findings checkPlugin(const QString &file)
{
    try {
        const TavPluginHost host(file);
        return {};
    } catch (const TavPluginError &error) {
        return {{file, {}, {}, error.problem(), error.effect(), pluginAdvice(error)}};
    }
}

QString pluginAdvice(const TavPluginError &error)
{
    return error.wantsAnotherFile() ? error.advice() + " with --plugin" : error.advice();
}
