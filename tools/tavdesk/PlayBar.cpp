#include "PlayBar.h"

#include "ScenarioDialog.h"
#include "ScenarioPlay.h"
#include "SymbolIcon.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QSlider>

namespace
{
using State = ScenarioPlay::State;

constexpr qint64 microsecondsInMillisecond = 1000; // the slider counts in milliseconds

QString timeText(qint64 microseconds)
{
    const qint64 seconds = microseconds / 1000000;
    return QStringLiteral("%1:%2.%3")
        .arg(seconds / 60)
        .arg(seconds % 60, 2, 10, QLatin1Char('0'))
        .arg(microseconds / 100000 % 10);
}
}

PlayBar::PlayBar(ScenarioPlay &play, QWidget *parent) : QToolBar(tr("Scenario"), parent), m_play(play)
{
    setObjectName(QStringLiteral("scenario"));
    addButtons();
    addSlider();
    addSpeed();
    connect(&m_play, &ScenarioPlay::stateChanged, this, &PlayBar::showState);
    connect(&m_play, &ScenarioPlay::positionChanged, this, &PlayBar::showPosition);
    showState();
}

void PlayBar::addButtons()
{
    QAction *const open = addAction(symbolIcon(Symbol::Open), tr("&Open Scenario…"), this, &PlayBar::chooseFile);
    open->setShortcut(QKeySequence::Open);
    m_playOrPause = addAction(symbolIcon(Symbol::Play), tr("&Play"), this, [this] {
        if (m_play.state() == State::Playing) {
            m_play.pause();
        } else {
            m_play.play();
        }
    });
    m_playOrPause->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_P));
    m_step = addAction(symbolIcon(Symbol::Step), tr("S&tep"), &m_play, &ScenarioPlay::step);
    m_step->setShortcut(QKeySequence(Qt::Key_F10));
    m_step->setToolTip(tr("Make the next call of the scenario."));
    m_stop = addAction(symbolIcon(Symbol::Stop), tr("&Stop"), &m_play, &ScenarioPlay::stop);
    m_stop->setShortcut(QKeySequence(Qt::SHIFT + Qt::Key_F10));
    QAction *const loop = addAction(symbolIcon(Symbol::Loop), tr("&Loop"));
    loop->setCheckable(true);
    loop->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_L));
    loop->setToolTip(tr("Begin again at the end."));
    connect(loop, &QAction::toggled, &m_play, &ScenarioPlay::setLooped);
}

void PlayBar::addSlider()
{
    m_slider = new QSlider(Qt::Horizontal);
    m_slider->setMinimumWidth(160);
    m_slider->setPageStep(10000);
    m_slider->setSingleStep(1000);
    m_slider->setAccessibleName(tr("Place in the scenario"));
    m_slider->setTracking(false); // one place is sought when the slider is let go, not a hundred on its way
    addWidget(m_slider);
    m_time = new QLabel;
    m_time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_time->setContentsMargins(8, 0, 12, 0);
    m_time->setMinimumWidth(m_time->fontMetrics().horizontalAdvance(QStringLiteral("000:00.0 / 000:00.0")));
    addWidget(m_time);
    connect(m_slider, &QSlider::valueChanged, &m_play,
            [this](int value) { m_play.seek(value * microsecondsInMillisecond); });
}

void PlayBar::addSpeed()
{
    auto *const speed = new QComboBox;
    speed->setAccessibleName(tr("Speed"));
    speed->setToolTip(tr("Times as fast as it was recorded"));
    for (const double times : {0.1, 0.5, 1.0, 2.0, 10.0, 100.0}) {
        speed->addItem(tr("%1×").arg(times), times);
    }
    speed->addItem(tr("fastest"), TavPlayOptions::fastest);
    const auto showSpeed = [speed](double times) { speed->setCurrentIndex(speed->findData(times)); };
    showSpeed(m_play.speed());
    addWidget(speed);
    connect(speed, QOverload<int>::of(&QComboBox::activated), &m_play,
            [this, speed](int index) { m_play.setSpeed(speed->itemData(index).toDouble()); });
    connect(&m_play, &ScenarioPlay::speedChanged, speed, showSpeed);
}

void PlayBar::chooseFile()
{
    auto *const dialog = newScenarioDialog(window(), tr("Open Scenario"), QFileDialog::AcceptOpen);
    connect(dialog, &QFileDialog::fileSelected, &m_play, [this](const QString &file) { m_play.open(file); });
    dialog->open();
}

void PlayBar::showState()
{
    const State state = m_play.state();
    const bool isPlaying = state == State::Playing;
    m_playOrPause->setIcon(symbolIcon(isPlaying ? Symbol::Pause : Symbol::Play));
    m_playOrPause->setText(isPlaying ? tr("&Pause") : tr("&Play"));
    m_playOrPause->setEnabled(isPlaying || state == State::Ready || state == State::Paused);
    m_step->setEnabled(state == State::Ready || state == State::Paused);
    m_stop->setEnabled(isPlaying || state == State::Paused || state == State::Opening);
    m_slider->setEnabled(m_play.survey().end > 0);
    const QSignalBlocker blocker(m_slider); // shows where the play is, and seeks nothing
    m_slider->setRange(0, int(m_play.survey().end / microsecondsInMillisecond));
    showPosition();
}

void PlayBar::showPosition()
{
    if (!m_slider->isSliderDown()) {
        const QSignalBlocker blocker(m_slider);
        m_slider->setValue(int(m_play.position() / microsecondsInMillisecond));
    }
    m_time->setText(QStringLiteral("%1 / %2").arg(timeText(m_play.position()), timeText(m_play.survey().end)));
}
