#include "LogLines.h"

#include "ThreadName.h"

#include <cstring>
#include <vector>

namespace
{
constexpr char prefix[] = "tav.";

/// @brief Qt's one message handler, which hands the lines of the client to everyone who holds a log of them.
class LineHandler
{
public:
    static LineHandler &instance()
    {
        static auto &handler = *new LineHandler; // lines may be logged until the process has ended
        return handler;
    }

    std::shared_ptr<BoundedLog<LogLine>> newLog()
    {
        auto log = std::make_shared<BoundedLog<LogLine>>(4 << 20);
        const QMutexLocker lock(&m_mutex);
        m_logs.emplace_back(log);
        return log;
    }

private:
    LineHandler()
    {
        m_before = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            instance().handle(type, context, text);
        });
    }

    void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (context.category && std::strncmp(context.category, prefix, sizeof prefix - 1) == 0) {
            note({QDateTime::currentDateTime(), type, QString::fromUtf8(context.category + sizeof prefix - 1), text,
                  currentThreadName()});
        }
        m_before(type, context, text);
    }

    void note(const LogLine &line)
    {
        const QMutexLocker lock(&m_mutex);
        for (auto log = m_logs.begin(); log != m_logs.end();) {
            if (const auto held = log->lock()) {
                held->append(line, qint64(line.text.size()) * 2);
                ++log;
            } else {
                log = m_logs.erase(log);
            }
        }
    }

    QtMessageHandler m_before;
    QMutex m_mutex; ///< for the logs
    std::vector<std::weak_ptr<BoundedLog<LogLine>>> m_logs;
};
}

std::shared_ptr<BoundedLog<LogLine>> newLogLines()
{
    return LineHandler::instance().newLog();
}
