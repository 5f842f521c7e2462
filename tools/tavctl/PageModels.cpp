#include "PageView.h"

#include "BaselineList.h"
#include "ITavAccessControlMgr.h"
#include "ITavAuditMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSystemConfigMgr.h"
#include "Presentation.h"
#include "TavObjectMgr.h"

namespace
{
template<class Interface>
Interface &manager()
{
    return *tavObject<Interface>();
}

QString text(const char *buffer)
{
    return QString::fromUtf8(buffer);
}

QString number(qint64 value)
{
    return QString::number(value);
}

QString check(bool checked)
{
    return checked ? "☑" : "☐";
}

QString bytes(quint64 count)
{
    return QLocale::c().formattedDataSize(static_cast<qint64>(count));
}

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

/// Permission bits as "rwx".
QString permission(qint32 bits)
{
    return QString(bits & 4 ? "r" : "-") + (bits & 2 ? "w" : "-") + (bits & 1 ? "x" : "-");
}

QPair<QString, QString> stateFact(const QString &name, const STStateAsr &state)
{
    return {name, QString("%1 (%2)").arg(state.stateValue).arg(state.stateExtra)};
}

PageSection rowsSection(const QString &title, const QVector<STProtoDataContainer> &rows)
{
    return tableOf<>(
        title, rows,
        {{"", [](const auto &row) { return check(row.isChecked); }},
         {"index", [](const auto &row) { return number(row.index); }, TextTable::Right},
         {"payload bytes", [](const auto &row) { return number(row.protoData.size()); }, TextTable::Right}});
}

PageSection levelSection(const QString &title, const QVector<STAccessSetUIData> &levels)
{
    return tableOf<>(title, levels,
                     {{"", [](const auto &row) { return check(row.checked); }},
                      {"level", [](const auto &row) { return number(row.level); }, TextTable::Right},
                      {"labels", [](const auto &row) { return QStringList(row.labels.toList()).join(", "); }},
                      {"flag", [](const auto &row) { return row.extraFlag ? "yes" : "no"; }}});
}

QVector<PageSection> hostPage()
{
    const STResourceInfoAsr host = manager<ITavHostInfoMgr>().getResourceInfo();
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
    sections += messageSections("Kernel signature", manager<ITavHostInfoMgr>().getKernelSigState());
    sections += messageSections("Server", manager<ITavSystemConfigMgr>().getServerInfo());
    sections += messageSections("Online state", manager<ITavSystemConfigMgr>().getOnlineState());
    sections += messageSections("Log-in", manager<ITavAuthInfoMgr>().getLoginCheck());
    sections += messageSections("Password change", manager<ITavAuthInfoMgr>().getPwdChange());
    sections += messageSections("USB", manager<ITavDevCtlMgr>().getUsbInfoList());
    sections += messageSections("Device functions", manager<ITavDevCtlMgr>().getFuncEnableInfo());
    sections += messageSections("Network control", manager<ITavNetControlMgr>().getNetCount());
    sections += messageSections("Network", manager<ITavNetControlMgr>().getDeviceInfo());
    sections += messageSections("Network rules", manager<ITavNetControlMgr>().getRuleInfo());
    sections += messageSections("Last network command", manager<ITavNetControlMgr>().getState());
    return sections << rowsSection("Network rows", manager<ITavNetControlMgr>().getUIData());
}

QVector<PageSection> hardeningPage()
{
    auto &model = manager<ITavOneReinforceMgr>();
    QVector<PageSection> sections;
    sections += messageSections("Mode", model.getreinforceMode());
    sections += messageSections("Three-part configuration", model.getthreeConfig());
    sections += messageSections("Policy", model.getreforcePolicy());
    sections += messageSections("Finish state", model.getReforceFinishState());
    sections += messageSections("Security switches", model.getSecswitchContent());
    return sections << tableOf<>("States", model.getStateInfo(),
                                 {{"item", [](const auto &row) { return row.itemText; }},
                                  {"state", [](const auto &row) { return row.stateText; }}});
}

QVector<PageSection> baselinePage()
{
    auto &model = manager<ITavLineScanMgr>();
    QVector<STBLEnableConfig> items;
    const QVector<int> ids = BaselineList::idsOf(BaselineList::read());
    for (const int id : ids) {
        items.append(model.getItemConfig(id));
    }
    QVector<PageSection> sections{
        tableOf<>("Check items", items,
                  {{"id", [](const auto &item) { return number(item.itemId); }, TextTable::Right},
                   {"name", [](const auto &item) { return item.name; }},
                   {"standard", [](const auto &item) { return item.standardValue; }},
                   {"type", [](const auto &item) { return number(item.type); }, TextTable::Right},
                   {"button", [](const auto &item) { return item.btntext; }},
                   {"script", [](const auto &item) { return item.checkValueScript; }}})};
    sections += messageSections("Scan state", model.getscanState());
    sections += messageSections("Scan counts", model.getLineCount());
    sections += messageSections("Scan content", model.getLineScanContent());
    sections += messageSections("Configuration errors", model.getScanItemConfigErr());
    sections += messageSections("Level", model.getLineLevel());
    return sections;
}

QVector<PageSection> staticMeasurementPage()
{
    auto &model = manager<ITavCompleteProtectMgr>();
    const STSystemScanStateAsr scan = model.getSystemScanState();
    const STImaStateAsr ima = model.getImaState();
    return {factsOf("Scan",
                    {{"run", number(scan.scanId)},
                     {"state", number(scan.state)},
                     {"progress",
                      QString("%1 %, %2 of %3 files, %4 differ")
                          .arg(scan.progress)
                          .arg(scan.scannedCount)
                          .arg(scan.totalCount)
                          .arg(scan.abnormalCount)},
                     {"started", timeText(scan.startTime)},
                     {"ended", timeText(scan.endTime)},
                     {"current path", text(model.getCurPathState().path)},
                     {"single scan", number(model.getSingleScanId().scanId)}}),
            factsOf("Kernel measurement",
                    {{"mode", number(ima.mode)},
                     {"state", number(ima.state)},
                     {"initialised", number(model.getImaInitState().initState)},
                     {"violations", number(ima.violations)},
                     {"TPM", ima.hasTpm ? "yes" : "no"},
                     {"entries", number(model.getImaCount().count)}}),
            tableOf<>("Measurements", model.getImaList(),
                      {{"register", [](const auto &row) { return number(row.pcr); }, TextTable::Right},
                       {"state", [](const auto &row) { return number(row.state); }, TextTable::Right},
                       {"algorithm", [](const auto &row) { return text(row.algorithm); }},
                       {"digest", [](const auto &row) { return text(row.fileDigest).left(16); }},
                       {"path", [](const auto &row) { return text(row.path); }}})};
}

QVector<PageSection> dynamicMeasurementPage()
{
    auto &model = manager<ITavCompleteProtectMgr>();
    QVector<PageSection> sections;
    sections += messageSections("Scan state", model.getDySCanState());
    sections += messageSections("Interval", model.getDyTimeInterval());
    sections += messageSections("Measurement", model.getCompleteMeasure());
    sections += messageSections("Trusted mode", model.getCredibleMode());
    sections += messageSections("Trusted count", model.getCredibleCount());
    sections += messageSections("Trusted list", model.getCredibleList());
    return sections << rowsSection("Trusted rows", model.getCredibleVecUI());
}

QVector<PageSection> principalPage()
{
    auto &model = manager<ITavAccessControlMgr>();
    QVector<PageSection> sections{
        tableOf<>("System users", model.getSystemUsers(),
                  {{"uid", [](const auto &row) { return number(row.uid); }, TextTable::Right},
                   {"name", [](const auto &row) { return text(row.name); }},
                   {"full name", [](const auto &row) { return text(row.fullName); }},
                   {"home", [](const auto &row) { return text(row.home); }},
                   {"shell", [](const auto &row) { return text(row.shell); }},
                   {"may log in", [](const auto &row) { return row.canLogin ? "yes" : "no"; }},
                   {"locked", [](const auto &row) { return row.locked < 0 ? "?"
                                                        : row.locked      ? "yes"
                                                                          : "no"; }}}),
        tableOf<>("Principal details", model.getUserDetail(),
                  {{"user", [](const auto &row) { return text(row.userName); }},
                   {"uid", [](const auto &row) { return number(row.uid); }, TextTable::Right},
                   {"level", [](const auto &row) { return number(row.level); }, TextTable::Right},
                   {"permission", [](const auto &row) { return permission(row.permission); }},
                   {"in force", [](const auto &row) { return row.state ? "yes" : "no"; }},
                   {"updated", [](const auto &row) { return timeText(row.updateTime); }}}),
        levelSection("Principal levels", model.getUIPriData()),
        factsOf("Checked level", {{"principals", number(model.getCheckPriLevel())}})};
    sections += messageSections("Mode", model.getModeConfig());
    sections += messageSections("Last command", model.getState());
    return sections;
}

QVector<PageSection> objectPage()
{
    auto &model = manager<ITavAccessControlMgr>();
    return {tableOf<>("Object details", model.getObjectDetail(),
                      {{"path", [](const auto &row) { return text(row.filePath); }},
                       {"name", [](const auto &row) { return text(row.fileName); }},
                       {"owner", [](const auto &row) { return text(row.userName); }},
                       {"size", [](const auto &row) { return bytes(row.size); }, TextTable::Right},
                       {"level", [](const auto &row) { return number(row.level); }, TextTable::Right},
                       {"permission", [](const auto &row) { return permission(row.permission); }},
                       {"in force", [](const auto &row) { return row.state ? "yes" : "no"; }}}),
            levelSection("Object levels", model.getUIObjectData()),
            factsOf("Checked level", {{"objects", number(model.getCheckObjectLevel())}})};
}

QVector<PageSection> principalAddPage()
{
    return {tableOf<>("Principals to add", manager<ITavAccessControlMgr>().getUIUsers(),
                      {{"", [](const auto &row) { return check(row.checked); }},
                       {"name", [](const auto &row) { return row.userName; }},
                       {"number", [](const auto &row) { return number(row.userNumber); }, TextTable::Right},
                       {"text", [](const auto &row) { return row.userText; }}})};
}

QVector<PageSection> objectAddPage()
{
    return {tableOf<>("Files to add", manager<ITavAccessControlMgr>().getUIFiles(),
                      {{"", [](const auto &row) { return check(row.checked); }},
                       {"name", [](const auto &row) { return row.fileName; }},
                       {"path", [](const auto &row) { return row.filePath; }}})};
}

QVector<PageSection> selfProtectPage()
{
    auto &model = manager<ITavProtectMgr>();
    QVector<PageSection> sections{factsOf("States",
                                          {stateFact("self protection", model.getSelfState()),
                                           stateFact("removal of software", model.getSoftUnloadMode())}),
                                  tableOf<>("Protections", model.getProtectUIData(),
                                            {{"", [](const auto &row) { return check(row.isChecked); }},
                                             {"key", [](const auto &row) { return row.itemKey; }},
                                             {"title", [](const auto &row) { return row.title; }},
                                             {"detail", [](const auto &row) { return row.detail; }},
                                             {"status", [](const auto &row) { return row.status ? "yes" : "no"; }}})};
    sections += messageSections("Protected software count", model.getSoftUnloadCount());
    sections += messageSections("Protected software", model.getSoftUnloadContent());
    return sections;
}

QVector<PageSection> processProtectPage()
{
    auto &model = manager<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("State",
                {stateFact("process protection", model.getProState()), {"entries", number(model.getProCount().count)}}),
        tableOf<>("Processes", model.getProContentList(),
                  {{"pid", [](const auto &row) { return number(row.pid); }, TextTable::Right},
                   {"name", [](const auto &row) { return text(row.name); }},
                   {"user", [](const auto &row) { return text(row.userName); }},
                   {"started", [](const auto &row) { return timeText(row.startTime); }},
                   {"path", [](const auto &row) { return text(row.path); }}})};
    sections += messageSections("Process exceptions", manager<ITavProExceptionMgr>().getPriException());
    return sections << rowsSection("Exception rows", manager<ITavProExceptionMgr>().getUIData());
}

QVector<PageSection> kernelProtectPage()
{
    auto &model = manager<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("State",
                {stateFact("kernel protection", model.getKernelState()),
                 stateFact("blocking of modules", model.getKernelBlkMode()),
                 {"entries", number(model.getKernelCount().count)}}),
        tableOf<>("Kernel modules", model.getKernelContent(),
                  {{"name", [](const auto &row) { return text(row.name); }},
                   {"size", [](const auto &row) { return bytes(row.size); }, TextTable::Right},
                   {"users", [](const auto &row) { return number(row.refCount); }, TextTable::Right},
                   {"loaded", [](const auto &row) { return row.loaded ? "yes" : "no"; }},
                   {"path", [](const auto &row) { return text(row.path); }}})};
    sections += messageSections("Blocked modules", model.getKernelBlkContent());
    return sections;
}

QVector<PageSection> directoryPage()
{
    auto &model = manager<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("States",
                {stateFact("directory protection", model.getDirState()),
                 stateFact("file protection", model.getFileState()),
                 {"directories", number(model.getDirCount().count)},
                 {"files", number(model.getFileCount().count)}}),
        tableOf<>("Directories", model.getDirContent(),
                  {{"path", [](const auto &row) { return text(row.path); }},
                   {"state", [](const auto &row) { return number(row.state); }, TextTable::Right},
                   {"files", [](const auto &row) { return number(row.fileCount); }, TextTable::Right},
                   {"changed", [](const auto &row) { return timeText(row.updateTime); }}}),
        tableOf<>("Files", model.getFileContent(),
                  {{"path", [](const auto &row) { return text(row.path); }},
                   {"mode", [](const auto &row) { return QString::number(row.mode, 8); }, TextTable::Right},
                   {"size", [](const auto &row) { return bytes(row.size); }, TextTable::Right},
                   {"changed", [](const auto &row) { return timeText(row.modifyTime); }},
                   {"digest", [](const auto &row) { return text(row.digest).left(16); }}})};
    sections += messageSections("Protected objects", model.getProtoCount());
    sections += messageSections("File destruction", model.getFileSmash());
    return sections;
}

QVector<PageSection> auditPage()
{
    auto &model = manager<ITavAuditMgr>();
    const QVector<PageField<STAuditMonthCountAsr>> monthFields{
        {"month",
         [](const auto &row) { return QString("%1-%2").arg(row.year).arg(row.month, 2, 10, QLatin1Char('0')); }},
        {"events", [](const auto &row) { return number(row.count); }, TextTable::Right}};
    return {factsOf("Total", {{"events", number(model.getAuditCount().count)}}),
            tableOf<>("By type", model.getAuditTypeCount(),
                      {{"type", [](const auto &row) { return number(row.type); }, TextTable::Right},
                       {"events", [](const auto &row) { return number(row.count); }, TextTable::Right}}),
            tableOf<>("By month", model.getAuditMonthCount(), monthFields),
            tableOf<>("Failures by month", model.getAuditMonthFailCount(), monthFields),
            tableOf<>("Entries", model.getAuditContent(),
                      {{"time", [](const auto &row) { return timeText(row.time); }},
                       {"type", [](const auto &row) { return number(row.type); }, TextTable::Right},
                       {"result", [](const auto &row) { return row.result ? "ok" : "failed"; }},
                       {"user", [](const auto &row) { return text(row.userName); }},
                       {"process", [](const auto &row) { return text(row.processName); }},
                       {"detail", [](const auto &row) { return text(row.detail); }}})};
}
}

QVector<PageSection> pageSections(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    switch (page) {
    case CTavSubFuncTypeHeader::SubFunc_None:
        return {};
    case CTavSubFuncTypeHeader::SubFunc_serverResourceInfo:
        return hostPage();
    case CTavSubFuncTypeHeader::SubFunc_OneClickReinforcement:
        return hardeningPage();
    case CTavSubFuncTypeHeader::SubFunc_BaselineScan:
        return baselinePage();
    case CTavSubFuncTypeHeader::SubFunc_StaticMeasurements:
        return staticMeasurementPage();
    case CTavSubFuncTypeHeader::SubFunc_DynamicMeasurements:
        return dynamicMeasurementPage();
    case CTavSubFuncTypeHeader::SubFunc_PrincipalSettings:
        return principalPage();
    case CTavSubFuncTypeHeader::SubFunc_ObjectSetting:
        return objectPage();
    case CTavSubFuncTypeHeader::SubFunc_PrincipalAdd:
        return principalAddPage();
    case CTavSubFuncTypeHeader::SubFunc_ObjectAdd:
        return objectAddPage();
    case CTavSubFuncTypeHeader::SubFunc_SelfProtect:
        return selfProtectPage();
    case CTavSubFuncTypeHeader::SubFunc_ProcessProtect:
        return processProtectPage();
    case CTavSubFuncTypeHeader::SubFunc_KernelProtect:
        return kernelProtectPage();
    case CTavSubFuncTypeHeader::SubFunc_KeyDirAmperProof:
        return directoryPage();
    case CTavSubFuncTypeHeader::SubFunc_LogAudit:
        return auditPage();
    }
    return {};
}
