#include "WorkStatus.h"

#include "AgentFeeder.h"
#include "AgentReport.h"
#include "BusyBar.h"
#include "CellText.h"
#include "NotesDialog.h"
#include "Recording.h"
#include "ScenarioPlay.h"
#include "SymbolIcon.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

WorkStatus::WorkStatus(AgentFeeder &feeder, ScenarioPlay &play, Recording &recording, QWidget *parent)
    : QWidget(parent)
    , m_feeder(feeder)
    , m_play(play)
    , m_recording(recording)
    , m_notesButton(new QPushButton)
    , m_playText(new QLabel)
    , m_recordingText(new QLabel)
    , m_busy(new BusyBar)
{
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 0, 6, 0);
    layout->setSpacing(18);
    layout->addWidget(m_notesButton);
    layout->addWidget(m_playText);
    layout->addWidget(m_recordingText);
    layout->addStretch();
    layout->addWidget(m_busy);
    for (QLabel *const label : {m_playText, m_recordingText}) {
        label->setTextFormat(Qt::PlainText);
    }
    m_notesButton->setFlat(true);
    m_notesButton->setIcon(symbolIcon(Symbol::Warning));
    m_notesButton->setToolTip(tr("Show what the agent could not read, and why."));
    m_notesButton->hide();
    connect(m_notesButton, &QPushButton::clicked, this, [this] {
        auto *const dialog = new NotesDialog(m_notes, window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
    connect(&m_feeder, &AgentFeeder::fed, this, &WorkStatus::showNotes);
    connect(&m_feeder, &AgentFeeder::stateChanged, this, &WorkStatus::showFeeding);
    connect(&m_play, &ScenarioPlay::stateChanged, this, &WorkStatus::showPlay);
    connect(&m_play, &ScenarioPlay::positionChanged, this, &WorkStatus::showPlay);
    connect(&m_recording, &Recording::stateChanged, this, &WorkStatus::showRecording);
    connect(&m_recording, &Recording::progressChanged, this, &WorkStatus::showRecording);
}

void WorkStatus::showFeeding()
{
    if (m_feeder.isFeeding()) {
        m_busy->begin(&m_feeder, tr("Reading this machine"), [this] { m_feeder.stop(); });
    } else {
        m_busy->end(&m_feeder);
    }
}

void WorkStatus::showNotes(const AgentReport &report)
{
    m_notes.clear();
    for (const AgentReading &reading : report.readings) {
        m_notes += reading.notes;
    }
    m_notesButton->setText(tr("%n source(s) could not be read", nullptr, m_notes.size()));
    m_notesButton->setVisible(!m_notes.isEmpty());
}

void WorkStatus::showPlay()
{
    using State = ScenarioPlay::State;
    const ScenarioSurvey &survey = m_play.survey();
    const QString name = survey.title.isEmpty() ? QFileInfo(survey.file).fileName() : survey.title;
    const QString calls
        = tr("%1: %2 of %n call(s)", nullptr, int(survey.lines)).arg(name, QString::number(m_play.linesPlayed()));
    m_playText->setText(survey.file.isEmpty()   ? QString()
                            : m_play.turn() > 1 ? tr("%1, turn %2").arg(calls).arg(m_play.turn())
                                                : calls);
    if (m_play.state() == State::Opening) {
        m_busy->begin(&m_play, tr("Reading the scenario"), [this] { m_play.stop(); });
    } else if (m_play.state() == State::Stopping) {
        m_busy->begin(&m_play, tr("Waiting for the calls under way"), [this] { m_play.leave(); });
    } else {
        m_busy->end(&m_play);
    }
}

void WorkStatus::showRecording()
{
    using State = Recording::State;
    const TavRecordProgress progress = m_recording.progress();
    m_recordingText->setText(m_recording.state() == State::On
                                 ? tr("Recording %1: %n call(s), %2", nullptr, int(progress.lines))
                                       .arg(QFileInfo(m_recording.file()).fileName(),
                                            CellText::ofKind(TavFields::Kind::Size, progress.bytes))
                                 : QString());
    if (m_recording.state() == State::Beginning || m_recording.state() == State::Ending) {
        m_busy->begin(&m_recording, tr("Writing the recording"), [this] { m_recording.leave(); });
    } else {
        m_busy->end(&m_recording);
    }
}
