#pragma once

#include "ReadingNote.h"

#include <QDialog>

/// @brief What the agent could not read, and why.
class NotesDialog : public QDialog
{
    Q_OBJECT
public:
    explicit NotesDialog(const ReadingNotes &notes, QWidget *parent = nullptr);
};
