#include "TavCommonUtils.h"

#include "TavGlobalInfoMgr.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
QByteArray readBytes(const QString &path)
{
    // Its place is held first, which waits for nothing, so that what is looked at is what is then opened, whatever
    // somebody puts there in between.
    const int place = open(QFile::encodeName(TavCommonUtils::pathInSystemRoot(path)).constData(), O_PATH | O_CLOEXEC);
    struct stat status = {};
    QByteArray bytes;
    if (fstat(place, &status) == 0 && S_ISREG(status.st_mode)) {
        QFile file(QStringLiteral("/proc/self/fd/%1").arg(place));
        if (file.open(QIODevice::ReadOnly)) {
            bytes = file.readAll();
        }
    }
    if (place >= 0) {
        close(place);
    }
    return bytes;
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
    // Cleaned by itself, and without the ".." that cleanPath leaves at its start, so that it cannot climb out.
    QString inside = QDir::cleanPath(path);
    while (inside == QLatin1String("/..") || inside.startsWith(QLatin1String("/../"))) {
        inside.remove(0, 3);
    }
    return QDir::cleanPath(root + QLatin1Char('/') + inside);
}
