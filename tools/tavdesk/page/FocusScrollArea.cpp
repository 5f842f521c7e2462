#include "FocusScrollArea.h"

#include <QApplication>

FocusScrollArea::FocusScrollArea(QWidget *content, QWidget *parent) : QScrollArea(parent)
{
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    // Qt's own following knows only of steps from one field inside to another, not of those that lead in. A click moves
    // nothing, or it would end beside what it was aimed at.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *, QWidget *now) {
        if (widget()->isAncestorOf(now) && QApplication::mouseButtons() == Qt::NoButton) {
            ensureWidgetVisible(now);
        }
    });
}
