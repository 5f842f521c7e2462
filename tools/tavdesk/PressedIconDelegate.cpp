#include "PressedIconDelegate.h"

#include <QGuiApplication>
#include <QWidget>

void PressedIconDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->icon.isNull()) {
        return;
    }
    // The style knows of neither: it would take the selection alone for a reason to change the icon.
    const bool isUnderMouse = option->state & QStyle::State_MouseOver;
    const bool isPressed = isUnderMouse && QGuiApplication::mouseButtons() != Qt::NoButton;
    const QIcon::Mode mode = isPressed ? QIcon::Selected : isUnderMouse ? QIcon::Active : QIcon::Normal;
    const QPixmap pixmap = option->icon.pixmap(option->widget ? option->widget->window()->windowHandle() : nullptr,
                                               option->decorationSize, mode);
    QIcon icon;
    for (const QIcon::Mode shown : {QIcon::Normal, QIcon::Active, QIcon::Selected}) {
        icon.addPixmap(pixmap, shown);
    }
    option->icon = icon;
}
