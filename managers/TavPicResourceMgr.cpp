#include "TavPicResourceMgr.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPair>
#include <QSet>
#include <QVector>

#include <fcntl.h>

namespace
{
/// @brief One PNG file found by a scan.
struct _PngInfo { // NOLINT(bugprone-reserved-identifier): the client's own name
    QString filePath; ///< as the directory listing gives it
    QString baseName; ///< the file's name before its first dot, upper-cased
    QString dirName; ///< name of the parent directory as it stands in filePath, upper-cased
};

/// Directories already listed in one append, each with the name under which it was reached. A directory that is
/// reached again under the same name, as through a link to its own parent, holds no new key.
using Listed = QSet<QPair<QString, QString>>;

/// Adds the files under @p path to @p found, the last of the listing first: where two ways lead to one directory, the
/// later one counts, so it is the one to be listed.
void scan(const QString &path, Listed &listed, QVector<_PngInfo> &found)
{
    // The name filter holds for directories too: a subdirectory is entered only when its own name ends in ".png".
    // "." and ".." never match it.
    const QDir dir(path, QStringLiteral("*.png"), QDir::Name | QDir::IgnoreCase, QDir::Dirs | QDir::Files);
    const QPair<QString, QString> identity(dir.canonicalPath(), dir.dirName().toUpper());
    if (!dir.exists() || listed.contains(identity)) {
        return;
    }
    listed.insert(identity);
    const QFileInfoList entries = dir.entryInfoList();
    for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
        const QString filePath = entry->filePath();
        if (entry->isDir()) {
            scan(filePath, listed, found);
            continue;
        }
        // A path with fewer than two slashes names no parent directory; such a file is not cached.
        const int lastSlash = filePath.lastIndexOf(QLatin1Char('/'));
        const int slashBefore = filePath.leftRef(lastSlash).lastIndexOf(QLatin1Char('/'));
        if (slashBefore >= 0) {
            const QString dirName = filePath.mid(slashBefore + 1, lastSlash - slashBefore - 1);
            found.append({filePath, entry->baseName().toUpper(), dirName.toUpper()});
        }
    }
}

/// Null when the file cannot be read or decoded. A link may name a pipe or a device: not opened. Nor does a pipe that
/// takes the file's place after that look block.
std::shared_ptr<QImage> load(const QString &filePath)
{
    auto image = std::make_shared<QImage>();
    if (QFileInfo(filePath).isFile()) {
        QFile file; // reads as empty when there is nothing to open any more
        file.open(open(QFile::encodeName(filePath).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC), QIODevice::ReadOnly,
                  QFileDevice::AutoCloseHandle);
        image->load(&file, nullptr);
    }
    return image;
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
