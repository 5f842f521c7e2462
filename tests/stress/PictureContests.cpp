#include "Contests.h"

#include "ITavPicResourceMgr.h"

std::vector<Contest> Contests::pictures(TavPluginHost &host)
{
    auto *const manager = host.manager<ITavPicResourceMgr>();
    manager->appendPicResourcePath(QStringLiteral(TAV_SOURCE_DIR "/share/demo/opt/tavsec/pictures/navigation"));
    const QSize size = manager->getImageRef("navigation", "hostIcon")->size();
    return {{"ITavPicResourceMgr",
             {{"getImageRef",
               [manager, size](int) {
                   const std::shared_ptr<QImage> image = manager->getImageRef("navigation", "hostIcon");
                   return image && !image->isNull() && image->size() == size;
               }},
              {"getImageRef in other case",
               [manager, size](int) {
                   const std::shared_ptr<QImage> image = manager->getImageRef("Navigation", "HOSTICON");
                   return image && !image->isNull() && image->size() == size;
               }},
              {"getImageRef of an unknown image",
               [manager](int seed) { return !manager->getImageRef("navigation", QString::number(seed)); }}}}};
}
