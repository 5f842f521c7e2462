#include "TavJsonPath.h"

QString TavJson::memberPath(const QString &path, const QString &key)
{
    QString escaped = key;
    return path + '/' + escaped.replace('~', "~0").replace('/', "~1");
}

QString TavJson::elementPath(const QString &path, int index)
{
    return path + '/' + QString::number(index);
}
