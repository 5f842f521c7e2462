#pragma once

#include "ReadingNote.h"

#include <QWidget>

class AgentFeeder;
struct AgentReport;
class BusyBar;
class QLabel;
class QPushButton;
class Recording;
class ScenarioPlay;

/// @brief What the agent, the scenario and the recording are doing, for the status bar.
class WorkStatus : public QWidget
{
    Q_OBJECT
public:
    /// All three may end before it, when they announce nothing any more.
    WorkStatus(AgentFeeder &feeder, ScenarioPlay &play, Recording &recording, QWidget *parent = nullptr);

    /// Where other work is announced.
    BusyBar &busy()
    {
        return *m_busy;
    }

private:
    void showFeeding();
    void showNotes(const AgentReport &report);
    void showPlay();
    void showRecording();

    AgentFeeder &m_feeder;
    ScenarioPlay &m_play;
    Recording &m_recording;
    ReadingNotes m_notes; ///< of the last feeding
    QPushButton *const m_notesButton;
    QLabel *const m_playText;
    QLabel *const m_recordingText;
    BusyBar *const m_busy;
};
