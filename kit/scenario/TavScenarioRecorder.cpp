#include "TavScenarioRecorder.h"

#include "TavScenario.h"
#include "TavSetValue.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <unistd.h>

namespace
{
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

/// Whether no call of an operation changes what another returns. A keyed getter inserts its key, which no result shows.
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
    State(const QString &file, const QJsonObject &header, Calls calls, qint64 memory) : m_calls(calls), m_memory(memory)
    {
        m_descriptor = open(QFile::encodeName(file).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        if (m_descriptor == -1) {
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
        m_writer.reset(QThread::create([this] { write(); }));
        m_writer->setObjectName("recorder");
        m_writer->start();
    }

    ~State()
    {
        QMutexLocker lock(&m_mutex);
        m_isEnding = true;
        m_arrived.wakeOne();
        lock.unlock();
        m_writer->wait();
        close(m_descriptor);
    }

    Q_DISABLE_COPY(State)

    void record(const QString &manager, const QString &operation, const QJsonValue &arguments,
                const QJsonValue &returns)
    {
        const QByteArray text = compact(arguments);
        QByteArray call = R"("manager":")" + manager.toUtf8() + R"(","operation":")" + operation.toUtf8()
            + R"(","arguments":)" + text;
        if (!returns.isUndefined()) {
            call += R"(,"returns":)" + compact(returns);
        }
        const TavCall::SetValue value = TavCall::setValueOf(manager, operation, arguments);
        const QByteArray held = value.getter.isEmpty() ? QByteArray() : value.getter.toUtf8() + compact(value.key);
        const QByteArray digest
            = held.isEmpty() ? QByteArray() : QCryptographicHash::hash(text, QCryptographicHash::Sha256);
        const bool isTold = !hasHalfCharacter(arguments) && !hasHalfCharacter(returns);

        const QMutexLocker lock(&m_mutex);
        QHash<QByteArray, QByteArray> &last = m_last[manager];
        const bool isUnchanging
            = returns.isUndefined() && (isGetter(operation) || (!held.isEmpty() && last.value(held) == digest));
        if (m_calls == Calls::Changing && isUnchanging) {
            ++m_progress.unchanged;
            return;
        }
        if (held.isEmpty() && !isGetter(operation)) {
            last.clear();
        }
        last.remove(held); // should the line be lost, the next call is recorded, whatever its value
        const QByteArray line = R"({"at":)"
            + QByteArray::number(double(microseconds()) / TavScenario::microsecondsInSecond, 'f', 6) + ',' + threadKey()
            + call + "}\n";
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

    /// Since the recorder was made.
    qint64 microseconds() const
    {
        return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - m_start)
            .count();
    }

    /// The member "thread" of a line that this thread tells; none for the thread that is meant without it. The mutex
    /// is held.
    QByteArray threadKey()
    {
        const QCoreApplication *const application = QCoreApplication::instance();
        if (application && QThread::currentThread() == application->thread()) {
            return R"("thread":"gui",)";
        }
        const int place = placeOfThread();
        return place == TavScenario::agent ? QByteArray()
                                           : R"("thread":")" + TavScenario::threads()[place].toUtf8() + R"(",)";
    }

    /// Place in TavScenario::threads() of this thread, which is not the application's. The mutex is held.
    int placeOfThread()
    {
        const Qt::HANDLE thread = QThread::currentThreadId();
        int place = TavScenario::threads().indexOf(QThread::currentThread()->objectName());
        if (place < 0 || place == TavScenario::gui) {
            place = m_threads.indexOf(thread);
        }
        if (place < 0) {
            place = m_threads.indexOf(nullptr);
        }
        if (place < 0) {
            place = TavScenario::gui - 1;
        }
        m_threads[place] = thread;
        return place;
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
            if (count == -1 && errno == EINTR) {
                continue;
            }
            if (count == -1) {
                const QString error = qt_error_string(errno);
                const bool isWhole = written == 0 || ftruncate(m_descriptor, size) == 0;
                return isWhole ? error : error + "; its last line is cut";
            }
            written += count;
        }
        return {};
    }

    const Calls m_calls;
    const qint64 m_memory;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    int m_descriptor{};

    mutable QMutex m_mutex; ///< for what follows
    QWaitCondition m_arrived;
    QWaitCondition m_written;
    QHash<QString, QHash<QByteArray, QByteArray>> m_last; ///< by manager and set value, digests of the calls' arguments
    QVector<Qt::HANDLE> m_threads = QVector<Qt::HANDLE>(TavScenario::gui); ///< by place; null where it is free
    QByteArray m_waiting; ///< whole lines
    qint64 m_writing = 0; ///< bytes that the writer has taken out of it
    TavRecordProgress m_progress;
    bool m_isEnding = false;
    std::unique_ptr<QThread> m_writer; ///< the last, since it uses all others
};

TavScenarioRecorder::TavScenarioRecorder(const QString &file, const QJsonObject &header, Calls calls, qint64 memory)
    : m_state(std::make_unique<State>(file, header, calls, memory))
{
}

TavScenarioRecorder::~TavScenarioRecorder() = default;

void TavScenarioRecorder::record(const QString &manager, const QString &operation,
                                 const std::function<QJsonValue()> &arguments)
{
    QJsonValue json;
    try {
        json = arguments();
    } catch (const std::runtime_error &) {
        const QMutexLocker lock(&m_state->m_mutex);
        ++m_state->m_progress.lost;
        return;
    }
    m_state->record(manager, operation, json, QJsonValue::Undefined);
}

void TavScenarioRecorder::record(const QString &manager, const QString &operation, const QJsonArray &arguments,
                                 const QJsonValue &returns)
{
    m_state->record(manager, operation, arguments, returns);
}

void TavScenarioRecorder::finish()
{
    const QMutexLocker lock(&m_state->m_mutex);
    while (!m_state->m_waiting.isEmpty() || m_state->m_writing != 0) {
        m_state->m_written.wait(&m_state->m_mutex);
    }
}

TavRecordProgress TavScenarioRecorder::progress() const
{
    const QMutexLocker lock(&m_state->m_mutex);
    TavRecordProgress progress = m_state->m_progress;
    progress.microseconds = m_state->microseconds();
    return progress;
}
