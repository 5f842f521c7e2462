#include "SelectableLabel.h"

#include <QStylePainter>

#include <algorithm>

SelectableLabel::SelectableLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize SelectableLabel::sizeHint() const
{
    const int width = widthWithin(24, fontMetrics().horizontalAdvance(text()));
    return {width, heightForWidth(width)};
}

QSize SelectableLabel::minimumSizeHint() const
{
    const QSize own = QLabel::minimumSizeHint();
    return {widthWithin(10, own.width()), own.height()};
}

int SelectableLabel::widthWithin(int letters, int width) const
{
    return std::min(width, fontMetrics().averageCharWidth() * letters);
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
