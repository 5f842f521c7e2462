#include "IconPictures.h"

#include "InstallationPaths.h"
#include "ITavFuncTypeMgr.h"
#include "ITavPicResourceMgr.h"
#include "TavCommonUtils.h"
#include "TavObjectMgr.h"

#include <QDir>
#include <QImage>

QStringList pictureDirectories()
{
    const QDir root(TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures()));
    QStringList paths;
    const QStringList names = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        paths.append(root.filePath(name));
    }
    return paths;
}

QVector<IconPicture> loadIconPictures()
{
    auto &cache = *tavObject<ITavPicResourceMgr>();
    const QVector<TavFuncTypeData_> functions = tavObject<ITavFuncTypeMgr>()->getFuncInfos();
    QStringList icons;
    for (const TavFuncTypeData_ &function : functions) {
        icons.append(function.funcIcon);
    }
    icons.removeDuplicates();
    QVector<IconPicture> pictures;
    const QStringList paths = pictureDirectories();
    for (const QString &path : paths) {
        cache.appendPicResourcePath(path);
        const QString directory = QDir(path).dirName();
        for (const QString &icon : qAsConst(icons)) {
            for (const char *const variant : {"", "Hover", "Pressed"}) {
                const std::shared_ptr<QImage> image = cache.getImageRef(directory, icon + variant);
                pictures.append({directory, icon + variant, image ? image->size() : QSize()});
            }
        }
    }
    return pictures;
}
