#pragma once

#include <QString>

/// Whom @p file belongs to, for a message: "it belongs to the user 1000". Where the file cannot be seen, the nearest
/// directory above it that can, by its name.
QString ownerText(const QString &file);
