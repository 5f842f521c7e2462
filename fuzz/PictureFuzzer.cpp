// One picture's file: any bytes under a name that ends in ".png".
#include "ITavPicResourceMgr.h"
#include "Require.h"
#include "ScratchFile.h"
#include "TavPluginHost.h"

#include <QImageReader>

#include <cstdint>

namespace
{
/// A few bytes can declare any size, and the library that decodes reserves what is declared: a limit of the memory
/// here would find that alone, again and again.
bool declaresAHugePicture(const QString &path)
{
    const QSize size = QImageReader(path).size();
    return size.isValid() && qint64(size.width()) * size.height() > 4 * 1024 * 1024;
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile file(QStringLiteral("pages/x.png"));
    file.write(QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    if (declaresAHugePicture(file.path())) {
        return 0;
    }
    TavPluginHost plugin{TAV_PLUGIN_FILE};
    auto &manager = *plugin.manager<ITavPicResourceMgr>();
    const QString pages = QStringLiteral("pages");
    const QString x = QStringLiteral("x");
    require(!manager.getImageRef(pages, x), "nothing is found before a directory is appended");

    manager.appendPicResourcePath(file.directory());
    const std::shared_ptr<QImage> first = manager.getImageRef(pages, x);
    require(bool(first), "a file has its entry, whatever it holds");
    require(first->isNull() == (first->width() == 0) && first->isNull() == (first->height() == 0),
            "a picture is null or has a size");
    require(manager.getImageRef(QStringLiteral("PAGES"), QStringLiteral("X")) == first, "case plays no part");
    require(!manager.getImageRef(pages, QStringLiteral("y")), "no other name is found");

    const QImage before = first->copy();
    manager.appendPicResourcePath(file.directory());
    const std::shared_ptr<QImage> second = manager.getImageRef(pages, x);
    require(second && second != first, "a second append loads again");
    require(*first == before, "a picture that is held keeps its pixels");
    require(second->size() == first->size() && second->format() == first->format(), "the same file loads the same");
    return 0;
}
