#pragma once

#include <QString>
#include <QStringList>

constexpr int usageError = 2; ///< exit code when what the command line asks for cannot be done

/// @brief What the command line asks for.
struct DeskOptions {
    QString plugin; ///< the file to load; empty: the one beside this program
    QString root = QStringLiteral("/"); ///< directory taken for "/"
    QString play; ///< a scenario to play at once; empty for none
    QStringList pages; ///< page plugins, files or folders
    QString pictures; ///< directory to save pictures in; empty: the window is shown
};
