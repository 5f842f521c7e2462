#include "PageFrame.h"

#include "NavigationTree.h"
#include "QuietLabel.h"
#include "RoomyButton.h"

#include <QHBoxLayout>
#include <QLabel>

PageFrame::PageFrame(const TavSubFuncTypeData_ &page, QWidget *content, const QVector<TavSubFuncTypeData_> &ways,
                     QWidget *parent)
    : QWidget(parent)
{
    auto *const title = new QLabel(page.subFuncTitle);
    title->setTextFormat(Qt::PlainText);
    title->setToolTip(pageKey(page.subFuncType));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    font.setBold(true);
    title->setFont(font);
    auto *const help = new QuietLabel(page.subFuncHelp);
    help->setWordWrap(true);

    auto *const line = new QHBoxLayout;
    line->addWidget(title);
    line->addSpacing(12);
    line->addWidget(help, 1);
    for (const TavSubFuncTypeData_ &way : ways) {
        const bool isBack = way.subFuncType == page.realParentType && !page.subFuncHasParent;
        const QString title = QString(way.subFuncTitle).replace(QLatin1Char('&'), QLatin1String("&&")); // no mnemonic
        auto *const button = new RoomyButton(isBack ? tr("Back to %1").arg(title) : tr("Open %1").arg(title));
        connect(button, &QPushButton::clicked, this, [this, way] { emit pageChosen(way); });
        line->addWidget(button);
    }
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 6);
    layout->addLayout(line);
    layout->addWidget(content, 1);
}
