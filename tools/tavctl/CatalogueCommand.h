#pragma once

#include "FileFixing.h"
#include "InstallationPaths.h"
#include "ToolError.h"

struct CatalogueShowOptions {
    QString file; ///< "-" for standard input, as everywhere here
    QString plugin = InstallationPaths::pluginBesideProgram(); ///< the one that builds the navigation
    bool json = false; ///< print one JSON document instead of text
};

/// Shows the navigation that the plugin builds from the file. Throws ToolError when it builds none.
ExitCode showCatalogue(const CatalogueShowOptions &options);

struct CatalogueCheckOptions {
    QStringList files; ///< each in Base64, or the JSON text itself
    Fixing fixing = Fixing::None;
    FindingOptions findings;
};

/// Reports the mistakes in the files, once they are mended where that is asked for. Throws ToolError.
ExitCode checkCatalogueFiles(const CatalogueCheckOptions &options);

struct CatalogueEncodeOptions {
    QString file;
    QString output = "-"; ///< standard output
    int wrap = 76; ///< length of a line, as base64(1) has it; 0 for one line
};

/// Writes the file's bytes as Base64 text. Throws ToolError, also when they are the Base64 text of JSON.
ExitCode encodeCatalogue(const CatalogueEncodeOptions &options);

struct CatalogueDecodeOptions {
    QString file;
    QString output = "-";
    bool lenient = false; ///< leave out what is no Base64, as the plugin does
};

/// Writes the bytes that the file's Base64 text stands for. Throws ToolError, also when it is not Base64 and
/// options.lenient does not allow that.
ExitCode decodeCatalogue(const CatalogueDecodeOptions &options);
