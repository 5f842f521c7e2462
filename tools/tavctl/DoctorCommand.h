#pragma once

#include "CheckOptions.h"

/// Checks everything that an installation consists of: the plugin, its catalogue, its check items and scripts, its
/// picture directories.
ExitCode doctor(const CheckOptions &options);
