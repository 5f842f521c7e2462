#pragma once

#include "InstallationPaths.h"
#include "TavScenarioPlayer.h"
#include "ToolError.h"

struct PlayOptions {
    QString file; ///< the scenario; "-" for standard input
    double speed = 1; ///< scenario seconds in a second; TavPlayOptions::fastest for no waiting
    double from = 0; ///< seconds
    double until = -1; ///< seconds; negative: to the end
    bool loop = false;
    bool check = false; ///< compare what the calls return
    bool partial = false; ///< leave out a cut last line
    QString page; ///< key of the page to show at the end; empty for none
    bool json = false; ///< print one JSON document
    QString plugin = InstallationPaths::pluginBesideProgram();
    QString root = "/"; ///< directory taken for "/"
};

/// Plays a scenario on a fresh plugin. Throws ToolError.
ExitCode play(const PlayOptions &options);

/// Plays @p file on @p host. Throws ToolError where the file cannot be read; what is wrong with a line is in the
/// report.
TavPlayReport playFile(TavPluginHost &host, const QString &file, const TavPlayOptions &options);

/// Whether a play of @p file has come to the end of it; says on standard error why not.
bool isWhole(const QString &file, const TavPlayReport &report);
