#include "Contests.h"

#include "SampleValue.h"

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

#include <algorithm>

namespace
{
template<class T>
void makeOwn(T &)
{
}

/// A list of its own, so that the manager alone holds it and whoever reads it without a lock reads freed memory.
template<class T>
void makeOwn(QVector<T> &list)
{
    list.detach();
}

/// What is read is one of the values set, to the last byte.
template<class Manager, class Value>
Contest contest(TavPluginHost &host, const char *name, void (Manager::*set)(const Value &), Value (Manager::*get)())
{
    Manager *const manager = host.manager<Manager>();
    std::vector<Value> samples;
    std::vector<std::string> contents;
    for (int seed = 1; seed <= 4; ++seed) {
        samples.push_back(SampleValue::sample<Value>(seed));
        contents.push_back(SampleValue::content(samples.back()));
    }
    (manager->*set)(samples.front());

    const auto setSample = [manager, set, samples](int seed) {
        Value value = samples[seed % samples.size()];
        makeOwn(value);
        (manager->*set)(value);
        return true;
    };
    const auto getSample = [manager, get, contents](int) {
        const auto isSample = [&contents](const Value &value) {
            return std::find(contents.begin(), contents.end(), SampleValue::content(value)) != contents.end();
        };
        return look([manager, get] { return (manager->*get)(); }, isSample);
    };
    return {std::string(qobject_interface_iid<Manager *>()) + ' ' + name, {{"set", setSample}, {"get", getSample}}};
}
}

std::vector<Contest> Contests::heldValues(TavPluginHost &host)
{
    using AccessControl = ITavAccessControlMgr;
    using Audit = ITavAuditMgr;
    using AuthInfo = ITavAuthInfoMgr;
    using Complete = ITavCompleteProtectMgr;
    using DevCtl = ITavDevCtlMgr;
    using HostInfo = ITavHostInfoMgr;
    using LineScan = ITavLineScanMgr;
    using Net = ITavNetControlMgr;
    using OneReinforce = ITavOneReinforceMgr;
    using ProException = ITavProExceptionMgr;
    using Protect = ITavProtectMgr;
    using SystemConfig = ITavSystemConfigMgr;
    return {
        contest(host, "ServerInfo", &SystemConfig::setServerInfo, &SystemConfig::getServerInfo),
        contest(host, "OnlineState", &SystemConfig::setOnlineState, &SystemConfig::getOnlineState),

        contest(host, "LoginCheck", &AuthInfo::setLoginCheck, &AuthInfo::getLoginCheck),
        contest(host, "PwdChange", &AuthInfo::setPwdChange, &AuthInfo::getPwdChange),

        contest(host, "UsbInfoList", &DevCtl::setUsbInfoList, &DevCtl::getUsbInfoList),
        contest(host, "FuncEnableInfo", &DevCtl::setFuncEnableInfo, &DevCtl::getFuncEnableInfo),

        contest(host, "ResourceInfo", &HostInfo::setResourceInfo, &HostInfo::getResourceInfo),
        contest(host, "KernelSigState", &HostInfo::setKernelSigState, &HostInfo::getKernelSigState),

        contest(host, "SystemUsers", &AccessControl::updateSystemUsers, &AccessControl::getSystemUsers),
        contest(host, "ModeConfig", &AccessControl::setModeConfig, &AccessControl::getModeConfig),
        contest(host, "State", &AccessControl::setState, &AccessControl::getState),

        contest(host, "SelfState", &Protect::setSelfState, &Protect::getSelfState),
        contest(host, "KernelCount", &Protect::setKernelCount, &Protect::getKernelCount),
        contest(host, "KernelContent", &Protect::setKernelContent, &Protect::getKernelContent),
        contest(host, "ProCount", &Protect::setProCount, &Protect::getProCount),
        contest(host, "ProContentList", &Protect::setProContentList, &Protect::getProContentList),
        contest(host, "DirCount", &Protect::setDirCount, &Protect::getDirCount),
        contest(host, "DirContent", &Protect::setDirContent, &Protect::getDirContent),
        contest(host, "FileCount", &Protect::setFileCount, &Protect::getFileCount),
        contest(host, "FileContent", &Protect::setFileContent, &Protect::getFileContent),
        contest(host, "KernelState", &Protect::setKernelState, &Protect::getKernelState),
        contest(host, "ProState", &Protect::setProState, &Protect::getProState),
        contest(host, "DirState", &Protect::setDirState, &Protect::getDirState),
        contest(host, "FileState", &Protect::setFileState, &Protect::getFileState),
        contest(host, "ProtoCount", &Protect::setProtoCount, &Protect::getProtoCount),
        contest(host, "KernelBlkContent", &Protect::setKernelBlkContent, &Protect::getKernelBlkContent),
        contest(host, "KernelBlkMode", &Protect::setKernelBlkMode, &Protect::getKernelBlkMode),
        contest(host, "FileSmash", &Protect::setFileSmash, &Protect::getFileSmash),
        contest(host, "SoftUnloadCount", &Protect::setSoftUnloadCount, &Protect::getSoftUnloadCount),
        contest(host, "SoftUnloadContent", &Protect::setSoftUnloadContent, &Protect::getSoftUnloadContent),
        contest(host, "SoftUnloadMode", &Protect::setSoftUnloadMode, &Protect::getSoftUnloadMode),

        contest(host, "CurPathState", &Complete::setCurPathState, &Complete::getCurPathState),
        contest(host, "SystemScanState", &Complete::setSystemScanState, &Complete::getSystemScanState),
        contest(host, "ImaCount", &Complete::setImaCount, &Complete::getImaCount),
        contest(host, "ImaState", &Complete::setImaState, &Complete::getImaState),
        contest(host, "ImaList", &Complete::setImaList, &Complete::getImaList),
        contest(host, "ImaInitState", &Complete::setImaInitState, &Complete::getImaInitState),
        contest(host, "SingleScanId", &Complete::setSingleScanId, &Complete::getSingleScanId),
        contest(host, "DySCanState", &Complete::setDySCanState, &Complete::getDySCanState),
        contest(host, "DyTimeInterval", &Complete::setDyTimeInterval, &Complete::getDyTimeInterval),
        contest(host, "CompleteMeasure", &Complete::setCompleteMeasure, &Complete::getCompleteMeasure),
        contest(host, "CredibleList", &Complete::setCredibleList, &Complete::getCredibleList),
        contest(host, "CredibleCount", &Complete::setCredibleCount, &Complete::getCredibleCount),
        contest(host, "CredibleMode", &Complete::setCredibleMode, &Complete::getCredibleMode),

        contest(host, "NetCount", &Net::setNetCount, &Net::getNetCount),
        contest(host, "State", &Net::setState, &Net::getState),
        contest(host, "RuleInfo", &Net::setRuleInfo, &Net::getRuleInfo),

        contest(host, "PriException", &ProException::setPriException, &ProException::getPriException),

        contest(host, "AuditCount", &Audit::setAuditCount, &Audit::getAuditCount),
        contest(host, "AuditContent", &Audit::setAuditContent, &Audit::getAuditContent),
        contest(host, "AuditTypeCount", &Audit::setAuditTypeCount, &Audit::getAuditTypeCount),
        contest(host, "AuditMonthCount", &Audit::setAuditMonthCount, &Audit::getAuditMonthCount),
        contest(host, "AuditMonthFailCount", &Audit::setAuditMonthFailCount, &Audit::getAuditMonthFailCount),

        contest(host, "LineScanContent", &LineScan::setLineScanContent, &LineScan::getLineScanContent),
        contest(host, "LineCount", &LineScan::setLineCount, &LineScan::getLineCount),
        contest(host, "scanState", &LineScan::setscanState, &LineScan::getscanState),
        contest(host, "ScanItemConfigErr", &LineScan::setScanItemConfigErr, &LineScan::getScanItemConfigErr),
        contest(host, "LineLevel", &LineScan::setLineLevel, &LineScan::getLineLevel),

        contest(host, "reinforceMode", &OneReinforce::setreinforceMode, &OneReinforce::getreinforceMode),
        contest(host, "threeConfig", &OneReinforce::setthreeConfig, &OneReinforce::getthreeConfig),
        contest(host, "reforcePolicy", &OneReinforce::setreforcePolicy, &OneReinforce::getreforcePolicy),
        contest(host, "StateInfo", &OneReinforce::setStateInfo, &OneReinforce::getStateInfo),
        contest(host, "SecswitchContent", &OneReinforce::setSecswitchContent, &OneReinforce::getSecswitchContent),
        contest(host, "ReforceFinishState", &OneReinforce::setReforceFinishState, &OneReinforce::getReforceFinishState),
    };
}
