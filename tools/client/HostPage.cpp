#include "AreaPages.h"

#include "ITavAuthInfoMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavSystemConfigMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using CellText::of;

QVector<PageSection> AreaPages::hostPage()
{
    using Host = STResourceInfoAsr;
    const Host host = tavObject<ITavHostInfoMgr>()->getResourceInfo();
    QVector<PageSection> sections{factsOf(
        "Host",
        {{"host name", of<&Host::hostName>(host)},
         {"system", of<&Host::osName>(host)},
         {"kernel", of<&Host::kernelRelease>(host) + " " + of<&Host::machine>(host)},
         {"uptime", of<&Host::uptime>(host)},
         {"processor", of<&Host::cpuCores>(host) + " × " + of<&Host::cpuModel>(host)},
         {"processor load", of<&Host::cpuUsage>(host)},
         {"load averages",
          of<&Host::loadAverage1>(host) + ", " + of<&Host::loadAverage5>(host) + ", " + of<&Host::loadAverage15>(host)},
         {"processes", of<&Host::processCount>(host)},
         {"memory", of<&Host::memoryAvailable>(host) + " available of " + of<&Host::memoryTotal>(host)},
         {"swap", of<&Host::swapFree>(host) + " free of " + of<&Host::swapTotal>(host)},
         {"root disk", of<&Host::rootDiskFree>(host) + " free of " + of<&Host::rootDiskTotal>(host)},
         {"all disks", of<&Host::diskFree>(host) + " free of " + of<&Host::diskTotal>(host)},
         {"taken at", of<&Host::sampleTime>(host)}})};
    sections += messageSections("Kernel signature", tavObject<ITavHostInfoMgr>()->getKernelSigState());
    sections += messageSections("Server", tavObject<ITavSystemConfigMgr>()->getServerInfo());
    sections += messageSections("Online state", tavObject<ITavSystemConfigMgr>()->getOnlineState());
    sections += messageSections("Log-in", tavObject<ITavAuthInfoMgr>()->getLoginCheck());
    sections += messageSections("Password change", tavObject<ITavAuthInfoMgr>()->getPwdChange());
    sections += messageSections("USB", tavObject<ITavDevCtlMgr>()->getUsbInfoList());
    sections += messageSections("Device functions", tavObject<ITavDevCtlMgr>()->getFuncEnableInfo());
    sections += messageSections("Network control", tavObject<ITavNetControlMgr>()->getNetCount());
    sections += messageSections("Network", tavObject<ITavNetControlMgr>()->getDeviceInfo());
    sections += messageSections("Network rules", tavObject<ITavNetControlMgr>()->getRuleInfo());
    sections += messageSections("Last network command", tavObject<ITavNetControlMgr>()->getState());
    return sections << rowsSection("Network rows", tavObject<ITavNetControlMgr>()->getUIData());
}
