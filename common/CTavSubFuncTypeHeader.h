#pragma once

#include "TavCommonExport.h"

#include <QObject>

/**
 * @brief The sub-pages of the client, the second level of its navigation.
 *
 * Configuration names a member by its key text ("SubFunc_BaselineScan"). The spellings, the lower-case s of
 * SubFunc_serverResourceInfo and "AmperProof" among them, are part of the file format and are kept.
 */
class TAV_COMMON_EXPORT CTavSubFuncTypeHeader
{
    Q_GADGET
public:
    /// A sub-page; 0 means "no page". An unknown key in a configuration is stored as -1.
    enum TavSubFuncTypeHeader_ : int {
        SubFunc_None = 0, ///< no page: nothing selected yet, and what a missed look-up returns
        SubFunc_serverResourceInfo, ///< host resources
        SubFunc_OneClickReinforcement, ///< one-click hardening
        SubFunc_BaselineScan, ///< baseline scan
        SubFunc_StaticMeasurements, ///< file measurement
        SubFunc_DynamicMeasurements, ///< dynamic measurement
        SubFunc_PrincipalSettings, ///< principals of the access-control policy
        SubFunc_ObjectSetting, ///< objects of the access-control policy
        SubFunc_PrincipalAdd, ///< adding a principal
        SubFunc_ObjectAdd, ///< adding an object
        SubFunc_SelfProtect, ///< the agent's protection of itself
        SubFunc_ProcessProtect, ///< process protection
        SubFunc_KernelProtect, ///< kernel-file protection
        SubFunc_KeyDirAmperProof, ///< tamper-proof directories
        SubFunc_LogAudit, ///< audit log
    };
    Q_ENUM(TavSubFuncTypeHeader_)
};
