#include "NavigationView.h"

#include "NavigationModel.h"
#include "PressedIconDelegate.h"

#include <QKeyEvent>

NavigationView::NavigationView(NavigationModel *model, QWidget *parent) : QTreeView(parent), m_model(model)
{
    m_model->setParent(this);
    setModel(m_model);
    setItemDelegate(new PressedIconDelegate(this));
    setAccessibleName(tr("Navigation"));
    setHeaderHidden(true);
    setMouseTracking(true); // the icons of the functions show where the mouse is
    setIconSize({24, 24});
    setExpandsOnDoubleClick(false); // one click does it
    setEditTriggers(NoEditTriggers);
    expandAll();
    connect(this, &QTreeView::clicked, this, &NavigationView::choose);
}

void NavigationView::setFunctions(const QVector<NavigationNode> &functions)
{
    if (m_model->setFunctions(functions)) {
        expandAll();
    }
}

void NavigationView::setOpenPage(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    const QModelIndex index = m_model->indexOf(page);
    if (index.isValid()) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
}

QItemSelectionModel::SelectionFlags NavigationView::selectionCommand(const QModelIndex &, const QEvent *) const
{
    return QItemSelectionModel::NoUpdate;
}

void NavigationView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(currentIndex());
        break;
    default:
        QTreeView::keyPressEvent(event);
    }
}

void NavigationView::mousePressEvent(QMouseEvent *event)
{
    QTreeView::mousePressEvent(event);
    viewport()->update();
}

void NavigationView::mouseReleaseEvent(QMouseEvent *event)
{
    QTreeView::mouseReleaseEvent(event);
    viewport()->update();
}

void NavigationView::choose(const QModelIndex &index)
{
    if (const TavSubFuncTypeData_ *const page = m_model->pageAt(index)) {
        emit pageChosen(*page);
    } else if (index.isValid()) {
        setExpanded(index, !isExpanded(index));
    }
}
