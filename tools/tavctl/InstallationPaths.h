#pragma once

#include <QString>

/// Where an installation keeps what the plugin reads, as absolute paths within the system root.
namespace InstallationPaths
{
QString catalogue();
QString baseline();
QString pictures();

/// The plugin that is installed below the system root, by its absolute path outside of it; empty when there is
/// none.
QString plugin();
}
