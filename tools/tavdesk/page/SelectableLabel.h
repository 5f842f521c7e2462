#pragma once

#include <QLabel>

/// @brief A plain text that can be selected with the mouse; one with a word that has no room is cut, and ends in "…".
///
/// It becomes selectable under the mouse only: what Qt makes for that takes longer than the label itself, and a page
/// has many labels.
class SelectableLabel : public QLabel
{
    Q_OBJECT
public:
    explicit SelectableLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;

private:
    int widthWithin(int letters, int width) const; ///< a long word takes no room from what stands beside it
};
