#pragma once

#include "FindingReport.h"
#include "InstallationPaths.h"
#include "ToolError.h"

#include <QStringList>

struct PicturesOptions {
    QStringList directories; ///< in the order of loading
    QString plugin = InstallationPaths::pluginBesideProgram(); ///< the one that loads the pictures
    FindingOptions findings;
};

/// Shows the pictures that the plugin holds of the directories, and reports the mistakes in them. Throws ToolError.
ExitCode showPictures(const PicturesOptions &options);
