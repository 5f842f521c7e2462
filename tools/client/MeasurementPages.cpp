#include "AreaPages.h"

#include "ITavCompleteProtectMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using CellText::of;

QVector<PageSection> AreaPages::staticMeasurementPage()
{
    auto &model = *tavObject<ITavCompleteProtectMgr>();
    using Scan = STSystemScanStateAsr;
    using Ima = STImaStateAsr;
    const Scan scan = model.getSystemScanState();
    const Ima ima = model.getImaState();
    return {factsOf("Scan",
                    {{"run", of<&Scan::scanId>(scan)},
                     {"state", of<&Scan::state>(scan)},
                     {"progress",
                      QString("%1 %, %2 of %3 files, %4 differ")
                          .arg(scan.progress)
                          .arg(scan.scannedCount)
                          .arg(scan.totalCount)
                          .arg(scan.abnormalCount)},
                     {"started", of<&Scan::startTime>(scan)},
                     {"ended", of<&Scan::endTime>(scan)},
                     {"current path", of<&STStaticCurPathAsr::path>(model.getCurPathState())},
                     {"single scan", QString::number(model.getSingleScanId().scanId)}}),
            factsOf("Kernel measurement",
                    {{"mode", of<&Ima::mode>(ima)},
                     {"state", of<&Ima::state>(ima)},
                     {"initialised", QString::number(model.getImaInitState().initState)},
                     {"violations", of<&Ima::violations>(ima)},
                     {"TPM", of<&Ima::hasTpm>(ima)},
                     {"entries", QString::number(model.getImaCount().count)}}),
            tableOf<>("Measurements", model.getImaList(),
                      {column<&STImaContentAsr::pcr>("register"), column<&STImaContentAsr::state>("state"),
                       column<&STImaContentAsr::algorithm>("algorithm"), column<&STImaContentAsr::fileDigest>("digest"),
                       column<&STImaContentAsr::path>("path")})};
}

QVector<PageSection> AreaPages::dynamicMeasurementPage()
{
    auto &model = *tavObject<ITavCompleteProtectMgr>();
    QVector<PageSection> sections;
    sections += messageSections("Scan state", model.getDySCanState());
    sections += messageSections("Interval", model.getDyTimeInterval());
    sections += messageSections("Measurement", model.getCompleteMeasure());
    sections += messageSections("Trusted mode", model.getCredibleMode());
    sections += messageSections("Trusted count", model.getCredibleCount());
    sections += messageSections("Trusted list", model.getCredibleList());
    return sections << rowsSection("Trusted rows", model.getCredibleVecUI());
}
