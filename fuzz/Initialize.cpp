#include "TavPluginHost.h"

namespace
{
void logNothing(QtMsgType, const QMessageLogContext &, const QString &)
{
}
}

/// Called once, before the first input, and before the fuzzing library looks which libraries it can see into: the
/// plugin stays loaded. What Qt and the managers log goes nowhere.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(logNothing);
    const TavPluginHost plugin{TAV_PLUGIN_FILE};
    return 0;
}
