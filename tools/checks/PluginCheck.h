#pragma once

#include "Finding.h"
#include "TavPluginError.h"

/// What keeps a client from taking @p file for its data plugin. Loads the plugin when nothing speaks against it.
Findings checkPlugin(const QString &file);

/// What a user of this program is to do about @p error.
QString pluginAdvice(const TavPluginError &error);
