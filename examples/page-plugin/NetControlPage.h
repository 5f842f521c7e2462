#pragma once

#include <QWidget>

class NetControlController;
class QPushButton;
class QTreeWidget;

/// @brief The page: the network devices, a check mark for each, and a button that blocks or allows the selected one.
class NetControlPage : public QWidget
{
    Q_OBJECT
public:
    /// @p controller outlives the page.
    explicit NetControlPage(NetControlController &controller, QWidget *parent = nullptr);
    ~NetControlPage() override;

private:
    void showLines();

    NetControlController &m_controller;
    QTreeWidget *m_list; // one item a line, with the device's name as its text
    QPushButton *m_toggle;
};
