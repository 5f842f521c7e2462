#include "FindingsDialog.h"

#include "PlainToolTip.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
/// Gives texts the height that they take in the width of their column. The tree itself computes it for one line.
class WrappingDelegate : public QStyledItemDelegate
{
public:
    explicit WrappingDelegate(QTreeView *view) : QStyledItemDelegate(view), m_view(*view)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem column(option);
        column.rect = QRect(0, 0, m_view.columnWidth(index.column()), 1); // texts wrap in no empty one
        return QStyledItemDelegate::sizeHint(column, index);
    }

private:
    const QTreeView &m_view;
};

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
    table->setItemDelegate(new WrappingDelegate(table));
    for (const Finding &finding : findings) {
        auto *const item
            = new QTreeWidgetItem(table, {placeText(finding), finding.problem, finding.effect, finding.advice});
        for (int column = 0; column < item->columnCount(); ++column) {
            item->setTextAlignment(column, Qt::AlignLeft | Qt::AlignTop);
            item->setToolTip(column, plainToolTip(item->text(column)));
        }
    }
    table->header()->setSectionResizeMode(QHeaderView::Stretch);
    table->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    // It takes the heights of its rows once, and the widths of its columns come after that.
    connect(table->header(), &QHeaderView::sectionResized, table, &QTreeWidget::doItemsLayout);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(line);
    layout->addWidget(table);
    layout->addWidget(buttons);
    resize(900, 420);
}
