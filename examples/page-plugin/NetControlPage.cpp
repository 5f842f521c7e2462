#include "NetControlPage.h"

#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

NetControlPage::NetControlPage(QWidget *parent)
    : QWidget(parent), m_list(new QTreeWidget), m_toggle(new QPushButton(tr("Block or allow")))
{
    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels({tr("Device"), tr("State")});
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(m_toggle);

    // Queued: showing the lines may delete items, also the one that reports an edit at this moment.
    connect(&m_controller, &NetControlController::changed, this, &NetControlPage::showLines, Qt::QueuedConnection);
    connect(m_list, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *item) {
        m_controller.setChecked(m_list->indexOfTopLevelItem(item), item->checkState(0) == Qt::Checked);
    });
    connect(m_toggle, &QPushButton::clicked, this,
            [this] { m_controller.toggleDevice(m_list->indexOfTopLevelItem(m_list->currentItem())); });
    showLines(); // the model may have been filled before this page was made
}

void NetControlPage::receiveAnswer(const QByteArray &answer)
{
    m_controller.receiveAnswer(answer);
}

void NetControlPage::showLines()
{
    const QSignalBlocker noEdits(m_list); // what is shown here was not checked by the user
    const QVector<NetControlLine> lines = m_controller.lines();
    while (m_list->topLevelItemCount() > lines.size()) {
        delete m_list->takeTopLevelItem(lines.size());
    }
    // The other items stay, and with them what the user has selected.
    for (int i = 0; i < lines.size(); ++i) {
        QTreeWidgetItem *item = m_list->topLevelItem(i);
        if (!item) {
            item = new QTreeWidgetItem(m_list);
        }
        item->setText(0, lines[i].deviceName);
        item->setText(1, lines[i].allowed ? tr("allowed") : tr("blocked"));
        item->setCheckState(0, lines[i].checked ? Qt::Checked : Qt::Unchecked);
    }
}
