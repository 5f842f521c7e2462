#include "ExplainCommand.h"

#include "FindingKind.h"
#include "Presentation.h"

ExitCode explain(const ExplainOptions &options)
{
    if (!options.code.isEmpty()) {
        const FindingKind *const kind = kindNamed(options.code);
        if (!kind) {
            throw ToolError(ExitCode::Usage,
                            options.code + ": no code of a finding; \"tavctl explain\" lists them all");
        }
        printLine(kind->page().chopped(1));
        return ExitCode::Success;
    }
    printLine(
        "# What tavctl finds\n\n"
        "An error: the client shows something wrong, or nothing. A warning: the plugin gets by, but not as it is\n"
        "written. A note: worth knowing. Made by `tavctl explain`, which tells the same of a single code.");
    for (const FindingKind &kind : findingKinds()) {
        printLine('\n' + kind.page().chopped(1));
    }
    return ExitCode::Success;
}
