#pragma once

#include "TavCommonExport.h"

#include <QJsonObject>
#include <QString>

/**
 * @brief Reading whole configuration files. All operations may be called from any thread.
 *
 * An absolute path is read inside TavGlobalInfoMgr::systemRoot(), a relative one from the working directory.
 * Only regular files, and links to them, are read: a pipe or a device in a file's place could block for ever.
 */
class TAV_COMMON_EXPORT TavCommonUtils
{
public:
    /// The file's text, decoded from UTF-8; empty when it cannot be read.
    [[nodiscard]] static QString readAll(const QString &path);

    /// The file's top-level JSON object; empty when it cannot be read, is not JSON or holds something else.
    [[nodiscard]] static QJsonObject readJsonFromFile(const QString &path);

    /// Has @p content be read for @p path, whatever the disk holds; null content takes that back. For programs that
    /// show a configuration which is not installed.
    static void setContent(const QString &path, const QByteArray &content);

    /// Where @p path is really read: inside the system root when it is absolute, unchanged otherwise.
    [[nodiscard]] static QString pathInSystemRoot(const QString &path);
};
