#pragma once

#include "InstallationPaths.h"
#include "ToolError.h"

struct NewPageOptions {
    QString name; ///< what the page's classes begin with, and its directory
    QString page; ///< key of the page
    QString manager; ///< interface whose value the page shows; empty for the first of the page's
    QString plugin = InstallationPaths::pluginBesideProgram(); ///< the one to load
    QString root = "/"; ///< directory taken for "/"
};

/// Writes the project of a page plugin into a new directory. Throws ToolError.
ExitCode writeNewPage(const NewPageOptions &options);
