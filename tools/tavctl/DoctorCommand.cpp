#include "DoctorCommand.h"

#include "BaselineCheck.h"
#include "CatalogueCheck.h"
#include "InstallationPaths.h"
#include "PictureCheck.h"
#include "PluginCheck.h"
#include "Presentation.h"
#include "TavCommonUtils.h"
#include "TavGlobalInfoMgr.h"
#include "TavPluginHost.h"
#include "TextTable.h"
#include "WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

namespace
{
/// @brief One part of an installation with what was found in it.
struct Part {
    QString name;
    QString place; ///< file or directory
    Findings findings;
};

using FileCheck = Findings (*)(const QString &file, const QByteArray &content);

/// Checks a file of the installation; that it is missing is a finding too.
Part checkFile(const QString &name, const QString &path, FileCheck check, const QString &effectOfNone)
{
    const QString file = TavCommonUtils::pathInSystemRoot(path);
    QByteArray content;
    const QString error = WholeFile::tryRead(file, content);
    if (error.isEmpty()) {
        return {name, file, check(file, content)};
    }
    return {name,
            file,
            {Finding::ofFile(FindingCode::NoConfigurationFile, file, error, effectOfNone,
                             "put it there, or name another system root with --root")}};
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

Part checkPictureDirectories()
{
    const QString path = TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures());
    const QDir directory(path);
    const QStringList names = directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    if (names.isEmpty()) {
        const Findings none{
            Finding::ofFile(FindingCode::NoPictureDirectory, path,
                            directory.exists() ? "there is no directory in it" : "there is no such directory",
                            "the pages have no pictures",
                            "put the picture directories there, or name another system root with --root")};
        return {"pictures", path, none + checkStrayPictures(directory)};
    }
    QStringList directories;
    for (const QString &name : names) {
        directories.append(directory.filePath(name));
    }
    return {"pictures", path, checkPictures(listPictures(directories)) + checkStrayPictures(directory)};
}

/// @brief The plugin that an installation is checked with.
struct Plugin {
    QString file;
    QString origin; ///< why it is that one, where that is not plain
};

Plugin pluginFor(const DoctorOptions &options)
{
    if (!options.plugin.isEmpty()) {
        return {options.plugin, {}};
    }
    if (options.root == "/") {
        return {InstallationPaths::pluginBesideProgram(), {}};
    }
    const QString installed = InstallationPaths::plugin();
    return installed.isEmpty()
        ? Plugin{InstallationPaths::pluginBesideProgram(), "none below " + options.root + "; beside tavctl"}
        : Plugin{installed, {}};
}

void printInstallation(const QVector<Part> &parts, const Plugin &chosen, const TavPluginFacts &plugin)
{
    printHeading("Installation");
    TextTable table({{"part"}, {"place", TextTable::Left, 120}, {"state"}});
    for (const Part &part : parts) {
        table.addRow({part.name, part.place, countText(part.findings)});
    }
    table.print();
    if (!plugin.identifier.isEmpty()) {
        printLine(printable(QString("plugin: %1%2, built with Qt %3 for %4")
                                .arg(chosen.origin.isEmpty() ? QString() : chosen.origin + ": ", plugin.identifier,
                                     plugin.qtVersion, plugin.machine)));
    }
}

QJsonObject documentOf(const QVector<Part> &parts, const Plugin &chosen, const TavPluginFacts &plugin)
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
                         {"machine", plugin.machine}}}};
}
}

ExitCode doctor(const DoctorOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    const Plugin plugin = pluginFor(options);
    const QVector<Part> parts{
        {"plugin", plugin.file, checkPlugin(plugin.file)},
        checkFile("catalogue", InstallationPaths::catalogue(), checkCatalogue, "the navigation is empty"),
        checkFile("baseline", InstallationPaths::baseline(), checkBaseline, "the plugin loads no check item"),
        checkPictureDirectories(),
    };
    FindingReport report(options.findings);
    for (const Part &part : parts) {
        report.add(part.findings, QFileInfo(TavCommonUtils::pathInSystemRoot(InstallationPaths::catalogue())).path());
    }
    const TavPluginFacts facts = TavPluginHost::factsOf(plugin.file);
    if (report.showsText()) {
        printInstallation(parts, plugin, facts);
        printFindingsHeading(report.findings());
    }
    report.print(numbered(parts.size(), "part") + " checked", documentOf(parts, plugin, facts));
    return report.exitCode();
}
