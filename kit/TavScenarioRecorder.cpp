#include "TavScenarioRecorder.h"

#include "TavCall.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QMutex>
#include <QSet>
#include <QThread>
#include <QWaitCondition>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace
{
constexpr qint64 microsecondsInSecond = 1'000'000;

/// Name of the getter of what a call sets as a whole; empty for other calls.
QString heldBy(const QString &manager, const QString &operation, const QJsonArray &arguments)
{
    static const QHash<QString, TavCall::HeldValue> bySetter = [] {
        QHash<QString, TavCall::HeldValue> values;
        for (const TavCall::HeldValue &value : TavCall::heldValues()) {
            values.insert(value.manager + value.setter, value);
        }
        return values;
    }();
    const auto value = bySetter.constFind(manager + operation);
    const bool isWhole
        = value != bySetter.constEnd() && arguments.size() == 1 && arguments.first().isArray() == value->isList;
    return isWhole ? value->getter : QString();
}

/// Whether one of the texts in @p value holds half a character, which JSON cannot tell.
bool hasHalfCharacter(const QJsonValue &value)
{
    if (value.isString()) {
        return !value.toString().isValidUtf16();
    }
    const QJsonArray elements = value.toArray();
    if (std::any_of(elements.begin(), elements.end(), hasHalfCharacter)) {
        return true;
    }
    const QJsonObject members = value.toObject();
    return std::any_of(members.begin(), members.end(), hasHalfCharacter);
}

/// Whether an operation leaves the manager as it is.
bool isGetter(const QString &operation)
{
    return operation.startsWith("get") || operation.startsWith("has");
}

QByteArray compact(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
}
}

struct TavScenarioRecorder::State {
    State(const QString &file, const QJsonObject &header, Values values, qint64 memory)
        : m_values(values), m_memory(memory)
    {
        m_descriptor = open(QFile::encodeName(file).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        if (m_descriptor < 0) {
            throw std::runtime_error((file + ": cannot be written: " + qt_error_string(errno)).toStdString());
        }
        QJsonObject first = header;
        first.insert("tavScenario", 1);
        const QByteArray line = QJsonDocument(first).toJson(QJsonDocument::Compact) + '\n';
        const QString error = append(line, 0);
        if (!error.isEmpty()) {
            close(m_descriptor);
            throw std::runtime_error((file + ": cannot be written: " + error).toStdString());
        }
        m_progress.bytes = line.size();
        m_clock.start();
        m_writer.reset(QThread::create([this] { write(); }));
        m_writer->setObjectName("recorder");
        m_writer->start();
    }

    ~State()
    {
        {
            const QMutexLocker lock(&m_mutex);
            m_isEnding = true;
            m_arrived.wakeOne();
        }
        m_writer->wait();
        close(m_descriptor);
    }

    Q_DISABLE_COPY(State)

    void record(const QString &manager, const QString &operation, const QJsonArray &arguments,
                const QJsonValue &returns)
    {
        const QByteArray text = compact(arguments);
        QByteArray call = R"("manager":")" + manager.toUtf8() + R"(","operation":")" + operation.toUtf8()
            + R"(","arguments":)" + text;
        if (!returns.isUndefined()) {
            call += R"(,"returns":)" + compact(returns);
        }
        const QString held = heldBy(manager, operation, arguments);
        const QByteArray digest = held.isEmpty() ? QByteArray() : digestOf(text);
        const bool isTold = !hasHalfCharacter(arguments) && !hasHalfCharacter(returns);

        const QMutexLocker lock(&m_mutex);
        QHash<QString, QByteArray> &last = m_last[manager];
        if (!held.isEmpty() && m_values == Values::Changed && last.value(held) == digest) {
            ++m_progress.unchanged;
            return;
        }
        if (held.isEmpty() && !isGetter(operation)) {
            last.clear();
        }
        last.remove(held); // should the line be lost, the next call is recorded, whatever its value
        const qint64 at = m_clock.nsecsElapsed() / 1000;
        const QByteArray line
            = R"({"at":)" + QByteArray::number(double(at) / double(microsecondsInSecond), 'f', 6) + ',' + call + "}\n";
        if (!isTold || !m_progress.error.isEmpty() || m_waiting.size() + m_writing + line.size() > m_memory) {
            ++m_progress.lost;
            return;
        }
        if (!held.isEmpty()) {
            last.insert(held, digest);
        }
        ++m_progress.lines;
        m_waiting += line;
        m_arrived.wakeOne();
    }

    static QByteArray digestOf(const QByteArray &text)
    {
        return QCryptographicHash::hash(text, QCryptographicHash::Sha256);
    }

    // --- on the writer's thread

    void write()
    {
        QMutexLocker lock(&m_mutex);
        while (true) {
            while (!m_isEnding && m_waiting.isEmpty()) {
                m_arrived.wait(&m_mutex);
            }
            if (m_waiting.isEmpty()) {
                return;
            }
            QByteArray lines;
            lines.swap(m_waiting);
            m_writing = lines.size();
            const qint64 before = m_progress.bytes;
            lock.unlock();
            const QString error = append(lines, before);
            lock.relock();
            m_writing = 0;
            m_written.wakeAll();
            if (!error.isEmpty()) {
                const int lost = lines.count('\n') + m_waiting.count('\n');
                m_progress.error = error;
                m_progress.lost += lost;
                m_progress.lines -= lost;
                m_waiting.clear();
                return;
            }
            m_progress.bytes += lines.size();
        }
    }

    /// Appends whole lines to the file of @p size bytes, or nothing; returns why that is not possible.
    QString append(const QByteArray &lines, qint64 size) const
    {
        for (qint64 written = 0; written < lines.size();) {
            const ssize_t count
                = ::write(m_descriptor, lines.constData() + written, std::size_t(lines.size() - written));
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count < 0) {
                const QString error = qt_error_string(errno);
                const bool isWhole = written == 0 || ftruncate(m_descriptor, size) == 0;
                return isWhole ? error : error + "; its last line is cut";
            }
            written += count;
        }
        return {};
    }

    const Values m_values;
    const qint64 m_memory;
    int m_descriptor = -1;

    mutable QMutex m_mutex; ///< for what follows
    QWaitCondition m_arrived;
    QWaitCondition m_written;
    QElapsedTimer m_clock;
    QHash<QString, QHash<QString, QByteArray>> m_last; ///< digests of what each setter was called with, by manager
    QByteArray m_waiting; ///< whole lines
    qint64 m_writing = 0; ///< bytes that the writer has taken out of it
    TavRecordProgress m_progress;
    bool m_isEnding = false;
    std::unique_ptr<QThread> m_writer; ///< the last, since it uses all others
};

TavScenarioRecorder::TavScenarioRecorder(const QString &file, const QJsonObject &header, Values values, qint64 memory)
    : m_state(std::make_unique<State>(file, header, values, memory))
{
}

TavScenarioRecorder::~TavScenarioRecorder() = default;

void TavScenarioRecorder::record(const QString &manager, const QString &operation, const QJsonArray &arguments,
                                 const QJsonValue &returns)
{
    m_state->record(manager, operation, arguments, returns);
}

void TavScenarioRecorder::assume(const QString &manager, const QString &setter, const QJsonArray &arguments)
{
    const QString held = heldBy(manager, setter, arguments);
    const QMutexLocker lock(&m_state->m_mutex);
    m_state->m_last[manager].insert(held, State::digestOf(compact(arguments)));
}

void TavScenarioRecorder::finish()
{
    const QMutexLocker lock(&m_state->m_mutex);
    while (!m_state->m_waiting.isEmpty() || m_state->m_writing > 0) {
        m_state->m_written.wait(&m_state->m_mutex);
    }
}

TavRecordProgress TavScenarioRecorder::progress() const
{
    const QMutexLocker lock(&m_state->m_mutex);
    TavRecordProgress progress = m_state->m_progress;
    progress.microseconds = m_state->m_clock.nsecsElapsed() / 1000;
    return progress;
}

void TavScenarioRecorder::countLost()
{
    const QMutexLocker lock(&m_state->m_mutex);
    ++m_state->m_progress.lost;
}
