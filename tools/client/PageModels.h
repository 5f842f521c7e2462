#pragma once

#include "CTavSubFuncTypeHeader.h"
#include "PageSections.h"

/// What the models behind @p page hold now, read through the managers' getters.
QVector<PageSection> pageSections(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);
