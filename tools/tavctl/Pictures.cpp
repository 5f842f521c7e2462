#include "Pictures.h"

#include "InstallationPaths.h"
#include "ITavFuncTypeMgr.h"
#include "ITavPicResourceMgr.h"
#include "Presentation.h"
#include "TavCommonUtils.h"
#include "TavObjectMgr.h"
#include "TextTable.h"

#include <QDir>
#include <QImage>
#include <QJsonObject>

namespace
{
QString sizeText(const QSize &size)
{
    return size.isEmpty() ? "missing" : QString("%1×%2").arg(size.width()).arg(size.height());
}
}

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

QJsonArray picturesJson(const QVector<IconPicture> &pictures)
{
    QJsonArray rows;
    for (const IconPicture &picture : pictures) {
        rows.append(QJsonObject{{"directory", picture.directory},
                                {"name", picture.name},
                                {"width", picture.size.width()},
                                {"height", picture.size.height()}});
    }
    return rows;
}

void printPictures(const QVector<IconPicture> &pictures)
{
    printHeading(QString("Pictures: %1 looked up").arg(pictures.size()));
    TextTable table({{"directory"}, {"picture"}, {"pixels"}});
    for (const IconPicture &picture : pictures) {
        table.addRow({picture.directory, picture.name, sizeText(picture.size)});
    }
    table.print();
}
