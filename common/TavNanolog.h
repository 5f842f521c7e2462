#pragma once

#include "TavCommonExport.h"

#include <QByteArray>
#include <QString>

/**
 * @brief The logger of the client. All functions may be called from any thread.
 *
 * A level is a number, and smaller is graver: 0 fatal, 1 error, 2 critical notice, 3 warning, 4 information,
 * 5 debug. Lines go to Qt's logging under the category "tav.<source>" (0 to 2 as critical: logging never ends the
 * process), so a host's message handler and QT_LOGGING_RULES apply to them.
 */
namespace TavNanolog
{
/// Whether lines of @p level are wanted: those at least as grave as the threshold.
[[nodiscard]] TAV_COMMON_EXPORT bool is_logged(int level);

/// Sets the threshold; 3 before the first call.
TAV_COMMON_EXPORT void setLevel(int level);

/// @brief One line on its way to the log.
class TAV_COMMON_EXPORT TavNanoLogLine
{
public:
    /// @p source is the component that logs, @p function and @p line the place in its code.
    TavNanoLogLine(int level, const char *source, const char *function, int line);

    /// Appends @p text to the message.
    void encode(const QString &text);

    [[nodiscard]] int level() const; ///< how grave the line is
    [[nodiscard]] const QByteArray &source() const; ///< the component that logs
    [[nodiscard]] const QByteArray &function() const; ///< the function that logs
    [[nodiscard]] int line() const; ///< its line in the source
    [[nodiscard]] const QString &text() const; ///< what encode() has gathered

private:
    int m_level;
    QByteArray m_source;
    QByteArray m_function;
    int m_line;
    QString m_text;
};

/// Puts @p line out, whatever the threshold: callers ask is_logged first.
TAV_COMMON_EXPORT void NanoLog(const TavNanoLogLine &line);
}
