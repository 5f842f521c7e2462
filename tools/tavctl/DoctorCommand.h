#pragma once

#include "FindingReport.h"

struct DoctorOptions {
    QString root = "/"; ///< directory taken for "/"
    QString plugin; ///< empty for the one of the installation, or beside this program when that has none
    bool loads = true; ///< have the plugin register its managers
    FindingOptions findings;
};

/// Checks everything that an installation consists of: the plugin, its catalogue, its check items and scripts, its
/// picture directories.
ExitCode doctor(const DoctorOptions &options);
