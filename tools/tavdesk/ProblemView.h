#pragma once

#include <QWidget>

class QAction;
class QHBoxLayout;
class QLabel;

/// @brief Says in the middle of its place what is wrong and what to do about it.
class ProblemView : public QWidget
{
    Q_OBJECT
public:
    /// @p title is what does not work, @p problem why, @p advice what to do; any but the title may be empty.
    ProblemView(const QString &title, const QString &problem, const QString &advice, QWidget *parent = nullptr);

    /// Adds a button below the texts.
    void addButton(QAction *action);

protected:
    void changeEvent(QEvent *event) override;

private:
    void drawSign();

    QLabel *m_sign;
    QHBoxLayout *m_buttons;
};
