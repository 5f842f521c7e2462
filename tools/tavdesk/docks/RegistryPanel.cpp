#include "RegistryPanel.h"

#include "RegistryModel.h"
#include "RowCopy.h"
#include "TableLook.h"

#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

RegistryPanel::RegistryPanel(ITavObjectMgr &registry, QWidget *parent) : QWidget(parent)
{
    auto *const model = new RegistryModel(registry, this);
    auto *const view = new QTableView;
    view->setModel(model);
    view->setAccessibleName(tr("Registered objects"));
    setFocusProxy(view);
    setTableLook(*view);
    addRowCopy(*view);
    setColumnWidths(*view, RegistryModel::Key, {34, 24, 24, 10, 12});
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(view);
    // Also while it is out of sight: "since" is the time at which it was seen first.
    auto *const look = new QTimer(this);
    connect(look, &QTimer::timeout, model, &RegistryModel::update);
    look->start(1000);
}
