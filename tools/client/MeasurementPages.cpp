#include "AreaPages.h"

#include "CellText.h"
#include "ITavCompleteProtectMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using namespace CellText;

QVector<PageSection> AreaPages::staticMeasurementPage()
{
    auto &model = *tavObject<ITavCompleteProtectMgr>();
    const STSystemScanStateAsr scan = model.getSystemScanState();
    const STImaStateAsr ima = model.getImaState();
    return {factsOf("Scan",
                    {{"run", number(scan.scanId)},
                     {"state", number(scan.state)},
                     {"progress",
                      QString("%1 %, %2 of %3 files, %4 differ")
                          .arg(scan.progress)
                          .arg(scan.scannedCount)
                          .arg(scan.totalCount)
                          .arg(scan.abnormalCount)},
                     {"started", timeText(scan.startTime)},
                     {"ended", timeText(scan.endTime)},
                     {"current path", text(model.getCurPathState().path)},
                     {"single scan", number(model.getSingleScanId().scanId)}}),
            factsOf("Kernel measurement",
                    {{"mode", number(ima.mode)},
                     {"state", number(ima.state)},
                     {"initialised", number(model.getImaInitState().initState)},
                     {"violations", number(ima.violations)},
                     {"TPM", ima.hasTpm ? "yes" : "no"},
                     {"entries", number(model.getImaCount().count)}}),
            tableOf<>("Measurements", model.getImaList(),
                      {{"register", [](const auto &row) { return number(row.pcr); }, CellKind::Number},
                       {"state", [](const auto &row) { return number(row.state); }, CellKind::Number},
                       {"algorithm", [](const auto &row) { return text(row.algorithm); }},
                       {"digest", [](const auto &row) { return text(row.fileDigest).left(16); }},
                       {"path", [](const auto &row) { return text(row.path); }}})};
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
