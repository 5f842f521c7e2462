#include "SoftwareReader.h"

#include "HostFile.h"
#include "TextBuffer.h"

#include <QSet>

namespace
{
const QByteArray infoDirectory = QByteArrayLiteral("/var/lib/dpkg/info");

using Fields = QHash<QByteArray, QByteArray>;

/// The fields of one paragraph of the database, first lines only.
Fields fieldsOf(const QByteArray &paragraph)
{
    Fields fields;
    const QList<QByteArray> lines = paragraph.split('\n');
    for (const QByteArray &line : lines) {
        const int colon = line.indexOf(':');
        if (colon > 0 && !line.startsWith(' ')) {
            fields.insert(line.left(colon), line.mid(colon + 1).trimmed());
        }
    }
    return fields;
}

/// Time of installation in seconds since the epoch: that of the package's list of files; 0 when unknown.
qint64 installTime(const QString &root, const QByteArray &package, const QByteArray &architecture)
{
    for (const QByteArray &name : {package, package + ':' + architecture}) {
        if (const auto status = HostFile::status(root, infoDirectory + '/' + name + ".list")) {
            return status->st_mtim.tv_sec;
        }
    }
    return 0;
}

QSet<QByteArray> divertedPaths(const QString &root)
{
    // Three lines each: the path, where it has been put, the package that did so.
    const QList<QByteArray> lines = HostFile::attribute(root, "/var/lib/dpkg/diversions").split('\n');
    QSet<QByteArray> paths;
    for (int i = 0; i < lines.size(); i += 3) {
        paths.insert(lines.at(i));
    }
    return paths;
}
}

Tav::SystemProtect::SoftUnloadProtectContentAsr SoftwareReader::readProtectedPackages(const QString &root,
                                                                                      ReadingNotes &notes)
{
    Tav::SystemProtect::SoftUnloadProtectContentAsr content;
    const QByteArray database = HostFile::readOrNote(root, "/var/lib/dpkg/status", notes).value_or(QByteArray());
    for (int start = 0; start < database.size();) {
        int end = database.indexOf("\n\n", start);
        end = end < 0 ? database.size() : end;
        const Fields fields = fieldsOf(database.mid(start, end - start));
        start = end + 2;
        const QByteArray status = fields.value("Status");
        const bool held = status.startsWith("hold ");
        if (!status.endsWith(" installed")
            || (fields.value("Essential") != "yes" && fields.value("Protected") != "yes" && !held)) {
            continue;
        }
        auto *const entry = content.add_entries();
        entry->set_id(content.entries_size());
        entry->set_package(TextBuffer::message(fields.value("Package")));
        entry->set_version(TextBuffer::message(fields.value("Version")));
        entry->set_architecture(TextBuffer::message(fields.value("Architecture")));
        entry->set_summary(TextBuffer::message(fields.value("Description")));
        entry->set_size(fields.value("Installed-Size").toULongLong() * 1024);
        entry->set_install_time(installTime(root, fields.value("Package"), fields.value("Architecture")));
        entry->set_enabled(true);
    }
    content.set_mode(content.entries_size() > 0 ? 2 : 0);
    return content;
}

QHash<QByteArray, QByteArray> SoftwareReader::readPackageDigests(const QString &root, const QVector<QByteArray> &paths,
                                                                 ReadingNotes &notes)
{
    constexpr int digestSize = 32;
    QSet<QByteArray> wanted(paths.cbegin(), paths.cend());
    wanted.subtract(divertedPaths(root));
    QHash<QByteArray, QByteArray> digests;
    const QVector<QByteArray> names = HostFile::entriesOrNote(root, infoDirectory, notes);
    for (const QByteArray &name : names) {
        if (!name.endsWith(".md5sums")) {
            continue;
        }
        const QByteArray content = HostFile::readOrNote(root, infoDirectory + '/' + name, notes).value_or(QByteArray());
        const QList<QByteArray> lines = content.split('\n');
        for (const QByteArray &line : lines) {
            // "digest  path", the path without the leading slash
            const QByteArray path = '/' + line.mid(digestSize + 2);
            // A package may still name the place a file had before /bin and /sbin became links into /usr.
            for (const QByteArray &place : {path, "/usr" + path}) {
                if (wanted.contains(place)) {
                    digests.insert(place, line.left(digestSize));
                }
            }
        }
    }
    return digests;
}
