#include "RegistryPanel.h"

#include "RegistryModel.h"
#include "TableLook.h"

#include <QTableView>
#include <QVBoxLayout>

RegistryPanel::RegistryPanel(QWidget *parent) : QWidget(parent), m_model(new RegistryModel(this))
{
    auto *const view = new QTableView;
    view->setModel(m_model);
    view->setAccessibleName(tr("Registered objects"));
    setFocusProxy(view);
    setTableLook(*view);
    setColumnWidths(*view, RegistryModel::Key, {34, 30, 30, 12, 14});
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(view);
    connect(&m_timer, &QTimer::timeout, m_model, &RegistryModel::update);
}

void RegistryPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_model->update();
    m_timer.start(1000);
}

void RegistryPanel::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}
