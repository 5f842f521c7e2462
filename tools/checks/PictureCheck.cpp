#include "PictureCheck.h"

#include <QDir>
#include <QHash>
#include <QImageReader>
#include <QPair>
#include <QSet>

#include <algorithm>

namespace
{
const QLatin1String pattern("*.png");

/// @brief Lists directories as the plugin does: its name filter holds for subdirectories too, and where two ways lead
/// to one directory under one name, only the later one is listed.
class Listing
{
public:
    explicit Listing(const QStringList &directories)
    {
        for (const QString &directory : directories) {
            m_scannedOrTold.insert(QDir(directory).canonicalPath());
        }
        for (const QString &directory : directories) {
            m_listed.clear();
            m_found.clear();
            list(directory);
            std::reverse(m_found.begin(), m_found.end());
            m_result.files += m_found;
        }
        keepLastOfEachFile();
        m_result.skippedDirectories.sort();
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
        const QPair<QString, QString> identity(directory.canonicalPath(), directory.dirName().toUpper());
        if (m_listed.contains(identity)) {
            return; // reached again, through a link
        }
        m_listed.insert(identity);
        const QFileInfoList entries
            = directory.entryInfoList({pattern}, QDir::Dirs | QDir::Files, QDir::Name | QDir::IgnoreCase);
        for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
            if (entry->isDir()) {
                list(entry->filePath());
            } else if (!directory.isRoot()) { // a file in "/" has no directory name for its key
                m_found.append({directory.dirName().toUpper(), entry->baseName().toUpper(), entry->filePath()});
            }
        }
        const QFileInfoList below = directory.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QFileInfo &entry : below) {
            const QString place = entry.canonicalFilePath();
            if (!QDir::match(pattern, entry.fileName()) && !m_scannedOrTold.contains(place)) {
                m_scannedOrTold.insert(place);
                m_result.skippedDirectories.append(entry.filePath());
            }
        }
    }

    /// A file that is loaded again for its key, as from a directory that is appended twice, counts once.
    void keepLastOfEachFile()
    {
        QSet<QPair<QString, QString>> kept;
        QVector<PictureFile> files;
        for (auto picture = m_result.files.crbegin(); picture != m_result.files.crend(); ++picture) {
            const QPair<QString, QString> identity(picture->key(), QFileInfo(picture->file).canonicalFilePath());
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
        const QFileInfo winner(winners[picture.key()]);
        const QFileInfo file(picture.file);
        if (file.canonicalFilePath() == winner.canonicalFilePath()) {
            continue;
        }
        const bool isChance = differInCaseAlone(picture.file, winner.filePath());
        findings.append(
            Finding::ofFile(isChance ? FindingCode::PictureLeftToChance : FindingCode::PictureKeyTwice, picture.file,
                            QString("has the same key as %1: %2").arg(winner.filePath(), picture.key()),
                            isChance ? "which of the two the plugin holds is left to chance"
                                     : "the other one wins: the plugin loads it later, and this picture is never found",
                            "give one of them a name that differs before its first dot"));
    }
}

void checkContents(const QVector<PictureFile> &files, Findings &findings)
{
    for (const PictureFile &picture : files) {
        // A pipe or a device in a picture's place could block for ever.
        QImageReader reader(picture.file);
        const bool isFile = QFileInfo(picture.file).isFile();
        if (!isFile || reader.read().isNull()) {
            findings.append(Finding::ofFile(
                isFile ? FindingCode::PictureUndecodable : FindingCode::PictureNotAFile, picture.file,
                isFile ? "cannot be decoded: " + reader.errorString() : "not a regular file",
                "the plugin holds an empty picture for the key " + picture.key(), "put a PNG picture in its place"));
        }
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
    checkContents(pictures.files, findings);
    for (const QString &directory : pictures.skippedDirectories) {
        findings.append(Finding::ofFile(FindingCode::PictureDirectoryInside, directory,
                                        "a directory inside a picture directory", "the plugin does not scan it",
                                        "move it beside the directory that it is in"));
    }
    return findings;
}
