#pragma once

#include <QWidget>

/// @brief What is registered in the client's registry, at which it looks once a second.
class RegistryPanel : public QWidget
{
    Q_OBJECT
public:
    explicit RegistryPanel(QWidget *parent = nullptr);
};
