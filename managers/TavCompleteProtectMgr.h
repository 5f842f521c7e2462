#pragma once

#include "ITavCompleteProtectMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The integrity measurement's state and the rows of the trusted list.
class TavCompleteProtectMgr : public QObject, public ITavCompleteProtectMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavCompleteProtectMgr)
public:
    explicit TavCompleteProtectMgr(QObject *parent);

    QObject *getObject() override;
    void setCurPathState(const STStaticCurPathAsr &value) override;
    STStaticCurPathAsr getCurPathState() override;
    void setSystemScanState(const STSystemScanStateAsr &value) override;
    STSystemScanStateAsr getSystemScanState() override;
    void setImaCount(const STImaCountAsr &value) override;
    STImaCountAsr getImaCount() override;
    void setImaState(const STImaStateAsr &value) override;
    STImaStateAsr getImaState() override;
    void setImaList(const QVector<STImaContentAsr> &value) override;
    QVector<STImaContentAsr> getImaList() override;
    void setImaInitState(const STImaInitStateAsr &value) override;
    STImaInitStateAsr getImaInitState() override;
    void setSingleScanId(const STSingleScanAsr &value) override;
    STSingleScanAsr getSingleScanId() override;
    void setDySCanState(const Tav::Measure::DyGetScanStateAsr &value) override;
    Tav::Measure::DyGetScanStateAsr getDySCanState() override;
    void setDyTimeInterval(const Tav::Measure::DyTimeInterval &value) override;
    Tav::Measure::DyTimeInterval getDyTimeInterval() override;
    void setCompleteMeasure(const Tav::Measure::CompleteMeasureAsr &value) override;
    Tav::Measure::CompleteMeasureAsr getCompleteMeasure() override;
    void setCredibleList(const Tav::Measure::ImaContentAsr &value) override;
    Tav::Measure::ImaContentAsr getCredibleList() override;
    void setCredibleCount(const Tav::Measure::ImaCountAsr &value) override;
    Tav::Measure::ImaCountAsr getCredibleCount() override;
    void setCredibleMode(const Tav::Measure::CredibleMode &value) override;
    Tav::Measure::CredibleMode getCredibleMode() override;
    void setCredibleVecUI(const QVector<STProtoDataContainer> &value) override;
    QVector<STProtoDataContainer> getCredibleVecUI() override;
    void setCredibleImteUI(const STProtoDataContainer &item) override;

private:
    QMutex mutex{QMutex::Recursive}; // recursive as the client's own class has it; nothing here takes it twice
    STStaticCurPathAsr curPathState = {};
    STSystemScanStateAsr systemScanState = {};
    STImaCountAsr imaCount = {};
    STImaStateAsr imaState = {};
    STImaInitStateAsr imaInitState = {};
    QVector<STImaContentAsr> imaList;
    STSingleScanAsr singleScanId = {};
    Tav::Measure::ImaContentAsr credibleList;
    Tav::Measure::ImaCountAsr credibleCount;
    Tav::Measure::CredibleMode credibleMode;
    QVector<STProtoDataContainer> credibleVecUI;
    Tav::Measure::DyGetScanStateAsr dyScanState;
    Tav::Measure::DyTimeInterval dyTimeInterval;
    Tav::Measure::CompleteMeasureAsr completeMeasure;
};
