#include "CallLogPanel.h"

#include "CallLog.h"
#include "CallScenario.h"
#include "CellText.h"
#include "LogTexts.h"
#include "ScenarioDialog.h"
#include "ShortJson.h"
#include "SymbolIcon.h"

#include <QAction>

namespace
{
LogModel<LoggedCall> *newModel(CallLog &log)
{
    const auto manager = [](const LoggedCall &call) { return call.manager; };
    const auto operation = [](const LoggedCall &call) { return call.operation; };
    const auto result = [](const LoggedCall &call) { return call.error.isEmpty() ? call.returned : call.error; };
    return new LogModel<LoggedCall>(
        log,
        {{CallLogPanel::tr("Time"), [](const LoggedCall &call) { return LogTexts::time(call.time); }, LogCell::Time},
         {CallLogPanel::tr("Thread"), [](const LoggedCall &call) { return call.thread; }},
         {CallLogPanel::tr("Manager"), manager},
         {CallLogPanel::tr("Operation"), operation},
         {CallLogPanel::tr("Arguments"), [](const LoggedCall &call) { return shortJson(call.arguments); }},
         {CallLogPanel::tr("Result"), result},
         {CallLogPanel::tr("Size"),
          [](const LoggedCall &call) { return CellText::ofKind(TavFields::Kind::Size, call.bytes); }, LogCell::Number},
         {CallLogPanel::tr("µs"), [](const LoggedCall &call) { return LogTexts::microseconds(call.nanoseconds); },
          LogCell::Number}});
}
}

CallLogPanel::CallLogPanel(CallLog &log, QWidget *parent) : CallLogPanel(newModel(log), parent)
{
}

CallLogPanel::CallLogPanel(LogModel<LoggedCall> *model, QWidget *parent)
    : LogPanel(model, tr("Calls"), 4, {12, 8, 17, 21, 30, 12, 9, 7}, parent)
    , m_model(model)
    , m_writer(QStringLiteral("call-writer"), TavWorker::AtEnd::Finish)
{
    auto *const saveSelection = new QAction(symbolIcon(Symbol::Save), tr("Save Selection…"), this);
    saveSelection->setToolTip(tr("Save the selected calls as a scenario."));
    saveSelection->setEnabled(false);
    addButton(saveSelection);
    connect(this, &LogPanel::selectionChanged, saveSelection,
            [this, saveSelection] { saveSelection->setEnabled(hasSelection()); });
    connect(saveSelection, &QAction::triggered, this, [this] {
        auto *const dialog = newScenarioDialog(this, tr("Save Calls as a Scenario"), QFileDialog::AcceptSave);
        // Those selected now: the log goes on under the dialog, and forgets its oldest calls.
        connect(dialog, &QFileDialog::fileSelected, this,
                [this, calls = selectedCalls()](const QString &file) { save(file, calls); });
        dialog->open();
    });
}

QVector<LoggedCall> CallLogPanel::selectedCalls() const
{
    QVector<LoggedCall> calls;
    const QVector<int> rows = selectedRows();
    for (const int row : rows) {
        calls.append(m_model->entry(row));
    }
    return calls;
}

void CallLogPanel::save(const QString &file, const QVector<LoggedCall> &calls)
{
    emit begun(tr("Writing the calls"));
    m_isStopped = std::make_shared<std::atomic<bool>>(false);
    m_writer.post([file, calls, isStopped = m_isStopped] { return saveAsScenario(file, calls, *isStopped); },
                  [this, file](const SavedCalls &calls) {
                      emit ended();
                      if (!calls.isStopped) {
                          emit saved(file, calls.error, calls.leftOut);
                      }
                  });
}

void CallLogPanel::stop()
{
    *m_isStopped = true;
}
