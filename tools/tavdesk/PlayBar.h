#pragma once

#include <QToolBar>

class QLabel;
class QSlider;
class ScenarioPlay;

/// @brief Buttons that open and play a scenario, and a slider for the place in it.
class PlayBar : public QToolBar
{
    Q_OBJECT
public:
    /// @p play may end before the bar, when nobody works it any more.
    explicit PlayBar(ScenarioPlay &play, QWidget *parent = nullptr);

private:
    void addButtons();
    void addSlider();
    void addSpeed();
    void chooseFile();
    void showState();
    void showPosition();

    ScenarioPlay &m_play;
    QAction *m_playOrPause = nullptr;
    QAction *m_step = nullptr;
    QAction *m_stop = nullptr;
    QSlider *m_slider = nullptr;
    QLabel *m_time = nullptr;
};
