#pragma once

#include "ReadingNote.h"
#include "STDirProtectContentAsr.h"
#include "STFileProtectContentAsr.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/** @brief Reads the key directories and files of the host, those whose change concerns its security. */
namespace DirectoryReader
{
/// Absolute paths of the key directories.
QVector<QByteArray> keyDirectories();

/// Absolute paths of the key files.
QVector<QByteArray> keyFiles();

/// One record per key directory, in their order: `state` 0, not protected, or 3, missing. What lies directly in it is
/// counted, directories left out; 0, and a note, when it may not be listed.
QVector<STDirProtectContentAsr> readDirectories(const QString &root, ReadingNotes &notes);

/// One record per key file, in their order: `state` 0, not protected, or 3, missing. The digest is SHA-256; empty, and
/// noted, when the file may not be read.
QVector<STFileProtectContentAsr> readFiles(const QString &root, ReadingNotes &notes);

/// Mode in the usual ten letters, such as "drwxr-xr-x".
QByteArray modeText(quint32 mode);
}
