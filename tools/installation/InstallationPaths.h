#pragma once

#include <QString>

/// Where an installation keeps what the plugin reads, as absolute paths within the system root.
namespace InstallationPaths
{
QString catalogue(); ///< the navigation catalogue, in Base64
QString baseline(); ///< the list of baseline check items
QString scripts(); ///< directory of the scripts that the check items name
QString pictures(); ///< directory of the picture directories

/// The plugin that is installed below the system root; empty when there is none.
QString plugin();

QString plugins(); ///< directory of the client's plugins: the data plugin, and those of pages

/// The system root in which @p file is the catalogue or the list of check items; empty for any other file.
QString rootOf(const QString &file);

/// Where the plugin lies beside this program, in its build tree or its installation; outside of the system root.
QString pluginBesideProgram();
}
