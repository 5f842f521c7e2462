#include "TavPicResourceMgr.h"

#include <QDir>
#include <QFileInfo>
#include <QPair>
#include <QSet>
#include <QVector>

namespace
{
/// @brief One PNG file found by a scan.
struct _PngInfo { // NOLINT(bugprone-reserved-identifier): the client's own name
    QString filePath; ///< as the directory listing gives it
    QString baseName; ///< the file's name before its first dot, upper-cased
    QString dirName; ///< name of the parent directory as it stands in filePath, upper-cased
};

/// The name of the directory that holds the file at @p filePath, upper-cased: what stands between its last two slashes.
/// Null when it has fewer.
QString dirNameOf(const QString &filePath)
{
    const int lastSlash = filePath.lastIndexOf(QLatin1Char('/'));
    const int slashBefore = filePath.leftRef(lastSlash).lastIndexOf(QLatin1Char('/'));
    return slashBefore < 0 ? QString() : filePath.mid(slashBefore + 1, lastSlash - slashBefore - 1).toUpper();
}

/// Directories already listed in one append, each with the name that its files got. A directory that is reached again
/// under the same name, as through a link to its own parent, holds no new key.
using Listed = QSet<QPair<QString, QString>>;

/// Adds the files under @p path to @p found, the last of the listing first: where two ways lead to one directory, the
/// later one counts, so it is the one to be listed.
void scan(const QString &path, Listed &listed, QVector<_PngInfo> &found)
{
    // The name filter holds for directories too: a subdirectory is entered only when its own name ends in ".png".
    // "." and ".." never match it.
    const QDir dir(path, QStringLiteral("*.png"), QDir::Name | QDir::IgnoreCase, QDir::Dirs | QDir::Files);
    const QString dirName = dirNameOf(dir.filePath(QStringLiteral("x.png")));
    const QPair<QString, QString> identity(dir.canonicalPath(), dirName);
    if (!dir.exists() || listed.contains(identity)) {
        return;
    }
    listed.insert(identity);
    const QFileInfoList entries = dir.entryInfoList();
    for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
        if (entry->isDir()) {
            scan(entry->filePath(), listed, found);
        } else if (!dirName.isNull()) {
            found.append({entry->filePath(), entry->baseName().toUpper(), dirName});
        }
    }
}

/// A null image when the file cannot be read or decoded. What a link names may be a pipe, which is not opened: nobody
/// may ever write it.
std::shared_ptr<QImage> load(const QString &filePath)
{
    return QFileInfo(filePath).isFile() ? std::make_shared<QImage>(filePath) : std::make_shared<QImage>();
}
}

TavPicResourceMgr::TavPicResourceMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavPicResourceMgr::getObject()
{
    return this;
}

std::shared_ptr<QImage> TavPicResourceMgr::getImageRef(const QString &dirName, const QString &imageName)
{
    const auto image = images.find({dirName.toUpper(), imageName.toUpper()});
    return image == images.end() ? nullptr : image->second;
}

void TavPicResourceMgr::appendPicResourcePath(const QString &path)
{
    Listed listed;
    QVector<_PngInfo> found;
    scan(path, listed, found);
    // Later files replace earlier ones of the same key, also those of an earlier append: appending again reloads.
    for (auto png = found.crbegin(); png != found.crend(); ++png) {
        images[{png->dirName, png->baseName}] = load(png->filePath);
    }
}
