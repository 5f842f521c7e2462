#pragma once

#include "TavJson.h"
#include "TavOperations.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <functional>
#include <memory>

/// @brief What has been recorded so far.
struct TavRecordProgress {
    qint64 microseconds = 0; ///< since the recorder was made
    qint64 lines = 0; ///< taken, without the first
    qint64 bytes = 0; ///< written to the file, whole lines only
    qint64 unchanged = 0; ///< calls left out since they change nothing
    qint64 lost = 0; ///< calls that found no room in memory, that JSON cannot tell, or that came after the disk's error
    QString error; ///< why the file cannot be written any more; empty while it can
};

/**
 * @brief Records calls into a scenario; a controller tells it each call that it makes on a manager.
 *
 * Whoever tells a call never waits for the disk: the line is put into memory, and a thread of the recorder's own writes
 * it. When the disk is slower than the calls and the memory is full, calls are lost, and counted. The file holds
 * whole lines only, also when the disk is full; after a kill it may end within its last line, which the reader names.
 *
 * Calls that change nothing are left out unless all are wanted: getters, and setters of a whole value with the value
 * that they were called with last, unless the manager has meanwhile been told anything else that may have changed it.
 * Changes that the recorder is not told are not known to it.
 *
 * All operations may be called on any thread; the lines have the order in which they were told. A line's thread is the
 * one that told it: "gui" for the application object's; of the others, those that have one of a scenario's names keep
 * it, and the first of the rest is "agent", the second "agent2", unless they are taken. Those beyond the eighth share
 * its name.
 */
class TavScenarioRecorder
{
public:
    static constexpr qint64 defaultMemory = 64 << 20; ///< bytes

    /// Which calls are recorded: those that change what a manager holds, or all.
    enum class Calls { Changing, All };

    /// @brief Begins the file, in place of one that is there, with @p header in its first line. Throws
    /// std::runtime_error when it cannot be written. Lines that wait to be written take at most @p memory bytes.
    explicit TavScenarioRecorder(const QString &file, const QJsonObject &header = {}, Calls calls = Calls::Changing,
                                 qint64 memory = defaultMemory);

    /// Writes what waits, and ends the file.
    ~TavScenarioRecorder();

    Q_DISABLE_COPY(TavScenarioRecorder) // its thread knows it

    /// Tells the call of an operation: `recorder.record<&ITavNetControlMgr::setNetCount>(count)`.
    template<auto Member, class... Arguments>
    void record(const Arguments &...arguments)
    {
        using Operation = TavOperations::Operation<Member>;
        using Values = typename Operation::Values;
        const auto &operation = std::get<Operation>(TavOperations::Table<typename Operation::Interface>::list);
        record(qobject_interface_iid<typename Operation::Interface *>(), operation.name.data(), [&]() -> QJsonValue {
            const QJsonArray values = TavJson::arrayOf(Values(arguments...));
            if (!TavOperations::sharesItsName(operation)) {
                return values;
            }
            QJsonObject named; // by position they might fit another one
            for (int i = 0; i < values.size(); ++i) {
                named.insert(operation.argumentNames[std::size_t(i)].data(), values[i]);
            }
            return named;
        });
    }

    /// The same by name; @p arguments makes JSON of them, an array by position or an object by name. Where it throws,
    /// the call is lost: what JSON cannot tell must not disturb the caller.
    void record(const QString &manager, const QString &operation, const std::function<QJsonValue()> &arguments);

    /// The same with JSON: @p arguments by position, and what the call must return when it is played, if anything.
    /// A call with @p returns is never left out.
    void record(const QString &manager, const QString &operation, const QJsonArray &arguments,
                const QJsonValue &returns = QJsonValue::Undefined);

    /// Waits until everything told so far is written, or cannot be.
    void finish();

    /// What has been recorded so far.
    [[nodiscard]] TavRecordProgress progress() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};
