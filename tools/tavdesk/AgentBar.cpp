#include "AgentBar.h"

#include "AgentFeeder.h"
#include "Recording.h"
#include "ScenarioDialog.h"
#include "SymbolIcon.h"

#include <QAction>
#include <QSpinBox>

AgentBar::AgentBar(AgentFeeder &feeder, Recording &recording, QWidget *parent) : QToolBar(tr("Agent"), parent)
{
    setObjectName(QStringLiteral("agent"));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addFeeding(feeder);
    addSeparator();
    addRecording(recording);
}

void AgentBar::addFeeding(AgentFeeder &feeder)
{
    QAction *const feed = addAction(symbolIcon(Symbol::Feed), tr("&Feed"));
    feed->setShortcut(QKeySequence::Refresh);
    feed->setToolTip(tr("Read this machine and feed the managers."));
    QAction *const repeat = addAction(symbolIcon(Symbol::Repeat), tr("Feed &Every"));
    repeat->setCheckable(true);
    repeat->setShortcut(QKeySequence(Qt::SHIFT + Qt::Key_F5));
    repeat->setToolTip(tr("Feed again and again."));
    auto *const seconds = new QSpinBox;
    seconds->setRange(1, 3600);
    seconds->setValue(5);
    seconds->setSuffix(tr(" s"));
    seconds->setAccessibleName(tr("Seconds from one feeding to the next"));
    addWidget(seconds);

    connect(feed, &QAction::triggered, &feeder, &AgentFeeder::feed);
    connect(repeat, &QAction::triggered, &feeder,
            [&feeder, seconds](bool isOn) { feeder.repeat(isOn ? seconds->value() : 0); });
    connect(seconds, QOverload<int>::of(&QSpinBox::valueChanged), &feeder, [&feeder](int value) {
        if (feeder.isRepeating()) {
            feeder.repeat(value);
        }
    });
    connect(&feeder, &AgentFeeder::stateChanged, this, [feed, repeat, &feeder] {
        feed->setEnabled(!feeder.isFeeding());
        repeat->setChecked(feeder.isRepeating());
    });
}

void AgentBar::addRecording(Recording &recording)
{
    QAction *const record = addAction(symbolIcon(Symbol::Record), tr("&Record…"));
    record->setCheckable(true);
    record->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_R));
    record->setToolTip(tr("Record all calls into a file."));
    connect(&recording, &Recording::stateChanged, record, [record, &recording] {
        record->setChecked(recording.state() != Recording::State::Off);
        record->setText(record->isChecked() ? tr("Stop &Recording") : tr("&Record…"));
        record->setEnabled(recording.state() == Recording::State::Off || recording.state() == Recording::State::On);
    });
    connect(record, &QAction::triggered, this, [this, record, &recording] {
        record->setChecked(recording.state() != Recording::State::Off); // the recording tells, not the click
        if (recording.state() == Recording::State::On) {
            recording.end();
            return;
        }
        auto *const dialog = newScenarioDialog(window(), tr("Record Calls"), QFileDialog::AcceptSave);
        connect(dialog, &QFileDialog::fileSelected, &recording, &Recording::begin);
        dialog->open();
    });
}
