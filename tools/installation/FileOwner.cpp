#include "FileOwner.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

QString ownerText(const QString &file)
{
    struct stat status = {};
    QString seen = file;
    while (stat(QFile::encodeName(seen).constData(), &status) != 0 && QFileInfo(seen).path() != seen) {
        seen = QFileInfo(seen).path();
    }
    return QString("%1 belongs to the user %2").arg(seen == file ? "it" : seen).arg(status.st_uid);
}
