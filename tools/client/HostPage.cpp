#include "AreaPages.h"

#include "CellText.h"
#include "ITavAuthInfoMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavSystemConfigMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using namespace CellText;

namespace
{
QString duration(qint64 seconds)
{
    return QString("%1 d %2:%3:%4")
        .arg(seconds / 86400)
        .arg(seconds / 3600 % 24, 2, 10, QLatin1Char('0'))
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

QString load(qint32 hundredths)
{
    return QString::number(hundredths / 100.0, 'f', 2);
}
}

QVector<PageSection> AreaPages::hostPage()
{
    const STResourceInfoAsr host = tavObject<ITavHostInfoMgr>()->getResourceInfo();
    QVector<PageSection> sections{factsOf(
        "Host",
        {{"host name", text(host.hostName)},
         {"system", text(host.osName)},
         {"kernel", text(host.kernelRelease) + " " + text(host.machine)},
         {"uptime", duration(host.uptime)},
         {"processor", QString("%1 × %2").arg(host.cpuCores).arg(text(host.cpuModel))},
         {"processor load", QString("%1 %").arg(host.cpuUsage / 10.0)},
         {"load averages", load(host.loadAverage1) + ", " + load(host.loadAverage5) + ", " + load(host.loadAverage15)},
         {"processes", number(host.processCount)},
         {"memory", bytes(host.memoryAvailable) + " available of " + bytes(host.memoryTotal)},
         {"swap", bytes(host.swapFree) + " free of " + bytes(host.swapTotal)},
         {"root disk", bytes(host.rootDiskFree) + " free of " + bytes(host.rootDiskTotal)},
         {"all disks", bytes(host.diskFree) + " free of " + bytes(host.diskTotal)},
         {"taken at", timeText(host.sampleTime)}})};
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
