#include "PictureCheck.h"

#include "DecoderMessages.h"
#include "FileOwner.h"
#include "RootedPath.h"

#include <QDir>
#include <QDirIterator>
#include <QHash>
#include <QImageReader>
#include <QPair>
#include <QSet>

#include <algorithm>
#include <optional>

namespace
{
const QLatin1String pattern("*.png");

QString canonicalPathOf(const QString &file)
{
    return QFileInfo(followedInRoot(file)).canonicalFilePath();
}

/// @brief Lists directories as the plugin does: its name filter holds for subdirectories too, and where two ways lead
/// to one directory under one name, only the later one is listed.
class Listing
{
public:
    explicit Listing(const QStringList &directories)
    {
        for (const QString &directory : directories) {
            m_scannedOrTold.insert(canonicalPathOf(directory));
        }
        for (const QString &directory : directories) {
            m_listed.clear();
            m_found.clear();
            list(directory);
            if (!QDir(followedInRoot(directory)).isReadable()) {
                m_result.passedOver.append({FindingCode::NotReadable, directory});
            } else if (m_found.isEmpty()) {
                m_result.passedOver.append({FindingCode::EmptyPictureDirectory, directory});
            }
            std::reverse(m_found.begin(), m_found.end());
            m_result.files += m_found;
        }
        keepLastOfEachFile();
    }

    PictureFiles result() const
    {
        return m_result;
    }

private:
    /// Appends the pictures below @p path to m_found, the last one first.
    void list(const QString &path)
    {
        const QDir directory(followedInRoot(path));
        const QString name = QDir(path).dirName().toUpper();
        const QPair<QString, QString> identity(directory.canonicalPath(), name);
        if (m_listed.contains(identity)) {
            return; // reached again, through a link
        }
        m_listed.insert(identity);
        QFileInfoList entries = directory.entryInfoList({pattern}, QDir::Dirs | QDir::Files | QDir::System,
                                                        QDir::Name | QDir::IgnoreCase);
        entries.erase(std::remove_if(entries.begin(), entries.end(), isNotListed), entries.end());
        QSet<QString> listed; // by name: two links to nothing are equal as QFileInfo
        for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
            listed.insert(entry->fileName());
            if (QFileInfo(followedInRoot(entry->filePath())).isDir()) {
                list(entry->filePath());
            } else if (!directory.isRoot()) { // a file in "/" has no directory name for its key
                m_found.append({name, entry->baseName().toUpper(), entry->filePath()});
            }
        }
        const QFileInfoList all = directory.entryInfoList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
        for (const QFileInfo &entry : all) {
            const std::optional<FindingCode> code = whyPassedOver(entry);
            const QFileInfo real(followedInRoot(entry.filePath()));
            const QString place = real.isDir() ? real.canonicalFilePath() : entry.absoluteFilePath();
            if (code && !listed.contains(entry.fileName()) && !m_scannedOrTold.contains(place)) {
                m_scannedOrTold.insert(place);
                m_result.passedOver.append({*code, entry.filePath()});
            }
        }
    }

    /// Whether the plugin, in the running system, lists neither this file nor what it is a link to.
    static bool isNotListed(const QFileInfo &entry)
    {
        return entry.isSymLink() ? !QFileInfo::exists(followedInRoot(entry.filePath()))
                                 : !entry.isDir() && !entry.isFile();
    }

    /// Why the plugin does not take an entry that it does not list; none for what nobody takes for a picture.
    static std::optional<FindingCode> whyPassedOver(const QFileInfo &entry)
    {
        static const QStringList otherSuffixes{"bmp",  "gif", "ico",  "jpeg", "jpg", "svg",
                                               "svgz", "tif", "tiff", "webp", "xpm"};
        const bool isNamedSo = QDir::match(pattern, entry.fileName());
        const QFileInfo real(followedInRoot(entry.filePath()));
        if (real.isDir()) {
            const bool isMeant = !isNamedSo && !entry.isHidden()
                && QDirIterator(real.filePath(), {pattern}, QDir::Files, QDirIterator::Subdirectories).hasNext();
            return isMeant ? std::optional(FindingCode::PictureDirectoryInside) : std::nullopt;
        }
        if (!isNamedSo) {
            // Beside the PNG picture that was made of it, it is not meant for the plugin.
            const bool isMeant = otherSuffixes.contains(entry.suffix().toLower())
                && !QFileInfo::exists(entry.path() + '/' + entry.completeBaseName() + ".png");
            return isMeant ? std::optional(FindingCode::PictureOfOtherSuffix) : std::nullopt;
        }
        return !real.exists() ? FindingCode::PictureLinkDangling
            : !real.isFile()  ? FindingCode::PictureNotAFile
                              : FindingCode::PictureHidden;
    }

    /// A file that is loaded again for its key, as from a directory that is appended twice, counts once.
    void keepLastOfEachFile()
    {
        QSet<QPair<QString, QString>> kept;
        QVector<PictureFile> files;
        for (auto picture = m_result.files.crbegin(); picture != m_result.files.crend(); ++picture) {
            const QPair<QString, QString> identity(picture->key(), canonicalPathOf(picture->file));
            if (!kept.contains(identity)) {
                kept.insert(identity);
                files.append(*picture);
            }
        }
        std::reverse(files.begin(), files.end());
        m_result.files = files;
    }

    QSet<QString> m_scannedOrTold; // directories that are scanned anyway, or reported already
    QSet<QPair<QString, QString>> m_listed; // path and name, in the directory that is being appended
    QVector<PictureFile> m_found; // there, the last to be loaded first
    PictureFiles m_result;
};

void checkKeys(const QVector<PictureFile> &files, Findings &findings)
{
    QHash<QString, QString> winners;
    for (const PictureFile &picture : files) {
        winners.insert(picture.key(), picture.file);
    }
    for (const PictureFile &picture : files) {
        const QString winner = winners[picture.key()];
        if (canonicalPathOf(picture.file) == canonicalPathOf(winner)) {
            continue;
        }
        const bool isChance = differInCaseAlone(picture.file, winner);
        findings.append(
            Finding::ofFile(isChance ? FindingCode::PictureLeftToChance : FindingCode::PictureKeyTwice, picture.file,
                            QString("has the same key as %1: %2").arg(winner, picture.key()),
                            isChance ? "which of the two the plugin holds is left to chance"
                                     : "the other one wins: the plugin loads it later, and this picture is never found",
                            "give one of them a name that differs before its first dot"));
    }
}

void checkContent(const PictureFile &picture, Findings &findings)
{
    const QString emptyPicture = "the plugin holds an empty picture for the key " + picture.key();
    const auto found = [&](FindingCode code, const QString &problem, const QString &effect, const QString &advice) {
        findings.append(Finding::ofFile(code, picture.file, problem, effect, advice));
    };
    const QFileInfo file(followedInRoot(picture.file));
    if (!file.isFile()) { // a pipe or a device in a picture's place could block for ever
        found(FindingCode::PictureNotAFile, "not a regular file", emptyPicture, "put a PNG picture in its place");
        return;
    }
    if (!file.isReadable()) {
        found(FindingCode::NotReadable, "cannot be read; " + ownerText(file.filePath()), "what it holds is not known",
              "look at it as a user who may read it");
        return;
    }
    const DecoderMessages messages;
    QImageReader reader(file.filePath());
    const QSize size = reader.size();
    constexpr qint64 mostPixels = 16 << 20;
    if (qint64(size.width()) * size.height() > mostPixels) {
        found(FindingCode::PictureTooLarge, QString("has %1 × %2 pixels").arg(size.width()).arg(size.height()),
              QString("the plugin takes %1 MiB of memory for it").arg((qint64(size.width()) * size.height() * 4) >> 20),
              "put a smaller picture in its place");
        return;
    }
    const QByteArray format = reader.format();
    if (reader.read().isNull()) {
        const QString reason = messages.text();
        found(FindingCode::PictureUndecodable,
              "cannot be decoded: " + (reason.isEmpty() ? reader.errorString() : reason), emptyPicture,
              "put a PNG picture in its place");
    } else if (format != "png") {
        found(FindingCode::PictureOfOtherFormat, "is no PNG picture, but " + QString::fromLatin1(format),
              "the plugin holds it where a decoder for that is installed", "put a PNG picture in its place");
    }
    if (picture.name.trimmed() != picture.name) {
        found(FindingCode::BlankInPictureName, "a blank at the edge of the name",
              QString("the plugin holds it under the key \"%1\", blank included").arg(picture.key()), "rename it");
    }
}

Finding findingOn(const PassedOver &entry)
{
    const auto found = [&entry](const QString &problem, const QString &effect, const QString &advice) {
        return Finding::ofFile(entry.code, entry.file, problem, effect, advice);
    };
    const QString passedOver = "the plugin passes over it";
    switch (entry.code) {
    case FindingCode::PictureDirectoryInside:
        return found("a directory inside a picture directory", "the plugin does not scan it",
                     "move it beside the directory that it is in");
    case FindingCode::PictureOfOtherSuffix:
        return found("a picture of another suffix", passedOver, "put a PNG picture in its place");
    case FindingCode::PictureHidden:
        return found("a hidden picture", passedOver, "give it a name without a dot before it, or remove it");
    case FindingCode::PictureLinkDangling:
        return found("a link to nothing: " + QFileInfo(entry.file).symLinkTarget(), passedOver,
                     "put the picture there, or remove the link");
    case FindingCode::EmptyPictureDirectory:
        return found("a picture directory without pictures", "pages find nothing in it",
                     "put pictures there, or remove it");
    case FindingCode::NotReadable:
        return found("cannot be listed; " + ownerText(entry.file), "what it holds is not known",
                     "look at it as a user who may");
    default:
        return found("not a regular file", passedOver, "put a PNG picture in its place");
    }
}
}

bool differInCaseAlone(const QString &one, const QString &other)
{
    const QFileInfo first(one);
    const QFileInfo second(other);
    return first.path() == second.path() && first.fileName() != second.fileName()
        && first.fileName().toUpper() == second.fileName().toUpper();
}

PictureFiles listPictures(const QStringList &directories)
{
    return Listing(directories).result();
}

Findings checkPictures(const PictureFiles &pictures)
{
    Findings findings;
    checkKeys(pictures.files, findings);
    for (const PictureFile &picture : pictures.files) {
        checkContent(picture, findings);
    }
    for (const PassedOver &entry : pictures.passedOver) {
        findings.append(findingOn(entry));
    }
    return findings;
}
