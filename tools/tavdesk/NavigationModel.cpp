#include "NavigationModel.h"

#include "ITavPicResourceMgr.h"
#include "PlainToolTip.h"

#include <QDir>
#include <QIcon>

namespace
{
constexpr int pagePlace = Qt::UserRole; // place in the list of pages; none for a function

/// Every picture of the name, whatever its size, so that each resolution of a screen finds its own.
void addPictures(QIcon &icon, const QString &name, QIcon::Mode mode, ITavPicResourceMgr &pictures,
                 const QStringList &directories)
{
    for (const QString &directory : directories) {
        const std::shared_ptr<QImage> image = pictures.getImageRef(QDir(directory).dirName(), name);
        if (image && !image->isNull()) {
            icon.addPixmap(QPixmap::fromImage(*image), mode);
        }
    }
}

QIcon iconOf(const TavFuncTypeData_ &function, ITavPicResourceMgr &pictures, const QStringList &directories)
{
    QIcon icon;
    addPictures(icon, function.funcIcon, QIcon::Normal, pictures, directories);
    addPictures(icon, function.funcIcon + QLatin1String("Hover"), QIcon::Active, pictures, directories);
    addPictures(icon, function.funcIcon + QLatin1String("Pressed"), QIcon::Selected, pictures, directories);
    return icon;
}
}

NavigationModel::NavigationModel(const QVector<NavigationNode> &functions, ITavPicResourceMgr &pictures,
                                 const QStringList &directories, QObject *parent)
    : QStandardItemModel(parent)
{
    for (const NavigationNode &node : functions) {
        addFunction(*invisibleRootItem(), node, pictures, directories);
    }
}

const TavSubFuncTypeData_ *NavigationModel::pageAt(const QModelIndex &index) const
{
    const QVariant place = index.data(pagePlace);
    return place.isValid() ? &m_pages[place.toInt()] : nullptr;
}

QModelIndex NavigationModel::indexOf(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page) const
{
    const QStandardItem *const item = m_entries.value(page);
    return item ? item->index() : QModelIndex();
}

void NavigationModel::addFunction(QStandardItem &parent, const NavigationNode &node, ITavPicResourceMgr &pictures,
                                  const QStringList &directories)
{
    const TavFuncTypeData_ &function = node.function;
    auto *const item = new QStandardItem(iconOf(function, pictures, directories), function.funcTitle);
    item->setEditable(false);
    item->setToolTip(functionKey(function.funcType));
    parent.appendRow(item);
    for (const TavSubFuncTypeData_ &page : node.pages) {
        if (page.subFuncHasParent) {
            auto *const entry = new QStandardItem(page.subFuncTitle);
            entry->setEditable(false);
            entry->setToolTip(plainToolTip(page.subFuncHelp.isEmpty() ? pageKey(page.subFuncType) : page.subFuncHelp));
            entry->setData(m_pages.size(), pagePlace);
            m_pages.append(page);
            m_entries.insert(page.subFuncType, entry);
            item->appendRow(entry);
        }
    }
    for (const NavigationNode &nested : node.nested) {
        addFunction(*item, nested, pictures, directories);
    }
}
