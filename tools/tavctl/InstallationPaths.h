#pragma once

#include <QString>

/// Where an installation keeps what the plugin reads, as absolute paths within the system root.
namespace InstallationPaths
{
QString catalogue();
QString baseline();
QString pictures();
}
