#pragma once

#include "Finding.h"

#include <QStringList>

/// Who else may change what the client and its agent rely on: the files and directories at these paths, absolute and
/// within the system root, and the directories in which they, and the links on the way to them, are looked up: the root
/// is the first of these. Paths that lead nowhere are passed over, the directories that they go through are not.
Findings checkAccess(const QStringList &paths);

/// Who else may change the configuration file @p file. Where it is not installed below a system root, it may also
/// belong to the user who looks, or to the owner of its directory: it is a source then, in somebody's work tree.
Findings checkFileAccess(const QString &file);

/// Whether this machine's state can be read at all.
Findings checkProcessFiles();
