#pragma once

#include "ReadingNote.h"

#include <QMetaType>
#include <QString>
#include <QVector>

/** @brief One reading of the host and where it went. */
struct AgentReading {
    QString name; ///< what was read, such as "processes"
    QString manager; ///< interface of the manager that got it, such as "ITavProtectMgr"
    bool fed = false; ///< the manager was there and has been fed
    int entries = 0; ///< entries handed over; 1 for a single record
    qint64 microseconds = 0; ///< time for reading and handing over
    ReadingNotes notes; ///< what could not be read
};

/** @brief What one feeding has done. */
struct AgentReport {
    bool complete = false; ///< every reading was made; false after a deadline or when the agent was ended meanwhile
    QVector<AgentReading> readings; ///< in the order in which they were made
};

Q_DECLARE_METATYPE(AgentReport)
