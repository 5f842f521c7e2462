#pragma once

#include "CheckOptions.h"

/// Shows the navigation that the plugin builds from the file. Throws ToolError when it builds none.
ExitCode showCatalogue(const CheckOptions &options);

/// Reports the mistakes in the file. Throws ToolError.
ExitCode checkCatalogueFile(const CheckOptions &options);

/// Writes the file's bytes as Base64 text. Throws ToolError, also when they are the Base64 text of JSON.
ExitCode encodeCatalogue(const CheckOptions &options);

/// Writes the bytes that the file's Base64 text stands for. Throws ToolError, also when it is not Base64 and
/// options.lenient does not allow that.
ExitCode decodeCatalogue(const CheckOptions &options);
