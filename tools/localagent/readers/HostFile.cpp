#include "HostFile.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <system_error>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace
{
constexpr int blockSize = 64 * 1024;

/// A file descriptor that is closed at the end of its block.
class OpenFile
{
public:
    explicit OpenFile(const QByteArray &path)
        : m_descriptor(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY))
    {
    }
    Q_DISABLE_COPY(OpenFile)
    ~OpenFile()
    {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }
    int descriptor() const
    {
        return m_descriptor;
    }

private:
    int m_descriptor;
};

/// Hands the file to @p take, block by block; returns 0 or the error number.
template<class Take>
int readBlocks(const QByteArray &path, Take take)
{
    // Asked before, since opening a device may already have an effect, and again of the file that was really opened.
    struct stat status {
    };
    if (::stat(path.constData(), &status) != 0) {
        return errno;
    }
    if (!S_ISREG(status.st_mode)) {
        return ENOTSUP;
    }
    const OpenFile file(path);
    if (file.descriptor() < 0 || ::fstat(file.descriptor(), &status) != 0) {
        return errno;
    }
    if (!S_ISREG(status.st_mode)) {
        return ENOTSUP;
    }
    std::vector<char> block(blockSize);
    qint64 total = 0;
    for (;;) {
        const ssize_t got = ::read(file.descriptor(), block.data(), block.size());
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return errno;
        }
        if (got == 0) {
            return 0;
        }
        total += got;
        if (total > HostFile::sizeLimit) {
            return EFBIG;
        }
        take(block.data(), static_cast<int>(got));
    }
}
}

QByteArray HostFile::path(const QString &root, const QByteArray &path)
{
    QByteArray base = QFile::encodeName(root);
    while (base.endsWith('/')) {
        base.chop(1);
    }
    return base + path;
}

int HostFile::read(const QString &root, const QByteArray &path, QByteArray &content)
{
    content.clear();
    const int error = readBlocks(HostFile::path(root, path),
                                 [&content](const char *data, int size) { content.append(data, size); });
    if (error != 0) {
        content.clear();
    }
    return error;
}

std::optional<QByteArray> HostFile::readOrNote(const QString &root, const QByteArray &path, ReadingNotes &notes)
{
    QByteArray content;
    const int error = read(root, path, content);
    if (error != 0) {
        note(notes, path, errorText(error));
        return std::nullopt;
    }
    return content;
}

QByteArray HostFile::attribute(const QString &root, const QByteArray &path)
{
    QByteArray content;
    return read(root, path, content) == 0 ? content.trimmed() : QByteArray();
}

std::optional<qint64> HostFile::number(const QString &root, const QByteArray &path, int base)
{
    bool ok = false;
    const qint64 value = attribute(root, path).toLongLong(&ok, base);
    return ok ? std::optional<qint64>(value) : std::nullopt;
}

QVector<QByteArray> HostFile::entries(const QString &root, const QByteArray &directory, int *error)
{
    QVector<QByteArray> names;
    DIR *const stream = ::opendir(path(root, directory).constData());
    if (error != nullptr) {
        *error = stream == nullptr ? errno : 0;
    }
    if (stream == nullptr) {
        return names;
    }
    // Safe: no other thread reads this stream.
    while (const dirent *const entry = ::readdir(stream)) { // NOLINT(concurrency-mt-unsafe)
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..") {
            names.append(name);
        }
    }
    ::closedir(stream);
    std::sort(names.begin(), names.end());
    return names;
}

QVector<QByteArray> HostFile::entriesOrNote(const QString &root, const QByteArray &directory, ReadingNotes &notes)
{
    int error = 0;
    const QVector<QByteArray> names = entries(root, directory, &error);
    if (error != 0) {
        note(notes, directory, errorText(error));
    }
    return names;
}

std::optional<QByteArray> HostFile::link(const QString &root, const QByteArray &path, int *error)
{
    std::array<char, PATH_MAX> target;
    const ssize_t size = ::readlink(HostFile::path(root, path).constData(), target.data(), target.size());
    if (error != nullptr) {
        *error = size < 0 ? errno : 0;
    }
    if (size < 0) {
        return std::nullopt;
    }
    return QByteArray(target.data(), static_cast<int>(size));
}

std::optional<struct stat> HostFile::status(const QString &root, const QByteArray &path, int *error)
{
    struct stat status {
    };
    const bool found = ::stat(HostFile::path(root, path).constData(), &status) == 0;
    if (error != nullptr) {
        *error = found ? 0 : errno;
    }
    return found ? std::optional<struct stat>(status) : std::nullopt;
}

bool HostFile::exists(const QString &root, const QByteArray &path)
{
    return status(root, path).has_value();
}

std::optional<HostFile::Digests> HostFile::digestsOrNote(const QString &root, const QByteArray &path,
                                                         ReadingNotes &notes)
{
    QCryptographicHash sha256(QCryptographicHash::Sha256);
    QCryptographicHash md5(QCryptographicHash::Md5);
    const int error = readBlocks(HostFile::path(root, path), [&sha256, &md5](const char *data, int size) {
        sha256.addData(data, size);
        md5.addData(data, size);
    });
    if (error != 0) {
        note(notes, path, errorText(error));
        return std::nullopt;
    }
    return Digests{sha256.result().toHex(), md5.result().toHex()};
}

QString HostFile::errorText(int error)
{
    switch (error) {
    case EFBIG:
        return QStringLiteral("longer than %1 MiB").arg(sizeLimit / 1024 / 1024);
    case ENOTSUP:
        return QStringLiteral("not a regular file");
    default:
        return QString::fromStdString(std::generic_category().message(error));
    }
}

void HostFile::note(ReadingNotes &notes, const QByteArray &source, const QString &reason)
{
    notes.append({QString::fromUtf8(source), reason});
}
