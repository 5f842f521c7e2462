#include "TavCommonUtils.h"

#include "TavGlobalInfoMgr.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QMutex>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/// @brief What is read in place of files, by their paths.
struct GivenContents {
    QMutex mutex;
    QHash<QString, QByteArray> contents;
};

GivenContents &given()
{
    static auto *const instance = new GivenContents; // a thread may read longer than main() runs
    return *instance;
}

QByteArray readBytes(const QString &path)
{
    {
        const QMutexLocker lock(&given().mutex);
        const auto content = given().contents.constFind(path);
        if (content != given().contents.constEnd()) {
            return *content;
        }
    }
    // Opening waits for nobody, be it a pipe or a device: what it is is seen afterwards.
    const QByteArray name = QFile::encodeName(TavCommonUtils::pathInSystemRoot(path));
    const int descriptor = open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    struct stat status = {};
    QByteArray bytes;
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        QFile file;
        file.open(descriptor, QIODevice::ReadOnly);
        bytes = file.readAll();
    }
    if (descriptor >= 0) {
        close(descriptor);
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

void TavCommonUtils::setContent(const QString &path, const QByteArray &content)
{
    const QMutexLocker lock(&given().mutex);
    if (content.isNull()) {
        given().contents.remove(path);
    } else {
        given().contents.insert(path, content);
    }
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
