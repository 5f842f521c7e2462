#pragma once

#include "ReadingNote.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

#include <sys/stat.h>

/**
 * @brief Reads files of the host below a root directory. All functions may be called from any thread.
 *
 * Paths are bytes, as the kernel has them, absolute and taken below the root. Only regular files are opened, and
 * never so that the call waits for somebody. Links are followed as the running system follows them, so an absolute
 * link leaves the root. Nothing is ever written.
 */
namespace HostFile
{
constexpr qint64 sizeLimit = 64LL * 1024 * 1024; ///< bytes; longer files are not read

/// The digests of one file's content, in lower-case hexadecimal.
struct Digests {
    QByteArray sha256;
    QByteArray md5;
};

/// @p path as the running system names it: below @p root.
QByteArray path(const QString &root, const QByteArray &path);

/// The file's whole content in @p content. Returns 0, or the error number, and then @p content is empty: EFBIG above
/// sizeLimit, ENOTSUP for what is not a regular file.
int read(const QString &root, const QByteArray &path, QByteArray &content);

/// The file's whole content; nothing, and a note, when it cannot be read.
std::optional<QByteArray> readOrNote(const QString &root, const QByteArray &path, ReadingNotes &notes);

/// The file's content without blanks at both ends; empty when it cannot be read. For attributes that may be absent.
QByteArray attribute(const QString &root, const QByteArray &path);

/// The attribute as a number in @p base; nothing when it cannot be read or is no number.
std::optional<qint64> number(const QString &root, const QByteArray &path, int base = 10);

/// The names in the directory, sorted by their bytes, without "." and ".."; empty when it cannot be read, and then
/// with the error number in @p error where one is given.
QVector<QByteArray> entries(const QString &root, const QByteArray &directory, int *error = nullptr);

/// As above, with a note when the directory cannot be read.
QVector<QByteArray> entriesOrNote(const QString &root, const QByteArray &directory, ReadingNotes &notes);

/// The link's own text; nothing when it cannot be read, and then with the error number in @p error where one is given.
std::optional<QByteArray> link(const QString &root, const QByteArray &path, int *error = nullptr);

/// Status of what the path leads to; nothing when there is none or it cannot be reached, and then with the error
/// number in @p error where one is given.
std::optional<struct stat> status(const QString &root, const QByteArray &path, int *error = nullptr);

/// Whether the path leads to anything that can be reached.
bool exists(const QString &root, const QByteArray &path);

/// Digests of the file; nothing, and a note, when it cannot be read.
std::optional<Digests> digestsOrNote(const QString &root, const QByteArray &path, ReadingNotes &notes);

/// What an error number of these functions means, for the user.
QString errorText(int error);

/// Adds a note on a path.
void note(ReadingNotes &notes, const QByteArray &source, const QString &reason);
}
