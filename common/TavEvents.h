#pragma once

/// @file
/// The signals that the parts of the client share.

#include "CTavSubFuncTypeHeader.h"
#include "TavCommonExport.h"
#include "TavSignal.h"

/// The user has chosen a page: announces the new sub-function type. Emitted by ITavSelectFuncMgr::setCurSelType.
extern TAV_COMMON_EXPORT TavSignal<const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_> eventFuncPageUpdate;
