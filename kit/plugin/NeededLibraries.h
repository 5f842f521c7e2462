#pragma once

#include <QStringList>

/// The libraries that the shared library @p file needs, itself or through one that lies in its own search path, and
/// that the dynamic linker does not find. What the file was built for is this program's machine.
QStringList missingLibraries(const QString &file);
