#pragma once

#include "CTavFuncTypeHeader.h"

#include <QString>

/** @brief One function of the navigation catalogue. The trailing underscore is part of the name. */
struct TavFuncTypeData_ {
    QString funcTitle; ///< display title
    QString funcIcon; ///< name of the icon

    /// Own type; -1: key unknown.
    CTavFuncTypeHeader::TavFuncTypeHeader_ funcType = CTavFuncTypeHeader::Func_None;
    /// Type of the function above; 0 for the top level.
    CTavFuncTypeHeader::TavFuncTypeHeader_ parentFuncType = CTavFuncTypeHeader::Func_None;
    bool funcEnabled = true; ///< always true after loading
    QString usrList; ///< configured user list as one text, empty when not given; its meaning is the page's
};
