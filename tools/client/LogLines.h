#pragma once

#include "BoundedLog.h"

#include <QDateTime>
#include <QString>

#include <memory>

/// @brief A line that the plugin or the client's library has logged.
struct LogLine {
    QDateTime time;
    QtMsgType type;
    QString source; ///< the component that logs
    QString text;
    QString thread; ///< name of the thread that logged it
};

/**
 * @brief The lines logged from now on under the categories "tav.<source>"; they reach their usual place as well.
 *
 * Several may be held at once; each has all lines. Any thread.
 */
std::shared_ptr<BoundedLog<LogLine>> newLogLines();
