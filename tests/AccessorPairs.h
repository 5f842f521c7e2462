#pragma once

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
#include "ITavSelectFuncMgr.h"
#include "ITavSystemConfigMgr.h"

#include <any>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

/// One setter and its getter, with the type of what they hold erased: values travel as std::any.
struct AccessorPair {
    std::string manager; ///< name of the interface
    std::string name;
    std::optional<std::string> initialContent; ///< none: the manager gives no initial value
    std::any empty;
    std::function<void(std::any &value, int seed)> fill;
    std::function<std::string(const std::any &value)> content;
    std::function<void(QObject *manager, const std::any &value)> set;
    std::function<std::any(QObject *manager)> get;

    std::any sample(int seed) const
    {
        std::any value = empty;
        fill(value, seed);
        return value;
    }
};

inline void PrintTo(const AccessorPair &pair, std::ostream *out)
{
    *out << pair.manager << ' ' << pair.name;
}

template<class Manager, class Value>
AccessorPair accessor(const char *name, void (Manager::*set)(const Value &), Value (Manager::*get)(),
                      std::optional<std::common_type_t<Value>> initial = Value())
{
    AccessorPair pair;
    pair.manager = qobject_interface_iid<Manager *>();
    pair.name = name;
    if (initial) {
        pair.initialContent = SampleValue::content(*initial);
    }
    pair.empty = Value();
    pair.fill = [](std::any &value, int seed) { SampleValue::fill(std::any_cast<Value &>(value), seed); };
    pair.content = [](const std::any &value) { return SampleValue::content(std::any_cast<const Value &>(value)); };
    pair.set = [set](QObject *manager, const std::any &value) {
        (qobject_cast<Manager *>(manager)->*set)(std::any_cast<const Value &>(value));
    };
    pair.get = [get](QObject *manager) { return std::any((qobject_cast<Manager *>(manager)->*get)()); };
    return pair;
}

inline Tav::Base::CommandStateAsr stateZero()
{
    Tav::Base::CommandStateAsr state;
    state.set_state(0);
    return state;
}

/// The pairs of all managers, as the tables of their interfaces give them.
inline std::vector<AccessorPair> allPairs()
{
    constexpr STStateAsr noState = {28, 0};

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
    using SelectFunc = ITavSelectFuncMgr;
    using SystemConfig = ITavSystemConfigMgr;
    return {
        accessor("ServerInfo", &SystemConfig::setServerInfo, &SystemConfig::getServerInfo),
        accessor("OnlineState", &SystemConfig::setOnlineState, &SystemConfig::getOnlineState),

        accessor("LoginCheck", &AuthInfo::setLoginCheck, &AuthInfo::getLoginCheck),
        accessor("PwdChange", &AuthInfo::setPwdChange, &AuthInfo::getPwdChange),

        accessor("UsbInfoList", &DevCtl::setUsbInfoList, &DevCtl::getUsbInfoList),
        accessor("FuncEnableInfo", &DevCtl::setFuncEnableInfo, &DevCtl::getFuncEnableInfo),

        accessor("ResourceInfo", &HostInfo::setResourceInfo, &HostInfo::getResourceInfo, std::nullopt),
        accessor("KernelSigState", &HostInfo::setKernelSigState, &HostInfo::getKernelSigState),

        accessor("CurSelFuncType", &SelectFunc::setCurSelFuncType, &SelectFunc::getCurSelFuncType),
        accessor("CurSelSubFuncType", &SelectFunc::setCurSelSubFuncType, &SelectFunc::getCurSelSubFuncType),

        accessor("SystemUsers", &AccessControl::updateSystemUsers, &AccessControl::getSystemUsers),
        accessor("UIUsers", &AccessControl::updateUIUsers, &AccessControl::getUIUsers),
        accessor("UIPriData", &AccessControl::updateUIPriData, &AccessControl::getUIPriData),
        accessor("UIObjectData", &AccessControl::updateUIObjectData, &AccessControl::getUIObjectData),
        accessor("UIFiles", &AccessControl::updateUIFiles, &AccessControl::getUIFiles),
        accessor("ModeConfig", &AccessControl::setModeConfig, &AccessControl::getModeConfig),
        accessor("State", &AccessControl::setState, &AccessControl::getState),

        accessor("SelfState", &Protect::setSelfState, &Protect::getSelfState, noState),
        accessor("KernelCount", &Protect::setKernelCount, &Protect::getKernelCount),
        accessor("KernelContent", &Protect::setKernelContent, &Protect::getKernelContent),
        accessor("ProCount", &Protect::setProCount, &Protect::getProCount),
        accessor("ProContentList", &Protect::setProContentList, &Protect::getProContentList),
        accessor("DirCount", &Protect::setDirCount, &Protect::getDirCount),
        accessor("DirContent", &Protect::setDirContent, &Protect::getDirContent),
        accessor("FileCount", &Protect::setFileCount, &Protect::getFileCount),
        accessor("FileContent", &Protect::setFileContent, &Protect::getFileContent),
        accessor("ProtectUIData", &Protect::setProtectUIData, &Protect::getProtectUIData),
        accessor("KernelState", &Protect::setKernelState, &Protect::getKernelState, noState),
        accessor("ProState", &Protect::setProState, &Protect::getProState, noState),
        accessor("DirState", &Protect::setDirState, &Protect::getDirState, noState),
        accessor("FileState", &Protect::setFileState, &Protect::getFileState, noState),
        accessor("ProtoCount", &Protect::setProtoCount, &Protect::getProtoCount),
        accessor("KernelBlkContent", &Protect::setKernelBlkContent, &Protect::getKernelBlkContent),
        accessor("KernelBlkMode", &Protect::setKernelBlkMode, &Protect::getKernelBlkMode, noState),
        accessor("FileSmash", &Protect::setFileSmash, &Protect::getFileSmash),
        accessor("SoftUnloadCount", &Protect::setSoftUnloadCount, &Protect::getSoftUnloadCount),
        accessor("SoftUnloadContent", &Protect::setSoftUnloadContent, &Protect::getSoftUnloadContent),
        accessor("SoftUnloadMode", &Protect::setSoftUnloadMode, &Protect::getSoftUnloadMode, noState),

        accessor("CurPathState", &Complete::setCurPathState, &Complete::getCurPathState),
        accessor("SystemScanState", &Complete::setSystemScanState, &Complete::getSystemScanState),
        accessor("ImaCount", &Complete::setImaCount, &Complete::getImaCount),
        accessor("ImaState", &Complete::setImaState, &Complete::getImaState),
        accessor("ImaList", &Complete::setImaList, &Complete::getImaList),
        accessor("ImaInitState", &Complete::setImaInitState, &Complete::getImaInitState),
        accessor("SingleScanId", &Complete::setSingleScanId, &Complete::getSingleScanId),
        accessor("DySCanState", &Complete::setDySCanState, &Complete::getDySCanState),
        accessor("DyTimeInterval", &Complete::setDyTimeInterval, &Complete::getDyTimeInterval),
        accessor("CompleteMeasure", &Complete::setCompleteMeasure, &Complete::getCompleteMeasure),
        accessor("CredibleList", &Complete::setCredibleList, &Complete::getCredibleList),
        accessor("CredibleCount", &Complete::setCredibleCount, &Complete::getCredibleCount),
        accessor("CredibleMode", &Complete::setCredibleMode, &Complete::getCredibleMode),
        accessor("CredibleVecUI", &Complete::setCredibleVecUI, &Complete::getCredibleVecUI),

        accessor("NetCount", &Net::setNetCount, &Net::getNetCount),
        accessor("UIData", &Net::setUIData, &Net::getUIData),
        accessor("State", &Net::setState, &Net::getState, stateZero()),
        accessor("DeviceInfo", &Net::setDeviceInfo, &Net::getDeviceInfo),
        accessor("RuleInfo", &Net::setRuleInfo, &Net::getRuleInfo),

        accessor("PriException", &ProException::setPriException, &ProException::getPriException),
        accessor("UIData", &ProException::setUIData, &ProException::getUIData),

        accessor("AuditCount", &Audit::setAuditCount, &Audit::getAuditCount),
        accessor("AuditContent", &Audit::setAuditContent, &Audit::getAuditContent),
        accessor("AuditTypeCount", &Audit::setAuditTypeCount, &Audit::getAuditTypeCount),
        accessor("AuditMonthCount", &Audit::setAuditMonthCount, &Audit::getAuditMonthCount),
        accessor("AuditMonthFailCount", &Audit::setAuditMonthFailCount, &Audit::getAuditMonthFailCount),

        accessor("LineScanContent", &LineScan::setLineScanContent, &LineScan::getLineScanContent),
        accessor("LineCount", &LineScan::setLineCount, &LineScan::getLineCount),
        accessor("scanState", &LineScan::setscanState, &LineScan::getscanState),
        accessor("ScanItemConfigErr", &LineScan::setScanItemConfigErr, &LineScan::getScanItemConfigErr),
        accessor("LineLevel", &LineScan::setLineLevel, &LineScan::getLineLevel),

        accessor("reinforceMode", &OneReinforce::setreinforceMode, &OneReinforce::getreinforceMode),
        accessor("threeConfig", &OneReinforce::setthreeConfig, &OneReinforce::getthreeConfig),
        accessor("reforcePolicy", &OneReinforce::setreforcePolicy, &OneReinforce::getreforcePolicy),
        accessor("StateInfo", &OneReinforce::setStateInfo, &OneReinforce::getStateInfo),
        accessor("SecswitchContent", &OneReinforce::setSecswitchContent, &OneReinforce::getSecswitchContent),
        accessor("ReforceFinishState", &OneReinforce::setReforceFinishState, &OneReinforce::getReforceFinishState),
    };
}
