#include "SelectableLabel.h"

#include "LetterWidth.h"

#include <QStylePainter>

SelectableLabel::SelectableLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize SelectableLabel::sizeHint() const
{
    return minimumSizeHint();
}

QSize SelectableLabel::minimumSizeHint() const
{
    constexpr int letters = 10;
    return QLabel::minimumSizeHint().boundedTo({letterWidth(fontMetrics()) * letters, QWIDGETSIZE_MAX});
}

void SelectableLabel::paintEvent(QPaintEvent *event)
{
    const bool hasRoom = QLabel::minimumSizeHint().width() <= width(); // for its longest word
    if (hasRoom || textInteractionFlags().testFlag(Qt::TextSelectableByMouse)) {
        QLabel::paintEvent(event);
        return;
    }
    QStylePainter(this).drawItemText(contentsRect(), int(alignment()), palette(), isEnabled(),
                                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()),
                                     foregroundRole());
}

void SelectableLabel::enterEvent(QEvent *event)
{
    QLabel::enterEvent(event);
    if (textInteractionFlags() == Qt::LinksAccessibleByMouse) { // a label's own
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
}
