#pragma once

#include <QString>
#include <QVector>

/** @brief Says what could not be read from the host, and why. Nothing is put in its place. */
struct ReadingNote {
    QString source; ///< what was to be read, mostly a path
    QString reason; ///< why it could not be, for the user
};

using ReadingNotes = QVector<ReadingNote>;
