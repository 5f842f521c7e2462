#include "TavNanolog.h"

#include <QLoggingCategory>
#include <QMutex>

#include <atomic>
#include <map>

namespace
{
std::atomic<int> threshold = 3;

/// Categories are made once for each source and kept: Qt holds on to their addresses and names.
const QLoggingCategory &categoryOf(const QByteArray &source)
{
    static QMutex mutex;
    static auto &categories = *new std::map<QByteArray, QLoggingCategory *>;
    QMutexLocker lock(&mutex);
    const auto [place, inserted] = categories.try_emplace("tav." + source, nullptr);
    if (inserted) {
        place->second = new QLoggingCategory(place->first.constData());
    }
    return *place->second;
}

QtMsgType messageType(int level)
{
    if (level < 3) {
        return QtCriticalMsg;
    }
    if (level == 3) {
        return QtWarningMsg;
    }
    return level == 4 ? QtInfoMsg : QtDebugMsg;
}
}

bool TavNanolog::is_logged(int level)
{
    return level <= threshold;
}

void TavNanolog::setLevel(int level)
{
    threshold = level;
}

TavNanolog::TavNanoLogLine::TavNanoLogLine(int level, const char *source, const char *function, int line)
    : m_level(level), m_source(source), m_function(function), m_line(line)
{
}

void TavNanolog::TavNanoLogLine::encode(const QString &text)
{
    m_text += text;
}

int TavNanolog::TavNanoLogLine::level() const
{
    return m_level;
}

const QByteArray &TavNanolog::TavNanoLogLine::source() const
{
    return m_source;
}

const QByteArray &TavNanolog::TavNanoLogLine::function() const
{
    return m_function;
}

int TavNanolog::TavNanoLogLine::line() const
{
    return m_line;
}

const QString &TavNanolog::TavNanoLogLine::text() const
{
    return m_text;
}

void TavNanolog::NanoLog(const TavNanoLogLine &line)
{
    const QLoggingCategory &category = categoryOf(line.source());
    const QtMsgType type = messageType(line.level());
    if (category.isEnabled(type)) {
        const QMessageLogContext context(nullptr, line.line(), line.function().constData(), category.categoryName());
        qt_message_output(type, context, line.text());
    }
}
