#pragma once

#include "BoundedLog.h"
#include "LogPanel.h"

struct LoggedDelivery;

/// @brief The page changes as they were delivered to each subscriber.
class DeliveryPanel : public LogPanel
{
    Q_OBJECT
public:
    /// @p log outlives the panel.
    explicit DeliveryPanel(BoundedLog<LoggedDelivery> &log, QWidget *parent = nullptr);
};
