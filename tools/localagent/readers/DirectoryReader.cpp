#include "DirectoryReader.h"

#include "HostFile.h"
#include "TextBuffer.h"

#include <cerrno>

namespace
{
constexpr qint32 notProtected = 0;
constexpr qint32 missing = 3;

int countFiles(const QString &root, const QByteArray &directory, ReadingNotes &notes)
{
    int count = 0;
    const QVector<QByteArray> names = HostFile::entriesOrNote(root, directory, notes);
    for (const QByteArray &name : names) {
        const auto status = HostFile::status(root, directory + '/' + name);
        count += status && !S_ISDIR(status->st_mode) ? 1 : 0;
    }
    return count;
}

/// One record for each of @p paths; @p describe adds what there is to tell of one that the host has.
template<class Record, class Describe>
QVector<Record> recordsOf(const QVector<QByteArray> &paths, const QString &root, ReadingNotes &notes, Describe describe)
{
    QVector<Record> records(paths.size());
    for (int i = 0; i < paths.size(); ++i) {
        Record &record = records[i];
        record.id = i + 1;
        TextBuffer::copy(record.path, paths.at(i));
        int error = 0;
        if (const auto status = HostFile::status(root, paths.at(i), &error)) {
            record.state = notProtected;
            describe(paths.at(i), *status, record);
        } else {
            record.state = error == ENOENT ? missing : notProtected;
            HostFile::note(notes, paths.at(i), HostFile::errorText(error));
        }
    }
    return records;
}
}

QVector<QByteArray> DirectoryReader::keyDirectories()
{
    return {"/boot", "/etc", "/root", "/usr/bin", "/usr/lib", "/usr/sbin", "/var/log"};
}

QVector<QByteArray> DirectoryReader::keyFiles()
{
    return {"/etc/fstab",      "/etc/group",      "/etc/gshadow",       "/etc/hosts",
            "/etc/ld.so.conf", "/etc/login.defs", "/etc/nsswitch.conf", "/etc/os-release",
            "/etc/passwd",     "/etc/profile",    "/etc/shadow"};
}

QVector<STDirProtectContentAsr> DirectoryReader::readDirectories(const QString &root, ReadingNotes &notes)
{
    const auto describe = [&](const QByteArray &path, const struct stat &status, STDirProtectContentAsr &record) {
        record.updateTime = status.st_mtim.tv_sec;
        record.fileCount = countFiles(root, path, notes);
    };
    return recordsOf<STDirProtectContentAsr>(keyDirectories(), root, notes, describe);
}

QVector<STFileProtectContentAsr> DirectoryReader::readFiles(const QString &root, ReadingNotes &notes)
{
    const auto describe = [&](const QByteArray &path, const struct stat &status, STFileProtectContentAsr &record) {
        record.size = static_cast<quint64>(status.st_size);
        record.modifyTime = status.st_mtim.tv_sec;
        record.uid = status.st_uid;
        record.gid = status.st_gid;
        record.mode = status.st_mode & 07777U;
        if (const auto digests = HostFile::digestsOrNote(root, path, notes)) {
            TextBuffer::copy(record.algorithm, "sha256");
            TextBuffer::copy(record.digest, digests->sha256);
        }
    };
    return recordsOf<STFileProtectContentAsr>(keyFiles(), root, notes, describe);
}

QByteArray DirectoryReader::modeText(quint32 mode)
{
    const char type = S_ISDIR(mode) ? 'd' : S_ISCHR(mode) ? 'c' : S_ISBLK(mode) ? 'b' : S_ISLNK(mode) ? 'l' : '-';
    QByteArray text(1, type);
    for (int bit = 8; bit >= 0; --bit) {
        text.append((mode >> static_cast<unsigned>(bit) & 1U) != 0 ? "xwr"[bit % 3] : '-');
    }
    const auto mark = [&](quint32 flag, int at, char withExecute, char without) {
        if ((mode & flag) != 0) {
            text[at] = text.at(at) == 'x' ? withExecute : without;
        }
    };
    mark(S_ISUID, 3, 's', 'S');
    mark(S_ISGID, 6, 's', 'S');
    mark(S_ISVTX, 9, 't', 'T');
    return text;
}
