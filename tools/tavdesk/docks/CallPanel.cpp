#include "CallPanel.h"

#include "ArgumentForm.h"
#include "ClientSession.h"
#include "FocusScrollArea.h"
#include "ITavPicResourceMgr.h"
#include "PlainToolTip.h"
#include "ValueText.h"
#include "WaitCursor.h"
#include "WithoutScopes.h"

#include <QAction>
#include <QComboBox>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

/// @brief What a call has returned, or why it was refused.
struct CallPanel::Outcome {
    QJsonValue result;
    QString text; ///< the result, or its beginning
    int letters = 0; ///< of the whole text
    bool canBeEdited = true; ///< it is short enough for a field, and so are its lines
    QString problem;
};

namespace
{
constexpr int mostLetters = 1 << 20; // that are shown; the view takes its time for more

constexpr int longestLine = 4096; // a single long one takes the view seconds

/// @p text with its long lines broken.
QString withShortLines(const QString &text)
{
    QString lines;
    int length = 0; // of the line
    for (const QChar letter : text) {
        length = letter == QLatin1Char('\n') ? 0 : length + 1;
        if (length > longestLine) {
            lines += QLatin1Char('\n');
            length = 1;
        }
        lines += letter;
    }
    return lines;
}

using Arguments = std::function<QJsonArray()>; // throws when what stands in the fields is no JSON

/// Reads the arguments, makes the call and writes what it returns. On the worker, since all three may be large; so a
/// large result ends there, too.
template<class Outcome>
Outcome outcomeOf(ClientSession &session, const QString &manager, const QString &operation, const Arguments &arguments)
{
    try {
        Outcome outcome;
        outcome.result = session.call(manager, operation, arguments());
        const QString text = QString::fromUtf8(ValueText::write(outcome.result));
        outcome.letters = text.size();
        outcome.text = withShortLines(text.left(mostLetters));
        outcome.canBeEdited = outcome.text == text;
        if (!outcome.canBeEdited) {
            outcome.result = {};
        }
        return outcome;
    } catch (const std::exception &error) {
        return {{}, {}, 0, true, QString::fromUtf8(error.what())};
    }
}

/// The value that the operation sets as a whole; null for other operations.
const TavCall::HeldValue *heldBy(const TavCall::Operation &operation)
{
    const QVector<TavCall::HeldValue> &values = TavCall::heldValues();
    const auto value = std::find_if(values.begin(), values.end(), [&operation](const TavCall::HeldValue &held) {
        return held.manager == operation.manager && held.setter == operation.name && operation.arguments.size() == 1
            && !held.isIndeterminateAtFirst;
    });
    return value == values.end() ? nullptr : &*value;
}

QVBoxLayout *newColumn(QWidget *widget)
{
    auto *const layout = new QVBoxLayout(widget);
    layout->setContentsMargins(6, 6, 6, 6);
    return layout;
}
}

CallPanel::CallPanel(ClientSession &session, QWidget *parent)
    : QWidget(parent), m_session(session), m_caller(QStringLiteral("call"), TavWorker::AtEnd::Finish)
{
    auto *const splitter = new QSplitter;
    splitter->addWidget(newChoice());
    splitter->addWidget(newCall());
    splitter->addWidget(newResult());
    splitter->setStretchFactor(0, 5);
    splitter->setStretchFactor(1, 8);
    splitter->setStretchFactor(2, 8);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({300, 480, 480}); // whatever stands in them at first
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    showOperations();
}

QWidget *CallPanel::newChoice()
{
    auto *const widget = new QWidget;
    m_managers = new QComboBox;
    m_managers->setAccessibleName(tr("Manager"));
    m_managers->addItems(TavCall::managers());
    m_list = new QListWidget;
    m_list->setAccessibleName(tr("Operations"));
    m_list->setAlternatingRowColors(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *const layout = newColumn(widget);
    layout->addWidget(m_managers);
    layout->addWidget(m_list);
    connect(m_managers, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CallPanel::showOperations);
    connect(m_list, &QListWidget::currentRowChanged, this, &CallPanel::showArguments);
    connect(m_list, &QListWidget::itemActivated, this, [this] { // choosing calls nothing: some operations empty a list
        QWidget *const next = m_operations[m_list->currentRow()].arguments.isEmpty() ? m_call : m_form->focusProxy();
        next->setFocus();
    });
    return widget;
}

QWidget *CallPanel::newCall()
{
    auto *const widget = new QWidget;
    m_form = new ArgumentForm;
    auto *const scroll = new FocusScrollArea(m_form);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_held = new QPushButton(tr("F&ill In What Is Held"));
    m_call = new QPushButton(tr("&Call"));
    m_call->setToolTip(tr("Call the operation (Ctrl+Return)."));
    auto *const key = new QAction(this);
    key->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Return));
    key->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(key);
    connect(key, &QAction::triggered, m_call, &QPushButton::click);
    auto *const buttons = new QHBoxLayout;
    buttons->addWidget(m_held);
    buttons->addStretch();
    buttons->addWidget(m_call);
    auto *const layout = newColumn(widget);
    layout->addWidget(scroll, 1);
    layout->addLayout(buttons);
    connect(m_form, &ArgumentForm::refused, this, &CallPanel::showProblem);
    connect(m_held, &QPushButton::clicked, this, &CallPanel::fillInHeld);
    connect(m_call, &QPushButton::clicked, this, &CallPanel::makeCall);
    return widget;
}

QWidget *CallPanel::newResult()
{
    auto *const widget = new QWidget;
    m_outcome = new QLabel;
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setWordWrap(true);
    m_outcome->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name makes no column wider
    m_result = new QPlainTextEdit;
    m_result->setAccessibleName(tr("Result"));
    m_result->setReadOnly(true);
    m_result->setTabChangesFocus(true);
    m_result->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *const layout = newColumn(widget);
    layout->addWidget(m_outcome);
    layout->addWidget(m_result);
    return widget;
}

void CallPanel::focusInEvent(QFocusEvent *event)
{
    m_list->setFocus(event->reason());
}

void CallPanel::showOperations()
{
    m_operations = TavCall::operationsOf(m_managers->currentText());
    m_list->clear();
    for (const TavCall::Operation &operation : qAsConst(m_operations)) {
        auto *const item = new QListWidgetItem(withoutScopes(operation.signature()), m_list);
        item->setToolTip(plainToolTip(tr("%1 returns %2").arg(operation.signature(), operation.result)));
    }
    // Each manager's first one returns the manager itself, which is of no use to a person.
    m_list->setCurrentRow(m_operations.size() > 1 && m_operations[0].name == QLatin1String("getObject") ? 1 : 0);
}

void CallPanel::showArguments()
{
    const int row = m_list->currentRow();
    if (row < 0) {
        return;
    }
    const TavCall::Operation &operation = m_operations[row];
    m_form->setArguments(operation.arguments);
    m_held->setVisible(heldBy(operation) != nullptr);
    m_outcome->setText(tr("%1 returns %2").arg(operation.name, operation.result));
    m_result->clear();
}

void CallPanel::fillInHeld()
{
    const TavCall::HeldValue *const held = heldBy(m_operations[m_list->currentRow()]);
    call(
        held->getter, [] { return QJsonArray(); },
        [this, setter = held->setter, row = m_list->currentRow()](const Outcome &outcome) {
            if (m_list->currentRow() != row || m_operations[row].name != setter) {
                return; // something else was chosen meanwhile
            }
            if (!outcome.canBeEdited) {
                showProblem(tr("What is held has %L1 letters, too many to be edited here.").arg(outcome.letters));
            } else {
                m_form->setValue(0, outcome.result);
            }
        });
}

void CallPanel::makeCall()
{
    try {
        const QString operation = m_operations[m_list->currentRow()].name;
        call(operation, m_form->values(),
             [this, operation](const Outcome &outcome) { showResult(operation, outcome); });
    } catch (const std::runtime_error &error) {
        showProblem(QString::fromUtf8(error.what()));
    }
}

void CallPanel::call(const QString &operation, const std::function<QJsonArray()> &arguments,
                     std::function<void(const Outcome &)> done)
{
    const QString manager = m_managers->currentText();
    const auto finish = [this, number = ++m_begun, done = std::move(done)](const Outcome &outcome) {
        if (number != m_begun) {
            return; // nobody waits for it any more
        }
        setCalling(false);
        emit ended();
        if (outcome.problem.isEmpty()) {
            done(outcome);
        } else {
            showProblem(outcome.problem);
        }
    };
    const auto make = [&session = m_session, manager, operation, arguments] {
        return outcomeOf<Outcome>(session, manager, operation, arguments);
    };
    if (manager == QLatin1String(qobject_interface_iid<ITavPicResourceMgr *>())) {
        const WaitCursor waiting;
        finish(make()); // this manager alone belongs to the GUI thread
        return;
    }
    setCalling(true);
    emit begun(tr("Calling %1").arg(operation));
    m_caller.post(make, finish);
}

void CallPanel::stop()
{
    ++m_begun;
    setCalling(false);
    m_outcome->setText(tr("The call goes on, and the next one begins behind it. What it returns is not shown."));
    m_result->clear();
    emit ended();
}

// One call at a time: a second one would take the result of the first from whoever waits for it.
void CallPanel::setCalling(bool isCalling)
{
    m_call->setDisabled(isCalling);
    m_held->setDisabled(isCalling);
}

void CallPanel::showResult(const QString &operation, const Outcome &outcome)
{
    // By its name: when this comes, another one may be chosen.
    m_outcome->setText(outcome.letters > mostLetters
                           ? tr("%1 has returned %L2 letters, of which the first %L3 are shown:")
                                 .arg(operation)
                                 .arg(outcome.letters)
                                 .arg(mostLetters)
                           : tr("%1 has returned:").arg(operation));
    m_result->setPlainText(outcome.text);
}

void CallPanel::showProblem(const QString &problem)
{
    m_outcome->setText(tr("Refused:"));
    m_result->setPlainText(problem);
}
