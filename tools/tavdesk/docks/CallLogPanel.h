#pragma once

#include "LogModel.h"
#include "LogPanel.h"
#include "TavWorker.h"

class CallLog;
struct LoggedCall;

/// @brief The calls that were made on managers, of which a selection can be saved as a scenario.
class CallLogPanel : public LogPanel
{
    Q_OBJECT
public:
    /// @p log outlives the panel.
    explicit CallLogPanel(CallLog &log, QWidget *parent = nullptr);

    /// The selected calls, in their order.
    QVector<LoggedCall> selectedCalls() const;

    /// Writes @p calls into @p file, as a scenario; saved() tells when that is done.
    void save(const QString &file, const QVector<LoggedCall> &calls);

signals:
    void begun(const QString &text);
    void ended();
    /// @p error is empty when the file was written.
    void saved(const QString &file, const QString &error);

private:
    CallLogPanel(LogModel<LoggedCall> *model, QWidget *parent);

    LogModel<LoggedCall> *const m_model;
    TavWorker m_writer;
};
