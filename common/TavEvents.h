#pragma once

/// @file
/// The signals that the parts of the client share.

#include "CTavSubFuncTypeHeader.h"
#include "TavSignal.h"

/// The user has chosen a page: announces the new sub-function type. Emitted by ITavSelectFuncMgr::setCurSelType.
extern TavSignal<const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_> eventFuncPageUpdate;
