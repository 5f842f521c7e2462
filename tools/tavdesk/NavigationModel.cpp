#include "NavigationModel.h"

#include "ITavPicResourceMgr.h"
#include "PlainToolTip.h"

#include <QDir>
#include <QIcon>

#include <algorithm>
#include <tuple>
#include <utility>

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

bool isSame(const TavSubFuncTypeData_ &one, const TavSubFuncTypeData_ &other)
{
    const auto fields = [](const TavSubFuncTypeData_ &page) {
        return std::tie(page.subFuncTitle, page.funcType, page.subFuncType, page.realParentType, page.subFuncClassName,
                        page.subFuncHelp, page.subFuncHasParent);
    };
    return fields(one) == fields(other);
}

bool isSame(const NavigationNode &one, const NavigationNode &other);

template<class Entry>
bool areSame(const QVector<Entry> &some, const QVector<Entry> &others)
{
    return std::equal(some.cbegin(), some.cend(), others.cbegin(), others.cend(),
                      [](const Entry &one, const Entry &other) { return isSame(one, other); });
}

bool isSame(const NavigationNode &one, const NavigationNode &other)
{
    const auto fields = [](const TavFuncTypeData_ &function) {
        return std::tie(function.funcTitle, function.funcIcon, function.funcType);
    };
    return fields(one.function) == fields(other.function) && areSame(one.pages, other.pages)
        && areSame(one.nested, other.nested);
}

template<class Entry>
QVector<Entry> firstOfEach(const QVector<Entry> &entries)
{
    QVector<Entry> firsts;
    for (const Entry &entry : entries) {
        if (std::none_of(firsts.cbegin(), firsts.cend(), [&](const Entry &first) { return isSame(first, entry); })) {
            firsts.append(entry);
        }
    }
    return firsts;
}

/// The manager lists all its entries once more whenever it has read its catalogue again.
QVector<NavigationNode> withoutRepeats(QVector<NavigationNode> nodes)
{
    for (NavigationNode &node : nodes) {
        node.pages = firstOfEach(node.pages);
        node.nested = withoutRepeats(node.nested);
    }
    return firstOfEach(nodes);
}
}

NavigationModel::NavigationModel(const QVector<NavigationNode> &functions, ITavPicResourceMgr &pictures,
                                 QStringList directories, QObject *parent)
    : QStandardItemModel(parent), m_pictures(pictures), m_directories(std::move(directories))
{
    setFunctions(functions);
}

bool NavigationModel::setFunctions(const QVector<NavigationNode> &functions)
{
    const QVector<NavigationNode> once = withoutRepeats(functions);
    if (areSame(once, m_functions)) {
        return false;
    }
    m_functions = once;
    clear();
    m_pages.clear();
    m_entries.clear();
    for (const NavigationNode &node : once) {
        addFunction(*invisibleRootItem(), node);
    }
    return true;
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

void NavigationModel::addFunction(QStandardItem &parent, const NavigationNode &node)
{
    const TavFuncTypeData_ &function = node.function;
    auto *const item = new QStandardItem(iconOf(function, m_pictures, m_directories), function.funcTitle);
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
        addFunction(*item, nested);
    }
}
