#include "ProblemView.h"

#include "SymbolIcon.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace
{
QLabel *newText(const QString &text)
{
    auto *const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setVisible(!text.isEmpty());
    return label;
}
}

ProblemView::ProblemView(const QString &title, const QString &problem, const QString &advice, QWidget *parent)
    : QWidget(parent), m_sign(new QLabel), m_buttons(new QHBoxLayout)
{
    setAccessibleName(title);
    setAccessibleDescription(problem);
    drawSign();
    auto *const heading = newText(title);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    font.setBold(true);
    heading->setFont(font);
    heading->setMinimumWidth(420);
    heading->setMaximumWidth(640);

    auto *const texts = new QVBoxLayout;
    texts->setSpacing(10);
    texts->addWidget(heading);
    texts->addWidget(newText(problem));
    texts->addWidget(newText(advice));
    texts->addLayout(m_buttons);
    m_buttons->addStretch();

    auto *const line = new QHBoxLayout;
    line->addStretch(1);
    line->addWidget(m_sign, 0, Qt::AlignTop);
    line->addSpacing(12);
    line->addLayout(texts, 4);
    line->addStretch(1);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addStretch(2);
    layout->addLayout(line);
    layout->addStretch(3);
}

void ProblemView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        drawSign();
    }
}

void ProblemView::drawSign()
{
    m_sign->setPixmap(symbolIcon(Symbol::Warning).pixmap(32, 32));
}

void ProblemView::addButton(QAction *action)
{
    auto *const button = new QPushButton(action->text());
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    m_buttons->insertWidget(m_buttons->count() - 1, button);
}
