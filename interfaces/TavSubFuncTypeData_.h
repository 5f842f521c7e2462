#pragma once

#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"

#include <QString>

/** @brief One page of the navigation catalogue. The trailing underscore is part of the name. */
struct TavSubFuncTypeData_ {
    QString subFuncTitle; ///< display title; its configuration key is spelt "subFuncTitile", and kept so

    /// Function it is listed under.
    CTavFuncTypeHeader::TavFuncTypeHeader_ funcType = CTavFuncTypeHeader::Func_None;
    /// Own type; -1: key unknown or not given.
    CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ subFuncType = CTavSubFuncTypeHeader::SubFunc_None;
    /// The page it is reached from; only read when `subFuncHasParent` is false, otherwise 0.
    CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ realParentType = CTavSubFuncTypeHeader::SubFunc_None;
    QString subFuncClassName; ///< name of the controller interface that shows the page
    QString subFuncHelp; ///< help text, may be empty
    bool subFuncHasParent = true; ///< false: not an entry of the menu itself, see `realParentType`
    bool subFuncEnabled = true; ///< always true after loading; disabled pages are not loaded at all
};
