#include "DoctorCommand.h"

#include "AccessCheck.h"
#include "BaselineCheck.h"
#include "BaselineList.h"
#include "CatalogueCheck.h"
#include "FileOwner.h"
#include "InstallationPaths.h"
#include "PictureCheck.h"
#include "PluginCheck.h"
#include "Presentation.h"
#include "RootedPath.h"
#include "TavCommonUtils.h"
#include "TavCountedText.h"
#include "TavGlobalInfoMgr.h"
#include "TavPluginHost.h"
#include "TextTable.h"
#include "WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace
{
/// @brief One part of an installation with what was found in it.
struct Part {
    QString name;
    QString place; ///< file or directory
    Findings findings;
};

/// @brief A configuration file of the installation.
struct ConfigurationFile {
    QString file; ///< as it is shown
    QByteArray content;
    Findings findings; ///< why it cannot be read; none when it can
};

ConfigurationFile readConfiguration(const QString &path, const QString &effectOfNone)
{
    ConfigurationFile read{TavCommonUtils::pathInSystemRoot(path), {}, {}};
    const RootedPath at = followInRoot(path);
    const QFileInfo file(at.file());
    const bool isForbidden = at.error == EACCES || (at.error == 0 && file.isFile() && !file.isReadable());
    if (isForbidden) {
        read.findings.append(
            Finding::ofFile(FindingCode::NotReadable, read.file,
                            "cannot be read: " + qt_error_string(EACCES) + "; " + ownerText(file.filePath()),
                            "what it holds is not known", "look at it as a user who may read it"));
        return read;
    }
    const QString error = at.error == 0 ? WholeFile::tryRead(file.filePath(), read.content)
        : at.error == ENOENT            ? "there is no such file"
                                        : "cannot be read: " + qt_error_string(at.error);
    if (!error.isEmpty()) {
        read.findings.append(Finding::ofFile(FindingCode::NoConfigurationFile, read.file, error, effectOfNone,
                                             "put it there, or name another system root with --root"));
    }
    return read;
}

Findings checkPictureDirectories(const PictureFiles &pictures, bool isAny)
{
    const QString path = TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures());
    const RootedPath at = followInRoot(InstallationPaths::pictures());
    const QFileInfo directory(at.file());
    const bool isThere = at.error == 0 && directory.isDir();
    if (at.error == EACCES || (isThere && !(directory.isReadable() && directory.isExecutable()))) {
        return {Finding::ofFile(FindingCode::NotReadable, path, "cannot be listed; " + ownerText(directory.filePath()),
                                "what it holds is not known", "look at it as a user who may")};
    }
    const Findings none{Finding::ofFile(
        FindingCode::NoPictureDirectory, path, isThere ? "there is no directory in it" : "there is no such directory",
        "the pages have no pictures", "put the picture directories there, or name another system root with --root")};
    return (isAny ? checkPictures(pictures) : none) + checkStrayPictures(path);
}

/// @brief The plugin that an installation is checked with.
struct Plugin {
    QString file;
    QString origin; ///< why it is that one, where that is not plain
    QString path; ///< within the system root; empty when it lies elsewhere
    Findings findings; ///< on its name
};

/// The file, outside of the system root, to which the path within it leads.
QString fileAt(const QString &path)
{
    return QFileInfo(followInRoot(path).file()).absoluteFilePath();
}

/// The files in the client's plugin directory, by their paths within the system root.
QStringList pluginPaths()
{
    QStringList paths;
    const QStringList names
        = QDir(fileAt(InstallationPaths::plugins())).entryList(QDir::Files | QDir::System, QDir::Name);
    for (const QString &name : names) {
        const QString path = InstallationPaths::plugins() + '/' + name;
        if (followInRoot(path).error == 0 && QFileInfo(fileAt(path)).isFile()) {
            paths.append(path);
        }
    }
    return paths;
}

/// The path of the data plugin when it lies in the client's plugin directory under another name; empty otherwise.
QString misnamedPlugin()
{
    const QString className = TavPluginHost::factsOf(InstallationPaths::pluginBesideProgram()).className;
    const QStringList paths = pluginPaths();
    for (const QString &path : paths) {
        if (!className.isEmpty() && TavPluginHost::factsOf(fileAt(path)).className == className) {
            return path;
        }
    }
    return {};
}

Plugin pluginFor(const DoctorOptions &options)
{
    if (!options.plugin.isEmpty()) {
        return {options.plugin, {}, pathWithinRoot(options.plugin), {}};
    }
    const QString beside = InstallationPaths::pluginBesideProgram();
    if (options.root == "/") {
        return {beside, {}, beside, {}};
    }
    const QString installed = InstallationPaths::plugin();
    const QString misnamed = installed.isEmpty() ? misnamedPlugin() : QString();
    if (!misnamed.isEmpty()) {
        return {fileAt(misnamed),
                {},
                misnamed,
                {Finding::ofFile(FindingCode::PluginOfOtherName, TavCommonUtils::pathInSystemRoot(misnamed),
                                 "the data plugin under another name",
                                 "the client does not find it and has none of the managers",
                                 "rename it to libTavDataPlugin.so")}};
    }
    return installed.isEmpty()
        ? Plugin{beside, "none below " + options.root + "; beside tavctl", pathWithinRoot(beside), {}}
        : Plugin{fileAt(installed), {}, installed, {}};
}

/// What may be page plugins of the installation, by their paths within the system root.
QStringList pagePlugins(const QString &dataPlugin)
{
    QStringList paths;
    const QStringList all = pluginPaths();
    for (const QString &path : all) {
        if (path.endsWith(".so")
            && QFileInfo(fileAt(path)).canonicalFilePath() != QFileInfo(dataPlugin).canonicalFilePath()) {
            paths.append(path);
        }
    }
    return paths;
}

/// The files that the agent runs and the client loads, by their paths.
QStringList guardedPaths(const QByteArray &baseline, const QStringList &pictureDirectories,
                         const PictureFiles &pictures, const Plugin &plugin)
{
    QStringList paths{InstallationPaths::catalogue(), InstallationPaths::baseline(), InstallationPaths::scripts(),
                      InstallationPaths::pictures()};
    const QJsonArray items = BaselineList::itemsOf(QJsonDocument::fromJson(baseline).object());
    for (const QJsonValue &item : items) {
        paths.append(InstallationPaths::scripts() + item["checkValueScript"].toString());
    }
    for (const QString &directory : pictureDirectories) {
        paths.append(pathWithinRoot(directory));
    }
    for (const PictureFile &picture : pictures.files) {
        paths.append(pathWithinRoot(picture.file));
    }
    if (!plugin.path.isEmpty()) {
        paths.append(plugin.path);
    }
    return paths + pagePlugins(plugin.file);
}

/// What was not looked at of a plugin, or otherwise than the client would; empty for nothing.
QString limitsOf(const DoctorOptions &options)
{
    return !options.loads     ? "not loaded: its libraries and managers were not looked at"
        : options.root != "/" ? "loaded with the libraries of this system"
                              : "";
}

void printInstallation(const QVector<Part> &parts, const Plugin &chosen, const TavPluginFacts &plugin,
                       const QString &limits)
{
    printHeading("Installation");
    TextTable table({{"part"}, {"place", TextTable::Left, 120}, {"state"}});
    for (const Part &part : parts) {
        table.addRow({part.name, part.place, countText(part.findings)});
    }
    table.print();
    if (!plugin.identifier.isEmpty()) {
        printLine(printable(QString("plugin: %1%2, built with Qt %3 for %4%5")
                                .arg(chosen.origin.isEmpty() ? QString() : chosen.origin + ": ", plugin.identifier,
                                     plugin.qtVersion, plugin.machine, limits.isEmpty() ? QString() : "; " + limits)));
    }
}

QJsonObject documentOf(const QVector<Part> &parts, const Plugin &chosen, const TavPluginFacts &plugin,
                       const QString &limits)
{
    QJsonArray rows;
    for (const Part &part : parts) {
        rows.append(QJsonObject{{"part", part.name}, {"place", part.place}, {"findings", part.findings.size()}});
    }
    return {{"parts", rows},
            {"plugin",
             QJsonObject{{"origin", chosen.origin},
                         {"identifier", plugin.identifier},
                         {"qtVersion", plugin.qtVersion},
                         {"machine", plugin.machine},
                         {"limits", limits}}}};
}

/// Tries the plugin, and the page plugins beside it when nothing speaks against it.
PagesTried tryPlugins(const Plugin &plugin, bool loads)
{
    try {
        const Findings findings = loads ? checkPlugin(plugin.file) : checkPluginUnloaded(plugin.file);
        PagesTried tried;
        if (loads && findings.isEmpty()) {
            QStringList pages = pagePlugins(plugin.file);
            std::transform(pages.begin(), pages.end(), pages.begin(), fileAt);
            tried = tryPagePlugins(plugin.file, pages);
        }
        tried.findings = plugin.findings + findings + tried.findings;
        return tried;
    } catch (const std::system_error &error) { // says nothing about the plugin
        throw ToolError(ExitCode::Usage, QString::fromLocal8Bit(error.what()));
    }
}
}

ExitCode doctor(const DoctorOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    const Plugin plugin = pluginFor(options);
    const ConfigurationFile catalogue = readConfiguration(InstallationPaths::catalogue(), "the navigation is empty");
    const ConfigurationFile baseline
        = readConfiguration(InstallationPaths::baseline(), "the plugin loads no check item");
    const QStringList directories
        = pictureDirectoriesIn(TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures()));
    const PictureFiles pictures = listPictures(directories);
    const auto foundIn = [](const ConfigurationFile &file, auto check) {
        return file.findings.isEmpty() ? check(file.file, file.content) : file.findings;
    };
    const PagesTried tried = tryPlugins(plugin, options.loads);
    const auto checkCatalogueWithOthers = [&](const QString &file, const QByteArray &content) {
        return checkCatalogue(file, content)
            + (directories.isEmpty() ? Findings() : checkIcons(file, content, pictures))
            + (tried.controllers.isEmpty() ? Findings() : checkControllers(file, content, tried.controllers));
    };
    QVector<Part> parts{
        {"plugin", plugin.file, tried.findings},
        {"catalogue", catalogue.file, foundIn(catalogue, checkCatalogueWithOthers)},
        {"baseline", baseline.file, foundIn(baseline, checkBaseline)},
        {"pictures", TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures()),
         checkPictureDirectories(pictures, !directories.isEmpty())},
        {"permissions", options.root,
         checkAccess(guardedPaths(baseline.content, directories, pictures, plugin))
             + (options.root == "/" ? checkProcessFiles() : Findings())},
    };
    FindingReport report(options.findings);
    for (Part &part : parts) {
        part.findings = report.add(part.findings,
                                   QFileInfo(TavCommonUtils::pathInSystemRoot(InstallationPaths::catalogue())).path());
    }
    const TavPluginFacts facts = TavPluginHost::factsOf(plugin.file);
    if (report.showsText()) {
        printInstallation(parts, plugin, facts, limitsOf(options));
        printFindingsHeading(report.findings());
    }
    report.print(countedText(parts.size(), "part") + " checked", documentOf(parts, plugin, facts, limitsOf(options)));
    return report.exitCode();
}
