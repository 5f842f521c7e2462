#pragma once

#include "NavigationTree.h"

#include <QHash>
#include <QStandardItemModel>

class ITavPicResourceMgr;

/// @brief The navigation: functions with their icons, the pages and the functions nested in them.
class NavigationModel : public QStandardItemModel
{
    Q_OBJECT
public:
    /// @p pictures holds the icons by the names that the catalogue gives them; @p directories are those that it was
    /// given.
    NavigationModel(const QVector<NavigationNode> &functions, ITavPicResourceMgr &pictures, QStringList directories,
                    QObject *parent = nullptr);

    /// Shows @p functions instead. False when they are what it shows: then nothing happens.
    bool setFunctions(const QVector<NavigationNode> &functions);

    /// The page that stands at @p index; null when there is none.
    const TavSubFuncTypeData_ *pageAt(const QModelIndex &index) const;

    /// Where the page stands; invalid when it is no entry of the navigation.
    QModelIndex indexOf(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page) const;

private:
    void addFunction(QStandardItem &parent, const NavigationNode &node);

    ITavPicResourceMgr &m_pictures;
    const QStringList m_directories;
    QVector<NavigationNode> m_functions;
    QVector<TavSubFuncTypeData_> m_pages; ///< items refer to them by their places
    QHash<int, QStandardItem *> m_entries; ///< by the types of their pages
};
