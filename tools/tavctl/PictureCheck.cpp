#include "PictureCheck.h"

#include <QDir>
#include <QHash>
#include <QImageReader>
#include <QSet>

namespace
{
const QLatin1String pattern("*.png");

/// @brief Lists directories as the plugin does: its name filter holds for subdirectories too.
class Listing
{
public:
    explicit Listing(const QStringList &directories) : m_appended(directories.begin(), directories.end())
    {
        for (const QString &directory : directories) {
            m_listed.clear();
            list(directory);
        }
    }

    PictureFiles result() const
    {
        return m_result;
    }

private:
    void list(const QString &path)
    {
        const QDir directory(path);
        if (m_listed.contains(directory.canonicalPath())) {
            return; // reached again, through a link
        }
        m_listed.insert(directory.canonicalPath());
        const QFileInfoList entries
            = directory.entryInfoList({pattern}, QDir::Dirs | QDir::Files, QDir::Name | QDir::IgnoreCase);
        for (const QFileInfo &entry : entries) {
            if (entry.isDir()) {
                list(entry.filePath());
            } else {
                m_result.files.append({directory.dirName().toUpper(), entry.baseName().toUpper(), entry.filePath()});
            }
        }
        const QFileInfoList below = directory.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QFileInfo &entry : below) {
            if (!QDir::match(pattern, entry.fileName()) && !m_appended.contains(entry.filePath())) {
                m_result.skippedDirectories.append(entry.filePath());
            }
        }
    }

    QSet<QString> m_appended;
    QSet<QString> m_listed; // in the directory that is being appended
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
        const bool isToss = file.path() == winner.path() && file.fileName().toUpper() == winner.fileName().toUpper();
        findings.append({picture.file,
                         {},
                         {},
                         QString("has the same key as %1: %2").arg(winner.filePath(), picture.key()),
                         isToss ? "which of the two the plugin holds is left to chance"
                                : "the other one wins: the plugin loads it later, and this picture is never found",
                         "rename one of them before its first dot"});
    }
}

void checkContents(const QVector<PictureFile> &files, Findings &findings)
{
    for (const PictureFile &picture : files) {
        // A pipe or a device in a picture's place could block for ever.
        QImageReader reader(picture.file);
        const bool isFile = QFileInfo(picture.file).isFile();
        if (!isFile || reader.read().isNull()) {
            findings.append({picture.file,
                             {},
                             {},
                             isFile ? "cannot be decoded: " + reader.errorString() : "not a regular file",
                             "the plugin holds an empty picture for the key " + picture.key(),
                             "put a PNG picture in its place"});
        }
    }
}
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
        findings.append({directory,
                         {},
                         {},
                         "a directory inside a picture directory",
                         "the plugin does not scan it",
                         "move it beside the directory that it is in"});
    }
    return findings;
}
