#include "PagePlugins.h"

#include "ITavDataPlugin.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

namespace
{
QString pluginIdentifier()
{
    return qobject_interface_iid<ITavDataPlugin *>();
}

/// Has the plugin in @p file register its controllers; returns what keeps it from that.
QVector<PagePluginProblem> load(const QString &file)
{
    QPluginLoader loader(file);
    const QString identifier = loader.metaData()["IID"].toString();
    if (identifier.isEmpty()) {
        return {{file, "it is no Qt plugin", "Name the library that the page plugin's project builds."}};
    }
    if (identifier != pluginIdentifier()) {
        return {{file, QString("it is another kind of plugin, \"%1\"").arg(identifier),
                 QString("A page plugin's root object is exported under \"%1\".").arg(pluginIdentifier())}};
    }
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint); // what is missing is told now, and not by a crash later
    auto *const plugin = qobject_cast<ITavDataPlugin *>(loader.instance());
    if (!plugin) {
        return {{file, loader.isLoaded() ? "its root object is no ITavDataPlugin" : loader.errorString(),
                 "Build it against the libraries that are installed here."}};
    }
    try {
        plugin->registerObj();
    } catch (const std::exception &error) {
        return {{file, QString("it threw while it registered its pages: %1").arg(error.what()),
                 "The pages that it had registered before are shown; the others show what their managers hold."}};
    } catch (...) {
        return {{file, "it threw while it registered its pages",
                 "The pages that it had registered before are shown; the others show what their managers hold."}};
    }
    return {};
}
}

QVector<PagePluginProblem> loadPagePlugins(const QStringList &names)
{
    QVector<PagePluginProblem> problems;
    for (const QString &name : names) {
        const QFileInfo info(name);
        if (!info.exists()) {
            problems.append({name, "there is no such file", "Name a page plugin's file or a folder of them."});
        } else if (info.isDir()) {
            const QFileInfoList files = QDir(name).entryInfoList(QDir::Files, QDir::Name);
            for (const QFileInfo &file : files) {
                if (QLibrary::isLibrary(file.fileName())) {
                    problems += load(file.absoluteFilePath());
                }
            }
        } else {
            problems += load(info.absoluteFilePath());
        }
    }
    return problems;
}
