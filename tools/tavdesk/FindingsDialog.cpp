#include "FindingsDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
QString placeText(const Finding &finding)
{
    return finding.place.line > 0
        ? FindingsDialog::tr("line %1, column %2").arg(finding.place.line).arg(finding.place.column)
        : finding.path;
}
}

FindingsDialog::FindingsDialog(const QString &heading, const Findings &findings, QWidget *parent) : QDialog(parent)
{
    setWindowTitle(tr("Findings"));
    auto *const line = new QLabel(heading);
    line->setTextFormat(Qt::PlainText);
    auto *const table = new QTreeWidget;
    table->setAccessibleName(tr("Findings"));
    table->setHeaderLabels({tr("Place"), tr("Problem"), tr("Effect"), tr("Advice")});
    table->setRootIsDecorated(false);
    table->setAlternatingRowColors(true);
    table->setWordWrap(true);
    for (const Finding &finding : findings) {
        new QTreeWidgetItem(table, {placeText(finding), finding.problem, finding.effect, finding.advice});
    }
    table->header()->setSectionResizeMode(QHeaderView::Stretch);
    table->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(line);
    layout->addWidget(table);
    layout->addWidget(buttons);
    resize(900, 420);
}
