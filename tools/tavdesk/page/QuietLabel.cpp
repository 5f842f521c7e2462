#include "QuietLabel.h"

#include <QApplication>
#include <QEvent>

QuietLabel::QuietLabel(const QString &text, QWidget *parent) : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    takeColour();
}

void QuietLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::StyleChange) {
        takeColour();
    }
}

// The palette's own colour for this, that of placeholders, has no brush for a label in some styles.
void QuietLabel::takeColour()
{
    QPalette own = QApplication::palette(this);
    QColor colour = own.color(QPalette::WindowText);
    colour.setAlphaF(0.65);
    own.setColor(QPalette::WindowText, colour);
    setPalette(own);
}
