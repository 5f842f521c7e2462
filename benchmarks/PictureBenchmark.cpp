// Appending a directory of pictures against loading the same files, and finding one against a look-up in a map.

#include "Comparison.h"
#include "ITavPicResourceMgr.h"
#include "TavPluginHost.h"

#include <QDir>
#include <QMap>
#include <QPainter>
#include <QTemporaryDir>

#include <memory>

namespace
{
using namespace Comparison;

constexpr int pictureCount = 1000;

QString pictureName(int number)
{
    return QStringLiteral("icon%1Hover").arg(number);
}

/// An icon with soft edges and a shade, as real ones have, which do not compress to nothing.
QImage icon(int number)
{
    QImage picture(48, 48, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QRadialGradient shade(16, 16, 40);
    shade.setColorAt(0, Qt::white);
    shade.setColorAt(1, QColor::fromHsv(number % 360, 200, 180));
    painter.setBrush(shade);
    painter.drawEllipse(2, 2, 44, 44);
    painter.drawPie(10, 10, 28, 28, 16 * number, 16 * 200);
    return picture;
}

/// A directory of pictures.
class PictureDirectory
{
public:
    PictureDirectory() : path(m_parent.filePath(QStringLiteral("navigation")))
    {
        QDir().mkpath(path);
        for (int i = 0; i < pictureCount; ++i) {
            files.append(path + QLatin1Char('/') + pictureName(i) + QStringLiteral(".png"));
            if (!icon(i).save(files.last())) {
                qFatal("cannot write %s", qPrintable(files.last()));
            }
        }
    }

private:
    QTemporaryDir m_parent;

public:
    const QString path;
    QStringList files;
};

struct Fixture {
    PictureDirectory directory;
    std::unique_ptr<TavPluginHost> plugin;
    ITavPicResourceMgr *manager = nullptr;
    QVector<QImage> images;
    QMap<QPair<QString, QString>, std::shared_ptr<QImage>> map;

    /// Lets go of what either side has loaded, so that both find the heap in the same state.
    void refresh()
    {
        images.clear();
        plugin = std::make_unique<TavPluginHost>(TAV_PLUGIN_FILE);
        manager = plugin->manager<ITavPicResourceMgr>();
    }

    std::shared_ptr<QImage> find(const QString &dirName, const QString &imageName) const
    {
        return map.value({dirName.toUpper(), imageName.toUpper()});
    }
};

Row appending()
{
    const auto fixture = std::make_shared<Fixture>();
    const auto append = [=] { fixture->manager->appendPicResourcePath(fixture->directory.path); };
    const auto load = [=] {
        for (const QString &file : qAsConst(fixture->directory.files)) {
            fixture->images.append(QImage(file));
        }
    };
    return {oneCall([=] { fixture->refresh(); }, append),
            {{"loop of QImage loads", oneCall([=] { fixture->refresh(); }, load), 1.05}}};
}

Row finding()
{
    const auto fixture = std::make_shared<Fixture>();
    fixture->refresh();
    fixture->manager->appendPicResourcePath(fixture->directory.path);
    const QString dirName = QStringLiteral("navigation");
    for (int i = 0; i < pictureCount; ++i) {
        const QString name = pictureName(i);
        const std::shared_ptr<QImage> image = fixture->manager->getImageRef(dirName, name);
        if (!image || image->isNull()) {
            qFatal("%s was not loaded", qPrintable(name));
        }
        fixture->map.insert({dirName.toUpper(), name.toUpper()}, image);
    }
    const QString name = pictureName(321);
    return {manyCalls([=] { benchmark::DoNotOptimize(fixture->manager->getImageRef(dirName, name)); }),
            {{"QMap, upper-casings", manyCalls([=] { benchmark::DoNotOptimize(fixture->find(dirName, name)); }), 1.1}}};
}
}

void Comparison::addRows()
{
    addRow("append 1,000 pictures", 10, appending);
    addRow("find one of 1,000 pictures", 60, finding);
}
