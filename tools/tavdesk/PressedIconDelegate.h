#pragma once

#include <QStyledItemDelegate>

/// @brief Shows an item's icon in its mode Active under the mouse, and in its mode Selected while a button is held.
class PressedIconDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
