#pragma once

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QVector>

/// Collects, while it lives, all that goes to Qt's logging; one at a time.
class LogCapture
{
public:
    struct Message {
        QtMsgType type;
        QByteArray category;
        QByteArray function;
        int line;
        QString text;
    };

    LogCapture()
    {
        s_messages.clear();
        m_previous = qInstallMessageHandler(take);
    }

    ~LogCapture()
    {
        qInstallMessageHandler(m_previous);
    }

    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    /// What was logged so far under @p category, in order.
    QVector<Message> messages(const char *category) const
    {
        const QMutexLocker lock(&s_mutex);
        QVector<Message> messages;
        for (const Message &message : qAsConst(s_messages)) {
            if (message.category == category) {
                messages.append(message);
            }
        }
        return messages;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        const QMutexLocker lock(&s_mutex);
        s_messages.append({type, context.category, context.function, context.line, text});
    }

    static inline QMutex s_mutex;
    static inline QVector<Message> s_messages;
    QtMessageHandler m_previous;
};
