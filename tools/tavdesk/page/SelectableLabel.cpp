#include "SelectableLabel.h"

SelectableLabel::SelectableLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void SelectableLabel::enterEvent(QEvent *event)
{
    QLabel::enterEvent(event);
    if (textInteractionFlags() == Qt::LinksAccessibleByMouse) { // a label's own
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
}
