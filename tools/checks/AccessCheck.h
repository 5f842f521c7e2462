#pragma once

#include "Finding.h"

#include <QStringList>

/// Who else may change what the client and its agent rely on: the files at these paths, absolute and within the system
/// root, and the directories that they lie in. What does not exist is passed over.
Findings checkAccess(const QStringList &paths);

/// Whether this machine's state can be read at all.
Findings checkProcessFiles();
