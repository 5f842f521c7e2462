#pragma once

#include <QTimer>
#include <QWidget>

/// @brief What is registered in the client's registry; looks at it while it is in sight.
class RegistryPanel : public QWidget
{
    Q_OBJECT
public:
    explicit RegistryPanel(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    class RegistryModel *const m_model;
    QTimer m_timer;
};
