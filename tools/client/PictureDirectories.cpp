#include "PictureDirectories.h"

#include "ITavPicResourceMgr.h"

#include <QMutexLocker>

void PictureDirectories::note(const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    if (operation != QLatin1String("appendPicResourcePath")
        || manager != qobject_interface_iid<ITavPicResourceMgr *>()) {
        return;
    }
    const QString directory = (arguments.isObject() ? arguments["dirPath"] : arguments[0]).toString();
    const QMutexLocker lock(&m_mutex);
    m_directories.removeAll(directory);
    m_directories.append(directory);
    ++m_count;
}

QStringList PictureDirectories::all() const
{
    const QMutexLocker lock(&m_mutex);
    return m_directories;
}

int PictureDirectories::count() const
{
    const QMutexLocker lock(&m_mutex);
    return m_count;
}
