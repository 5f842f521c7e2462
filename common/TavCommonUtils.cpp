#include "TavCommonUtils.h"

#include "TavGlobalInfoMgr.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

namespace
{
QByteArray readBytes(const QString &path)
{
    QFile file(TavCommonUtils::pathInSystemRoot(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll();
}
}

QString TavCommonUtils::readAll(const QString &path)
{
    return QString::fromUtf8(readBytes(path));
}

QJsonObject TavCommonUtils::readJsonFromFile(const QString &path)
{
    return QJsonDocument::fromJson(readBytes(path)).object();
}

QString TavCommonUtils::pathInSystemRoot(const QString &path)
{
    const QString root = TavGlobalInfoMgr::getInstance()->systemRoot();
    if (root.isEmpty() || !path.startsWith(QLatin1Char('/'))) {
        return path;
    }
    // Cleaned as an absolute path first, so that ".." cannot climb out of the root.
    return QDir::cleanPath(root + QLatin1Char('/') + QDir::cleanPath(path));
}
