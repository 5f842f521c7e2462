#include "AgentCalls.h"
#include "ImaReader.h"
#include "ManagerFeeds.h"
#include "MeasureReader.h"
#include "SoftwareReader.h"
#include "TextBuffer.h"

#include <QDateTime>

namespace
{
/// Measures the programs one after the other, and tells the page which one is being measured.
Tav::Measure::ImaContentAsr measurePrograms(const QString &root, const AgentCalls<ITavCompleteProtectMgr> &calls,
                                            ReadingNotes &notes)
{
    const QHash<QByteArray, QByteArray> digests
        = SoftwareReader::readPackageDigests(root, MeasureReader::programs(), notes);
    Tav::Measure::ImaContentAsr list;
    const QVector<QByteArray> paths = MeasureReader::presentPrograms(root, digests);
    for (const QByteArray &path : paths) {
        STStaticCurPathAsr current{};
        TextBuffer::copy(current.path, path);
        calls.make<&ITavCompleteProtectMgr::setCurPathState>(current);
        const qint64 now = QDateTime::currentSecsSinceEpoch();
        auto *const entry = list.add_entries();
        *entry = MeasureReader::measure(root, path, digests, now, notes);
        entry->set_index(list.entries_size() - 1);
    }
    calls.make<&ITavCompleteProtectMgr::setCurPathState>(STStaticCurPathAsr{});
    list.set_total(list.entries_size());
    list.set_offset(0);
    return list;
}

STSystemScanStateAsr scanStateOf(const Tav::Measure::CompleteMeasureAsr &result)
{
    STSystemScanStateAsr state{};
    state.scanId = 1;
    state.state = result.state() == 4 ? 4 : 2;
    state.progress = 100;
    state.scannedCount = result.measured_count();
    state.totalCount = result.measured_count();
    state.abnormalCount = result.changed_count();
    state.startTime = result.start_time();
    state.endTime = result.end_time();
    return state;
}

/// Sets what the local agent never does to "off": scanning single objects, the dynamic scan, acting on the list.
void feedIdleStates(const AgentCalls<ITavCompleteProtectMgr> &calls)
{
    calls.make<&ITavCompleteProtectMgr::setSingleScanId>(STSingleScanAsr{0});

    Tav::Measure::DyGetScanStateAsr scan;
    scan.set_scan_id(0);
    scan.set_state(0);
    calls.make<&ITavCompleteProtectMgr::setDySCanState>(scan);

    Tav::Measure::DyTimeInterval interval;
    interval.set_enabled(false);
    interval.set_last_time(0);
    interval.set_next_time(0);
    calls.make<&ITavCompleteProtectMgr::setDyTimeInterval>(interval);

    Tav::Measure::CredibleMode mode;
    mode.set_mode(0);
    mode.set_algorithm("md5");
    calls.make<&ITavCompleteProtectMgr::setCredibleMode>(mode);
}
}

int ManagerFeeds::feedKernelMeasurement(const QString &root, const AgentCalls<ITavCompleteProtectMgr> &calls,
                                        ReadingNotes &notes)
{
    const ImaReader::MeasurementList list = ImaReader::readList(root, notes);
    calls.make<&ITavCompleteProtectMgr::setImaState>(ImaReader::readState(root, notes));
    calls.make<&ITavCompleteProtectMgr::setImaCount>(STImaCountAsr{list.total});
    calls.make<&ITavCompleteProtectMgr::setImaList>(list.entries);
    return list.entries.size();
}

int ManagerFeeds::feedProgramMeasurement(const QString &root, const AgentCalls<ITavCompleteProtectMgr> &calls,
                                         ReadingNotes &notes)
{
    constexpr int running = 1;
    constexpr int done = 2;
    constexpr int failed = 3;
    calls.make<&ITavCompleteProtectMgr::setImaInitState>(STImaInitStateAsr{running});
    const qint64 startTime = QDateTime::currentSecsSinceEpoch();
    const Tav::Measure::ImaContentAsr list = measurePrograms(root, calls, notes);
    Tav::Measure::CompleteMeasureAsr result = MeasureReader::resultOf(root, list);
    result.set_start_time(startTime);
    result.set_end_time(QDateTime::currentSecsSinceEpoch());

    QVector<STProtoDataContainer> rows;
    for (const auto &entry : list.entries()) {
        rows.append({false, rows.size(), entry.SerializeAsString()});
    }
    calls.make<&ITavCompleteProtectMgr::setCredibleList>(list);
    calls.make<&ITavCompleteProtectMgr::setCredibleCount>(MeasureReader::countsOf(list));
    calls.make<&ITavCompleteProtectMgr::setCredibleVecUI>(rows);
    calls.make<&ITavCompleteProtectMgr::setCompleteMeasure>(result);
    calls.make<&ITavCompleteProtectMgr::setSystemScanState>(scanStateOf(result));
    calls.make<&ITavCompleteProtectMgr::setImaInitState>(
        STImaInitStateAsr{result.measured_count() > 0 ? done : failed});
    feedIdleStates(calls);
    return list.entries_size();
}
