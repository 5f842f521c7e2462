#pragma once

#include "TavCall.h"
#include "TavWorker.h"

#include <QWidget>

#include <functional>

class ArgumentForm;
class ClientSession;
class QComboBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

/// @brief Calls any operation of any manager: its arguments are written as JSON, and so is what it returns.
class CallPanel : public QWidget
{
    Q_OBJECT
public:
    /// @p session outlives the panel.
    explicit CallPanel(ClientSession &session, QWidget *parent = nullptr);

    /// Waits no longer for the call under way, which nothing can break off: the manager ends it, and what it returns is
    /// not shown.
    void stop();

signals:
    void begun(const QString &text);
    void ended();

protected:
    /// To the operations; with a proxy for that, the tabulator would pass the managers by.
    void focusInEvent(QFocusEvent *event) override;

private:
    QWidget *newChoice();
    QWidget *newCall();
    QWidget *newResult();
    void showOperations();
    void showArguments();
    void fillInHeld();
    void makeCall();

    struct Outcome;

    /// Calls off the GUI thread where the operation allows it, with what @p arguments returns there; then hands to
    /// @p done what came of it, or shows why nothing did.
    void call(const QString &operation, const std::function<QJsonArray()> &arguments,
              std::function<void(const Outcome &)> done);
    void setCalling(bool isCalling);
    void showResult(const QString &operation, const Outcome &outcome);
    void showProblem(const QString &problem);

    ClientSession &m_session;
    QVector<TavCall::Operation> m_operations; ///< of the manager that is chosen
    QComboBox *m_managers = nullptr;
    QListWidget *m_list = nullptr;
    ArgumentForm *m_form = nullptr;
    QPushButton *m_held = nullptr;
    QPushButton *m_call = nullptr;
    QLabel *m_outcome = nullptr;
    QPlainTextEdit *m_result = nullptr;
    int m_begun = 0; ///< number of the call that is waited for, or was last
    TavWorker m_caller;
};
