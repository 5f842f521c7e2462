#pragma once

#include "TavJson.h"
#include "TavOperations.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <memory>

/// @brief What has been recorded so far.
struct TavRecordProgress {
    qint64 microseconds = 0; ///< since the recorder was made
    qint64 lines = 0; ///< taken, without the first
    qint64 bytes = 0; ///< written to the file, whole lines only
    qint64 unchanged = 0; ///< calls left out since they set what was set before
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
 * A setter that is called with the value that it was called with last is left out, unless the manager has meanwhile
 * been told anything but setters of whole values, which may have changed it. Changes that the recorder is not told are
 * not known to it.
 *
 * All operations may be called on any thread; the lines have the order in which they were told.
 */
class TavScenarioRecorder
{
public:
    static constexpr qint64 defaultMemory = 64 << 20;

    enum class Values { Changed, All }; ///< which calls of setters are recorded

    /// @brief Begins the file, in place of one that is there, with @p header in its first line. Throws
    /// std::runtime_error when it cannot be written. Lines that wait to be written take at most @p memory bytes.
    explicit TavScenarioRecorder(const QString &file, const QJsonObject &header = {}, Values values = Values::Changed,
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
        recordValues(qobject_interface_iid<typename Operation::Interface *>(), operation.name.data(),
                     [&] { return toJson(Values(arguments...)); });
    }

    /// The same by name: @p arguments by position. @p returns is what the call has returned, if that is to be checked.
    void record(const QString &manager, const QString &operation, const QJsonArray &arguments,
                const QJsonValue &returns = QJsonValue::Undefined);

    /// Takes @p arguments as what the setter was called with last, without recording it.
    void assume(const QString &manager, const QString &setter, const QJsonArray &arguments);

    /// Waits until everything told so far is written, or cannot be.
    void finish();

    TavRecordProgress progress() const;

private:
    template<class... Types>
    static QJsonArray toJson(const std::tuple<Types...> &values)
    {
        return std::apply([](const auto &...value) { return QJsonArray{TavJson::toJson(value)...}; }, values);
    }

    /// Values that JSON cannot tell are lost, and must not disturb the caller.
    template<class ToJson>
    void recordValues(const char *manager, const char *operation, const ToJson &json)
    {
        QJsonArray arguments;
        try {
            arguments = json();
        } catch (const std::runtime_error &) {
            countLost();
            return;
        }
        record(manager, operation, arguments);
    }

    void countLost();

    struct State;
    std::unique_ptr<State> m_state;
};
