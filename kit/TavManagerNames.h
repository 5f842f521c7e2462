#pragma once

/// The interfaces of the fifteen managers that a data plugin registers, in the order of registration.
constexpr const char *tavManagerNames[] = {
    "ITavFuncTypeMgr",   "ITavPicResourceMgr", "ITavSelectFuncMgr",   "ITavAccessControlMgr", "ITavCompleteProtectMgr",
    "ITavProtectMgr",    "ITavAuditMgr",       "ITavHostInfoMgr",     "ITavOneReinforceMgr",  "ITavLineScanMgr",
    "ITavNetControlMgr", "ITavAuthInfoMgr",    "ITavSystemConfigMgr", "ITavDevCtlMgr",        "ITavProExceptionMgr",
};
