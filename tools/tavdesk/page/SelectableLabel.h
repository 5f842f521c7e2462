#pragma once

#include <QLabel>

/// @brief A plain text that can be selected with the mouse.
///
/// It becomes selectable under the mouse only: what Qt makes for that takes longer than the label itself, and a page
/// has many labels.
class SelectableLabel : public QLabel
{
    Q_OBJECT
public:
    explicit SelectableLabel(QWidget *parent = nullptr);

protected:
    void enterEvent(QEvent *event) override;
};
