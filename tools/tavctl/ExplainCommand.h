#pragma once

#include "ToolError.h"

struct ExplainOptions {
    QString code; ///< such as TAV101; empty for all of them
};

/// Prints what the findings with the code are about, with an example. Without a code, docs/findings.md. Throws
/// ToolError when there is no such code.
ExitCode explain(const ExplainOptions &options);
