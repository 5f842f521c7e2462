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

/// What @p file leads to, links followed as in the system root; a file that does not exist when it leads nowhere.
QFileInfo targetOf(const QString &file)
{
    const QString path = pathWithinRoot(file);
    if (path.isEmpty()) {
        return {QFileInfo(file).canonicalFilePath()};
    }
    const RootedPath at = followInRoot(path);
    return at.error == 0 ? QFileInfo(at.file()) : QFileInfo();
}

bool isListable(const QFileInfo &directory)
{
    return directory.isDir() && directory.isReadable() && directory.isExecutable();
}

/// @brief What lies in a directory under one name.
struct Entry {
    QString file; ///< as it is named
    QFileInfo itself; ///< without following it
    QFileInfo target; ///< what it leads to

    bool isNamedAsPicture() const
    {
        return QDir::match(pattern, itself.fileName());
    }

    /// Whether the plugin, which goes by names and targets, takes it for a picture or for more of them.
    bool isTaken() const
    {
        const bool isOfAKind = target.isDir() || target.isFile() || (itself.isSymLink() && target.exists());
        return isNamedAsPicture() && !itself.isHidden() && isOfAKind;
    }
};

/// In the order in which the plugin lists them; none where that is no directory, or a closed one.
QVector<Entry> entriesOf(const QString &path)
{
    QVector<Entry> entries;
    const QFileInfo directory = targetOf(path);
    if (isListable(directory)) {
        const QFileInfoList all
            = QDir(directory.filePath())
                  .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                 QDir::Name | QDir::IgnoreCase);
        for (const QFileInfo &itself : all) {
            const QString file = QDir(path).filePath(itself.fileName());
            entries.append({file, itself, targetOf(file)});
        }
    }
    return entries;
}

/// @brief Lists directories as the plugin does: its name filter holds for subdirectories too, and where two ways lead
/// to one directory under one name, only the later one is listed.
class Listing
{
public:
    explicit Listing(const QStringList &directories)
    {
        for (const QString &directory : directories) {
            m_scannedOrTold.insert(targetOf(directory).absoluteFilePath());
        }
        for (const QString &directory : directories) {
            m_listed.clear();
            m_found.clear();
            list(directory);
            const QFileInfo target = targetOf(directory);
            if (!isListable(target)) {
                m_result.passedOver.append({FindingCode::NotReadable, directory, target});
            } else if (m_found.isEmpty()) {
                m_result.passedOver.append({FindingCode::EmptyPictureDirectory, directory, target});
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
        const QDir directory(path);
        const QPair<QString, QString> identity(targetOf(path).filePath(), directory.dirName().toUpper());
        if (m_listed.contains(identity)) {
            return; // reached again, through a link
        }
        m_listed.insert(identity);
        const QVector<Entry> entries = entriesOf(path);
        for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
            if (entry->isTaken() && entry->target.isDir()) {
                list(entry->file);
            } else if (entry->isTaken() && !directory.isRoot()) { // a file in "/" has no directory name for its key
                m_found.append({directory.dirName().toUpper(), entry->itself.baseName().toUpper(), entry->file,
                                entry->target.filePath()});
            }
        }
        for (const Entry &entry : entries) {
            const std::optional<FindingCode> code = whyPassedOver(entry);
            const QString place = (entry.target.isDir() ? entry.target : entry.itself).absoluteFilePath();
            if (code && !m_scannedOrTold.contains(place)) {
                m_scannedOrTold.insert(place);
                m_result.passedOver.append({*code, entry.file, entry.itself});
            }
        }
    }

    /// Why the plugin does not take an entry; none for what it takes, and for what nobody takes for a picture.
    static std::optional<FindingCode> whyPassedOver(const Entry &entry)
    {
        static const QStringList otherSuffixes{"bmp",  "gif", "ico",  "jpeg", "jpg", "svg",
                                               "svgz", "tif", "tiff", "webp", "xpm"};
        if (entry.isTaken()) {
            return std::nullopt;
        }
        if (entry.target.isDir()) {
            const bool isMeant = !entry.itself.isHidden()
                && QDirIterator(entry.target.filePath(), {pattern}, QDir::Files, QDirIterator::Subdirectories)
                       .hasNext();
            return isMeant ? std::optional(FindingCode::PictureDirectoryInside) : std::nullopt;
        }
        if (!entry.isNamedAsPicture()) {
            // Beside the PNG picture that was made of it, it is not meant for the plugin.
            const QString beside = QFileInfo(entry.file).path() + '/' + entry.itself.completeBaseName() + ".png";
            const bool isMeant = otherSuffixes.contains(entry.itself.suffix().toLower()) && !targetOf(beside).exists();
            return isMeant ? std::optional(FindingCode::PictureOfOtherSuffix) : std::nullopt;
        }
        return !entry.target.exists() ? FindingCode::PictureLinkDangling
            : !entry.target.isFile()  ? FindingCode::PictureNotAFile
                                      : FindingCode::PictureHidden;
    }

    /// A file that is loaded again for its key, as from a directory that is appended twice, counts once.
    void keepLastOfEachFile()
    {
        QSet<QPair<QString, QString>> kept;
        QVector<PictureFile> files;
        for (auto picture = m_result.files.crbegin(); picture != m_result.files.crend(); ++picture) {
            const QPair<QString, QString> identity(picture->key(), picture->target);
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
    QHash<QString, PictureFile> winners;
    for (const PictureFile &picture : files) {
        winners.insert(picture.key(), picture);
    }
    for (const PictureFile &picture : files) {
        const PictureFile winner = winners[picture.key()];
        if (picture.target == winner.target) {
            continue;
        }
        const bool isChance = differInCaseAlone(picture.file, winner.file);
        findings.append(
            Finding::ofFile(isChance ? FindingCode::PictureLeftToChance : FindingCode::PictureKeyTwice, picture.file,
                            QString("has the same key as %1: %2").arg(winner.file, picture.key()),
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
    const QFileInfo file(picture.target);
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
    QImageReader reader(picture.target);
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
    const bool isAmongBlanks = picture.name.trimmed() != picture.name;
    if (isAmongBlanks || picture.directory.trimmed() != picture.directory) {
        found(FindingCode::BlankInPictureName,
              isAmongBlanks ? "a blank at the edge of the name" : "a blank at the edge of its directory's name",
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
        return found("a link to nothing: " + entry.itself.symLinkTarget(), passedOver,
                     "put the picture there, or remove the link");
    case FindingCode::EmptyPictureDirectory:
        return found("a picture directory without pictures", "pages find nothing in it",
                     "put pictures there, or remove it");
    case FindingCode::NotReadable:
        return found("cannot be listed; " + ownerText(entry.itself.filePath()), "what it holds is not known",
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

QStringList pictureDirectoriesIn(const QString &path)
{
    QStringList directories;
    const QVector<Entry> entries = entriesOf(path);
    for (const Entry &entry : entries) {
        if (entry.target.isDir() && !entry.itself.isHidden()) {
            directories.append(entry.file);
        }
    }
    return directories;
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

Findings checkStrayPictures(const QString &path)
{
    Findings findings;
    const QVector<Entry> entries = entriesOf(path);
    for (const Entry &entry : entries) {
        const auto found = [&](FindingCode code, const QString &problem, const QString &effect, const QString &advice) {
            findings.append(Finding::ofFile(code, entry.file, problem, effect, advice));
        };
        const bool isDirectory = entry.target.isDir();
        if (entry.itself.isSymLink() && !entry.target.exists()) {
            found(FindingCode::PictureLinkDangling, "a link to nothing: " + entry.itself.symLinkTarget(),
                  "the client has no pictures from there", "put the picture directory there, or remove the link");
        } else if (isDirectory && entry.itself.isHidden()
                   && QDirIterator(entry.target.filePath(), {pattern}, QDir::Files).hasNext()) {
            found(FindingCode::PictureHidden, "a hidden picture directory", "the client passes over it",
                  "give it a name without a dot before it, or remove it");
        } else if (entry.isTaken() && !isDirectory) {
            found(FindingCode::PictureOutside, "a picture outside of every picture directory",
                  QString("the plugin holds it only for a client that loads %1 itself, under the key %2/%3")
                      .arg(path, QDir(path).dirName().toUpper(), entry.itself.baseName().toUpper()),
                  "move it into a picture directory");
        }
    }
    return findings;
}
