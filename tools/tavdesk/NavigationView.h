#pragma once

#include "CTavSubFuncTypeHeader.h"

#include <QTreeView>

class NavigationModel;
struct NavigationNode;
struct TavSubFuncTypeData_;

/// @brief The navigation as a tree. A page that is clicked, or entered with the keyboard, is chosen; choosing opens
/// nothing by itself.
class NavigationView : public QTreeView
{
    Q_OBJECT
public:
    /// @p model becomes the view's own.
    explicit NavigationView(NavigationModel *model, QWidget *parent = nullptr);

    /// Shows @p functions instead, all of them open, unless they are what it shows.
    void setFunctions(const QVector<NavigationNode> &functions);

    /// Marks the page as the one that is open. A page that is no entry leaves the mark where it is.
    void setOpenPage(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);

signals:
    void pageChosen(const TavSubFuncTypeData_ &page);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

    /// Nothing is selected by mouse or keys: the selection is the mark of the open page.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;

private:
    void choose(const QModelIndex &index);

    NavigationModel *const m_model;
};
