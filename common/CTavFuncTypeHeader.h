#pragma once

#include "TavCommonExport.h"

#include <QObject>

/**
 * @brief The function pages of the client, the top level of its navigation.
 *
 * Configuration names a member by its key text ("Func_HostInfo"), so spellings are part of the file format.
 * An unknown key is stored as -1, which the fixed underlying type makes a valid value.
 */
class TAV_COMMON_EXPORT CTavFuncTypeHeader
{
    Q_GADGET
public:
    /// A function page; 0 means "no function".
    enum TavFuncTypeHeader_ : int {
        Func_None = 0, ///< no function: the parent of a top-level entry, and what a missed look-up returns
        Func_HostInfo, ///< host information
        Func_ReInforceConfig, ///< hardening
        Func_CompleteControl, ///< integrity measurement
        Func_AccessControl, ///< access control
        Func_SystemProtect, ///< system protection
        Func_SystemAudit, ///< system audit
    };
    Q_ENUM(TavFuncTypeHeader_)
};
