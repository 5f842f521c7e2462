#include "PicturesCommand.h"

#include "DecoderMessages.h"
#include "ITavPicResourceMgr.h"
#include "PictureCheck.h"
#include "PluginView.h"
#include "Presentation.h"
#include "TavCountedText.h"
#include "TavObjectMgr.h"
#include "TextTable.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QJsonObject>
#include <QMap>
#include <QMetaEnum>

#include <algorithm>

namespace
{
/// @brief A picture that the plugin holds.
struct HeldPicture {
    QString file; ///< the last one that was loaded for its key
    std::shared_ptr<QImage> image;
    bool leftToChance; ///< it may come from a file whose name differs in case alone
};

using HeldPictures = QMap<QString, HeldPicture>; // by key

QStringList existingDirectories(const QStringList &names)
{
    QStringList directories;
    for (const QString &name : names) {
        // An absolute path, since the plugin drops files whose path names no directory.
        directories.append(QDir::cleanPath(QFileInfo(name).absoluteFilePath()));
        if (!QFileInfo(name).isDir()) {
            throw ToolError(ExitCode::Usage,
                            name + (QFileInfo::exists(name) ? ": not a directory" : ": there is no such directory"));
        }
    }
    return directories;
}

HeldPictures load(const QStringList &directories, const QVector<PictureFile> &files)
{
    const DecoderMessages messages; // which the findings hold already
    auto &cache = *tavObject<ITavPicResourceMgr>();
    for (const QString &directory : directories) {
        cache.appendPicResourcePath(directory);
    }
    HeldPictures pictures;
    for (const PictureFile &picture : files) {
        const std::shared_ptr<QImage> image = cache.getImageRef(picture.directory, picture.name);
        if (image) { // the file may have come or gone between the two listings
            const bool leftToChance = differInCaseAlone(pictures.value(picture.key()).file, picture.file);
            pictures.insert(picture.key(), {picture.file, image, leftToChance});
        }
    }
    return pictures;
}

QString formatOf(const QImage &image)
{
    return QString(QMetaEnum::fromType<QImage::Format>().valueToKey(image.format())).remove("Format_");
}

qint64 bytesOf(const HeldPictures &pictures)
{
    qint64 bytes = 0;
    for (const HeldPicture &picture : pictures) {
        bytes += picture.image->sizeInBytes();
    }
    return bytes;
}

void printPictures(const HeldPictures &pictures)
{
    printHeading(QString("Pictures: %1, %2 bytes").arg(pictures.size()).arg(bytesOf(pictures)));
    TextTable table({{"key"},
                     {"file", TextTable::Left, 100},
                     {"pixels", TextTable::Right},
                     {"format"},
                     {"bytes", TextTable::Right}});
    for (auto picture = pictures.begin(); picture != pictures.end(); ++picture) {
        const QImage &image = *picture->image;
        table.addRow({picture.key(), picture->file + (picture->leftToChance ? " (left to chance)" : ""),
                      QString("%1×%2").arg(image.width()).arg(image.height()), formatOf(image),
                      QString::number(image.sizeInBytes())});
    }
    table.print();
}

QJsonArray picturesJson(const HeldPictures &pictures)
{
    QJsonArray rows;
    for (auto picture = pictures.begin(); picture != pictures.end(); ++picture) {
        const QImage &image = *picture->image;
        rows.append(QJsonObject{{"key", picture.key()},
                                {"file", picture->file},
                                {"leftToChance", picture->leftToChance},
                                {"width", image.width()},
                                {"height", image.height()},
                                {"format", formatOf(image)},
                                {"bytes", image.sizeInBytes()}});
    }
    return rows;
}
}

ExitCode showPictures(const PicturesOptions &options)
{
    const QStringList directories = existingDirectories(options.directories);
    const PictureFiles files = listPictures(directories);
    FindingReport report(options.findings);
    const Findings findings = checkPictures(files);
    report.add(findings, {});
    const TavPluginHost host = loadPlugin(options.plugin);
    const bool isTooLarge = std::any_of(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.code == FindingCode::PictureTooLarge;
    });
    // The plugin would decode it, too.
    const HeldPictures pictures = isTooLarge ? HeldPictures() : load(directories, files.files);
    if (report.showsText()) {
        printPictures(pictures);
        printFindingsHeading(report.findings());
    }
    report.print(countedText(directories.size(), "directory") + " checked",
                 {{"pictures", picturesJson(pictures)}, {"bytes", bytesOf(pictures)}});
    return report.exitCode();
}
