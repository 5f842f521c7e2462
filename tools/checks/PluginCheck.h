#pragma once

#include "Finding.h"
#include "TavPluginError.h"

/// What keeps a client from taking @p file for its data plugin. When nothing speaks against it, loads the plugin and
/// has it register its managers, in a process of its own that is given ten seconds. Throws std::system_error when there
/// can be no such process.
Findings checkPlugin(const QString &file);

/// The same without loading it: nothing of the file runs.
Findings checkPluginUnloaded(const QString &file);

/// @brief What trying page plugins has shown.
struct PagesTried {
    Findings findings; ///< what keeps a client from taking them
    QStringList controllers; ///< the registry keys of what they register
};

/// Loads the data plugin @p file and each of @p pages, one at a time, in a process of its own that is given ten
/// seconds. Files that are no page plugins are passed over. Throws std::system_error as checkPlugin() does.
PagesTried tryPagePlugins(const QString &file, const QStringList &pages);

/// What a user of this program is to do about @p error.
QString pluginAdvice(const TavPluginError &error);
