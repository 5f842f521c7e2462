#pragma once

#include "LogModel.h"
#include "LogPanel.h"
#include "TavWorker.h"

#include <atomic>
#include <memory>

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

    /// Leaves the file that is being written as it was before.
    void stop();

signals:
    void begun(const QString &text);
    void ended();
    /// @p error is empty when the file was written; without @p leftOut calls, which had been refused.
    void saved(const QString &file, const QString &error, int leftOut);

private:
    CallLogPanel(LogModel<LoggedCall> *model, QWidget *parent);

    LogModel<LoggedCall> *const m_model;
    std::shared_ptr<std::atomic<bool>> m_isStopped; ///< of the file that was begun last
    TavWorker m_writer;
};
