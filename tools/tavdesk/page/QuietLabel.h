#pragma once

#include <QLabel>

/// @brief A text that stands back behind the others: in the colour between theirs and that of their ground.
class QuietLabel : public QLabel
{
    Q_OBJECT
public:
    explicit QuietLabel(const QString &text = {}, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void takeColour();
};
