#include "IconPictures.h"

#include "InstallationPaths.h"
#include "ITavFuncTypeMgr.h"
#include "ITavPicResourceMgr.h"
#include "TavCommonUtils.h"
#include "TavObjectMgr.h"

#include <QDir>
#include <QImage>

QVector<IconPicture> loadIconPictures()
{
    auto &cache = *tavObject<ITavPicResourceMgr>();
    const QDir root(TavCommonUtils::pathInSystemRoot(InstallationPaths::pictures()));
    const QVector<TavFuncTypeData_> functions = tavObject<ITavFuncTypeMgr>()->getFuncInfos();
    QStringList icons;
    for (const TavFuncTypeData_ &function : functions) {
        icons.append(function.funcIcon);
    }
    icons.removeDuplicates();
    QVector<IconPicture> pictures;
    const QStringList directories = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &directory : directories) {
        cache.appendPicResourcePath(root.filePath(directory));
        for (const QString &icon : qAsConst(icons)) {
            for (const char *const variant : {"", "Hover", "Pressed"}) {
                const std::shared_ptr<QImage> image = cache.getImageRef(directory, icon + variant);
                pictures.append({directory, icon + variant, image ? image->size() : QSize()});
            }
        }
    }
    return pictures;
}
