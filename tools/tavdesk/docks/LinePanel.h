#pragma once

#include "BoundedLog.h"
#include "LogPanel.h"

struct LogLine;

/// @brief The lines that the plugin has logged.
class LinePanel : public LogPanel
{
    Q_OBJECT
public:
    /// @p log outlives the panel.
    explicit LinePanel(BoundedLog<LogLine> &log, QWidget *parent = nullptr);
};
