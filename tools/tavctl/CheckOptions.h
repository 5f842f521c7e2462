#pragma once

#include "ToolError.h"

#include <QStringList>

/// @brief What the commands "catalogue", "baseline", "pictures" and "doctor" are asked to do.
struct CheckOptions {
    QString file; ///< the file to look at; "-" for standard input
    QString output; ///< where to write what is encoded or decoded; "-" for standard output
    QStringList directories; ///< picture directories
    QString pluginFile; ///< the plugin to load
    bool pluginIsNamed = false; ///< on the command line; otherwise it is the one beside the program
    QString systemRoot; ///< directory taken for "/"
    int lineLength = 0; ///< of encoded text; 0 for one line
    bool lenient = false; ///< decode as the plugin does
    bool json = false; ///< print one JSON document instead of text
};
