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
#include "TavGlobalInfoMgr.h"
#include "TavPluginHost.h"
#include "TextTable.h"
#include "WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <cerrno>

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
    const QString error = WholeFile::tryRead(file.filePath(), read.content);
    if (!error.isEmpty()) {
        read.findings.append(Finding::ofFile(FindingCode::NoConfigurationFile, read.file, error, effectOfNone,
                                             "put it there, or name another system root with --root"));
    }
    return read;
}

/// Pictures that lie beside the picture directories.
Findings checkStrayPictures(const QDir &pictures)
{
    Findings findings;
    const QFileInfoList files = pictures.entryInfoList({"*.png"}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        findings.append(Finding::ofFile(
            FindingCode::PictureOutside, file.filePath(), "a picture outside of every picture directory",
            QString("the plugin holds it only for a client that loads %1 itself, under the key %2/%3")
                .arg(pictures.path(), pictures.dirName().toUpper(), file.baseName().toUpper()),
            "move it into a picture directory"));
    }
    return findings;
}

/// The picture directories of the installation, by the order of their names.
QStringList pictureDirectories()
{
    QStringList directories;
    const QDir directory(followInRoot(InstallationPaths::pictures()).file());
    const QStringList names
        = directory.entryList(QDir::Dirs | QDir::Files | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
        if (QFileInfo(followedInRoot(directory.filePath(name))).isDir()) {
            directories.append(directory.filePath(name));
        }
    }
    return directories;
}

Findings checkPictureDirectories(const PictureFiles &pictures, bool isAny)
{
    const QString path = TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures());
    const QDir directory(followInRoot(InstallationPaths::pictures()).file());
    if (directory.exists() && !directory.isReadable()) {
        return {Finding::ofFile(FindingCode::NotReadable, path, "cannot be listed; " + ownerText(directory.path()),
                                "what it holds is not known", "look at it as a user who may")};
    }
    const Findings none{Finding::ofFile(
        FindingCode::NoPictureDirectory, path,
        directory.exists() ? "there is no directory in it" : "there is no such directory", "the pages have no pictures",
        "put the picture directories there, or name another system root with --root")};
    return (isAny ? checkPictures(pictures) : none) + checkStrayPictures(directory);
}

/// @brief The plugin that an installation is checked with.
struct Plugin {
    QString file;
    QString origin; ///< why it is that one, where that is not plain
    Findings findings; ///< on its name
};

/// The file in the client's plugin directory that is the data plugin under another name; empty when there is none.
QString misnamedPlugin()
{
    const QString className = TavPluginHost::factsOf(InstallationPaths::pluginBesideProgram()).className;
    const QFileInfoList files
        = QDir(followInRoot(InstallationPaths::plugins()).file()).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        if (!className.isEmpty() && TavPluginHost::factsOf(file.absoluteFilePath()).className == className) {
            return file.absoluteFilePath();
        }
    }
    return {};
}

Plugin pluginFor(const DoctorOptions &options)
{
    if (!options.plugin.isEmpty()) {
        return {options.plugin, {}, {}};
    }
    if (options.root == "/") {
        return {InstallationPaths::pluginBesideProgram(), {}, {}};
    }
    const QString installed = InstallationPaths::plugin();
    const QString misnamed = installed.isEmpty() ? misnamedPlugin() : QString();
    if (!misnamed.isEmpty()) {
        return {misnamed,
                {},
                {Finding::ofFile(FindingCode::PluginOfOtherName, misnamed, "the data plugin under another name",
                                 "the client does not find it and has none of the managers",
                                 "rename it to libTavDataPlugin.so")}};
    }
    return installed.isEmpty()
        ? Plugin{InstallationPaths::pluginBesideProgram(), "none below " + options.root + "; beside tavctl", {}}
        : Plugin{installed, {}, {}};
}

/// What may be the page plugins of the installation.
QStringList pagePlugins(const QString &dataPlugin)
{
    QStringList files;
    const QFileInfoList entries
        = QDir(followInRoot(InstallationPaths::plugins()).file()).entryInfoList({"*.so"}, QDir::Files, QDir::Name);
    for (const QFileInfo &entry : entries) {
        if (entry.canonicalFilePath() != QFileInfo(dataPlugin).canonicalFilePath()) {
            files.append(entry.absoluteFilePath());
        }
    }
    return files;
}

/// The files that the agent runs and the client loads, by their paths.
QStringList guardedPaths(const QByteArray &baseline, const QString &plugin)
{
    QStringList paths{InstallationPaths::catalogue(), InstallationPaths::baseline(), InstallationPaths::scripts(),
                      InstallationPaths::pictures()};
    const QJsonArray items = BaselineList::itemsOf(QJsonDocument::fromJson(baseline).object());
    for (const QJsonValue &item : items) {
        paths.append(InstallationPaths::scripts() + item["checkValueScript"].toString());
    }
    const QString root = QFileInfo(TavCommonUtils::pathInSystemRoot("/")).absoluteFilePath();
    const QString inside = root == "/" ? QString() : root;
    const QStringList plugins = QStringList{plugin} + pagePlugins(plugin);
    for (const QString &file : plugins) {
        if (file.startsWith(inside + '/')) {
            paths.append(file.mid(inside.size()));
        }
    }
    return paths;
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
}

ExitCode doctor(const DoctorOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    const Plugin plugin = pluginFor(options);
    const ConfigurationFile catalogue = readConfiguration(InstallationPaths::catalogue(), "the navigation is empty");
    const ConfigurationFile baseline
        = readConfiguration(InstallationPaths::baseline(), "the plugin loads no check item");
    const QStringList directories = pictureDirectories();
    const PictureFiles pictures = listPictures(directories);
    const auto foundIn = [](const ConfigurationFile &file, auto check) {
        return file.findings.isEmpty() ? check(file.file, file.content) : file.findings;
    };
    const Findings ofPlugin = options.loads ? checkPlugin(plugin.file) : checkPluginUnloaded(plugin.file);
    const PagesTried pages
        = options.loads && ofPlugin.isEmpty() ? tryPagePlugins(plugin.file, pagePlugins(plugin.file)) : PagesTried();
    const auto checkCatalogueWithOthers = [&](const QString &file, const QByteArray &content) {
        return checkCatalogue(file, content)
            + (directories.isEmpty() ? Findings() : checkIcons(file, content, pictures))
            + (pages.controllers.isEmpty() ? Findings() : checkControllers(file, content, pages.controllers));
    };
    const QVector<Part> parts{
        {"plugin", plugin.file, plugin.findings + ofPlugin + pages.findings},
        {"catalogue", catalogue.file, foundIn(catalogue, checkCatalogueWithOthers)},
        {"baseline", baseline.file, foundIn(baseline, checkBaseline)},
        {"pictures", TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures()),
         checkPictureDirectories(pictures, !directories.isEmpty())},
        {"permissions", options.root,
         checkAccess(guardedPaths(baseline.content, plugin.file))
             + (options.root == "/" ? checkProcessFiles() : Findings())},
    };
    FindingReport report(options.findings);
    for (const Part &part : parts) {
        report.add(part.findings, QFileInfo(TavCommonUtils::pathInSystemRoot(InstallationPaths::catalogue())).path());
    }
    const TavPluginFacts facts = TavPluginHost::factsOf(plugin.file);
    if (report.showsText()) {
        printInstallation(parts, plugin, facts, limitsOf(options));
        printFindingsHeading(report.findings());
    }
    report.print(numbered(parts.size(), "part") + " checked", documentOf(parts, plugin, facts, limitsOf(options)));
    return report.exitCode();
}
