#include "NetControlPage.h"

#include "NetControlController.h"

#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

NetControlPage::NetControlPage(NetControlController &controller, QWidget *parent)
    : QWidget(parent)
    , m_controller(controller)
    , m_list(new QTreeWidget)
    , m_toggle(new QPushButton(tr("Block or allow")))
{
    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels({tr("Device"), tr("State")});
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(m_toggle);

    // Queued: showing the lines may delete items, also the one that reports an edit at this moment.
    connect(&m_controller, &NetControlController::changed, this, &NetControlPage::showLines, Qt::QueuedConnection);
    connect(m_list, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *item) {
        m_controller.setChecked(item->text(0), item->checkState(0) == Qt::Checked);
    });
    connect(m_toggle, &QPushButton::clicked, this, [this] {
        if (const QTreeWidgetItem *const item = m_list->currentItem()) {
            m_controller.toggleDevice(item->text(0));
        }
    });
    showLines(); // the model may have been filled before this page was made
}

NetControlPage::~NetControlPage()
{
    // The child widgets end after this class has: what they signal then must not reach it.
    m_list->disconnect(this);
    m_toggle->disconnect(this);
}

void NetControlPage::showLines()
{
    const QSignalBlocker noEdits(m_list); // what is shown here was not checked by the user
    const QTreeWidgetItem *const before = m_list->currentItem();
    const QString selected = before ? before->text(0) : QString();
    QTreeWidgetItem *current = nullptr; // the selected device, wherever it stands now
    const QVector<NetControlLine> lines = m_controller.lines();
    while (m_list->topLevelItemCount() > lines.size()) {
        delete m_list->takeTopLevelItem(lines.size());
    }
    // The other items stay, so that the list does not scroll with every answer.
    for (int i = 0; i < lines.size(); ++i) {
        QTreeWidgetItem *item = m_list->topLevelItem(i);
        if (!item) {
            item = new QTreeWidgetItem(m_list);
        }
        item->setText(0, lines[i].deviceName);
        item->setText(1, lines[i].allowed ? tr("allowed") : tr("blocked"));
        item->setCheckState(0, lines[i].checked ? Qt::Checked : Qt::Unchecked);
        if (!selected.isEmpty() && lines[i].deviceName == selected) {
            current = item;
        }
    }
    m_list->setCurrentItem(current);
}
