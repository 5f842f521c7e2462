#pragma once

#include "IPage.h"
#include "NetControlController.h"

class QPushButton;
class QTreeWidget;

/// @brief The page: the network devices, a check mark for each, and a button that blocks or allows the selected one.
class NetControlPage : public QWidget, public IPage
{
    Q_OBJECT
    Q_INTERFACES(IPage)
public:
    explicit NetControlPage(QWidget *parent = nullptr);

    void receiveAnswer(const QByteArray &answer) override;

private:
    void showLines();

    NetControlController m_controller;
    QTreeWidget *m_list; // one item a line, with the device's name as its text
    QPushButton *m_toggle;
};
