#pragma once

#include "Measure.pb.h"
#include "STImaContentAsr.h"
#include "STImaCountAsr.h"
#include "STImaInitStateAsr.h"
#include "STImaStateAsr.h"
#include "STProtoDataContainer.h"
#include "STSingleScanAsr.h"
#include "STStaticCurPathAsr.h"
#include "STSystemScanStateAsr.h"

#include <QObject>
#include <QVector>

/**
 * @brief What the integrity-measurement pages show and edit.
 *
 * Any thread may call any operation. Getters return copies. Before the first set a record is all zero, a message or
 * list is empty. Nothing is signalled on a set: readers ask again.
 */
class ITavCompleteProtectMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the path that the static scan is measuring.
    virtual void setCurPathState(const STStaticCurPathAsr &state) = 0;
    /// Copy of the path that the static scan is measuring.
    [[nodiscard]] virtual STStaticCurPathAsr getCurPathState() = 0;

    /// Replaces the state of the whole-system scan.
    virtual void setSystemScanState(const STSystemScanStateAsr &state) = 0;
    /// Copy of the state of the whole-system scan.
    [[nodiscard]] virtual STSystemScanStateAsr getSystemScanState() = 0;

    /// Replaces the number of measurements.
    virtual void setImaCount(const STImaCountAsr &count) = 0;
    /// Copy of the number of measurements.
    [[nodiscard]] virtual STImaCountAsr getImaCount() = 0;

    /// Replaces the state of the kernel's measurement.
    virtual void setImaState(const STImaStateAsr &state) = 0;
    /// Copy of the state of the kernel's measurement.
    [[nodiscard]] virtual STImaStateAsr getImaState() = 0;

    /// Replaces the measurement list.
    virtual void setImaList(const QVector<STImaContentAsr> &list) = 0;
    /// Copy of the measurement list.
    [[nodiscard]] virtual QVector<STImaContentAsr> getImaList() = 0;

    /// Replaces the initialisation state of the measurement.
    virtual void setImaInitState(const STImaInitStateAsr &state) = 0;
    /// Copy of the initialisation state of the measurement.
    [[nodiscard]] virtual STImaInitStateAsr getImaInitState() = 0;

    /// Replaces the identifier of the single-object scan.
    virtual void setSingleScanId(const STSingleScanAsr &id) = 0;
    /// Copy of the identifier of the single-object scan.
    [[nodiscard]] virtual STSingleScanAsr getSingleScanId() = 0;

    // The capital C in "SCan" is part of the two names.
    /// Replaces the state of the dynamic scan.
    virtual void setDySCanState(const Tav::Measure::DyGetScanStateAsr &state) = 0;
    /// Copy of the state of the dynamic scan.
    [[nodiscard]] virtual Tav::Measure::DyGetScanStateAsr getDySCanState() = 0;

    /// Replaces the interval of the dynamic scan.
    virtual void setDyTimeInterval(const Tav::Measure::DyTimeInterval &interval) = 0;
    /// Copy of the interval of the dynamic scan.
    [[nodiscard]] virtual Tav::Measure::DyTimeInterval getDyTimeInterval() = 0;

    /// Replaces the result of the complete measurement.
    virtual void setCompleteMeasure(const Tav::Measure::CompleteMeasureAsr &answer) = 0;
    /// Copy of the result of the complete measurement.
    [[nodiscard]] virtual Tav::Measure::CompleteMeasureAsr getCompleteMeasure() = 0;

    /// Replaces the trusted list.
    virtual void setCredibleList(const Tav::Measure::ImaContentAsr &list) = 0;
    /// Copy of the trusted list.
    [[nodiscard]] virtual Tav::Measure::ImaContentAsr getCredibleList() = 0;

    /// Replaces the counts of the trusted list.
    virtual void setCredibleCount(const Tav::Measure::ImaCountAsr &count) = 0;
    /// Copy of the counts of the trusted list.
    [[nodiscard]] virtual Tav::Measure::ImaCountAsr getCredibleCount() = 0;

    /// Replaces the mode of the trusted list.
    virtual void setCredibleMode(const Tav::Measure::CredibleMode &mode) = 0;
    /// Copy of the mode of the trusted list.
    [[nodiscard]] virtual Tav::Measure::CredibleMode getCredibleMode() = 0;

    /// Replaces all rows of the page's trusted list.
    virtual void setCredibleVecUI(const QVector<STProtoDataContainer> &rows) = 0;
    /// Copy of the rows of the page's trusted list.
    [[nodiscard]] virtual QVector<STProtoDataContainer> getCredibleVecUI() = 0;

    /// Overwrites the first row whose stored `index` equals the item's, wherever it stands; none: nothing changes, none
    /// is added. "Imte" is part of the name.
    virtual void setCredibleImteUI(const STProtoDataContainer &item) = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavCompleteProtectMgr() = default;
};

Q_DECLARE_INTERFACE(ITavCompleteProtectMgr, "ITavCompleteProtectMgr")
