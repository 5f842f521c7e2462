#include "PageModels.h"

#include "AreaPages.h"

QVector<PageSection> pageSections(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    switch (page) {
    case CTavSubFuncTypeHeader::SubFunc_None:
        return {};
    case CTavSubFuncTypeHeader::SubFunc_serverResourceInfo:
        return AreaPages::hostPage();
    case CTavSubFuncTypeHeader::SubFunc_OneClickReinforcement:
        return AreaPages::hardeningPage();
    case CTavSubFuncTypeHeader::SubFunc_BaselineScan:
        return AreaPages::baselinePage();
    case CTavSubFuncTypeHeader::SubFunc_StaticMeasurements:
        return AreaPages::staticMeasurementPage();
    case CTavSubFuncTypeHeader::SubFunc_DynamicMeasurements:
        return AreaPages::dynamicMeasurementPage();
    case CTavSubFuncTypeHeader::SubFunc_PrincipalSettings:
        return AreaPages::principalPage();
    case CTavSubFuncTypeHeader::SubFunc_ObjectSetting:
        return AreaPages::objectPage();
    case CTavSubFuncTypeHeader::SubFunc_PrincipalAdd:
        return AreaPages::principalAddPage();
    case CTavSubFuncTypeHeader::SubFunc_ObjectAdd:
        return AreaPages::objectAddPage();
    case CTavSubFuncTypeHeader::SubFunc_SelfProtect:
        return AreaPages::selfProtectPage();
    case CTavSubFuncTypeHeader::SubFunc_ProcessProtect:
        return AreaPages::processProtectPage();
    case CTavSubFuncTypeHeader::SubFunc_KernelProtect:
        return AreaPages::kernelProtectPage();
    case CTavSubFuncTypeHeader::SubFunc_KeyDirAmperProof:
        return AreaPages::directoryPage();
    case CTavSubFuncTypeHeader::SubFunc_LogAudit:
        return AreaPages::auditPage();
    }
    return {};
}
