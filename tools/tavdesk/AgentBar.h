#pragma once

#include <QToolBar>

class AgentFeeder;
class Recording;

/// @brief Buttons that have the local agent feed the managers, and record what happens.
class AgentBar : public QToolBar
{
    Q_OBJECT
public:
    /// Both may end before the bar, when nobody works it any more.
    AgentBar(AgentFeeder &feeder, Recording &recording, QWidget *parent = nullptr);

private:
    void addFeeding(AgentFeeder &feeder);
    void addRecording(Recording &recording);
};
