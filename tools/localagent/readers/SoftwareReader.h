#pragma once

#include "ReadingNote.h"
#include "SystemProtect.pb.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

/** @brief Reads what the package manager knows; at present that is dpkg's database. */
namespace SoftwareReader
{
/// The installed packages that the package manager refuses to remove (essential, protected or held ones), in the
/// order of its database. `mode` is 2 when there are any, else 0. Empty, and a note, without such a database.
Tav::SystemProtect::SoftUnloadProtectContentAsr readProtectedPackages(const QString &root, ReadingNotes &notes);

/// The MD5 digests, in lower-case hexadecimal, that the packages give for those of the @p paths that they contain.
/// Diverted files are left out. Empty, and a note, without a package database.
QHash<QByteArray, QByteArray> readPackageDigests(const QString &root, const QVector<QByteArray> &paths,
                                                 ReadingNotes &notes);
}
