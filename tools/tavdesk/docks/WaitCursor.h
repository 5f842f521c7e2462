#pragma once

#include <QCursor>
#include <QGuiApplication>

/// @brief Shows that the program is busy, as long as it exists: with what only the GUI thread may do.
class WaitCursor
{
public:
    WaitCursor()
    {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }

    ~WaitCursor()
    {
        QGuiApplication::restoreOverrideCursor();
    }

    Q_DISABLE_COPY(WaitCursor) // each is taken back once
};
