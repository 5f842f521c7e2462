#pragma once

#include "TavObjectMgr.h"

#include <QWidget>

/// @brief What is registered in a registry, at which it looks once a second.
class RegistryPanel : public QWidget
{
    Q_OBJECT
public:
    /// @p registry outlives the panel.
    explicit RegistryPanel(ITavObjectMgr &registry, QWidget *parent = nullptr);
};
