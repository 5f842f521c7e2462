#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// @brief A page plugin that could not be taken in.
struct PagePluginProblem {
    QString file;
    QString problem; ///< what is wrong with it
    QString advice; ///< what to do about it
};

/// Loads page plugins and has each register its controllers in the client's current registry. @p names are files, or
/// folders of which every library is taken. Returns those that could not be taken in. GUI thread.
QVector<PagePluginProblem> loadPagePlugins(const QStringList &names);
