#pragma once

#include "ReadingNote.h"

#include <QStringList>

inline QStringList sourcesOf(const ReadingNotes &notes)
{
    QStringList sources;
    for (const ReadingNote &note : notes) {
        sources.append(note.source);
    }
    return sources;
}

inline bool notesOn(const ReadingNotes &notes, const char *source)
{
    return sourcesOf(notes).contains(QLatin1String(source));
}
