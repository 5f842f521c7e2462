#include "CheckOptions.h"

#include "Presentation.h"
#include "TextTable.h"

void report(const Findings &findings, const CheckOptions &options)
{
    if (options.json) {
        printJson({{"findings", findingsJson(findings)}});
    } else {
        printFindings(findings);
        printLine(printable(options.file) + ": " + countText(findings));
    }
}
