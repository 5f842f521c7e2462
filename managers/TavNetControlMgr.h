#pragma once

#include "ITavNetControlMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The network control's devices, rules, counts and command state, and the rows of the page's list.
class TavNetControlMgr : public QObject, public ITavNetControlMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavNetControlMgr)
public:
    explicit TavNetControlMgr(QObject *parent);

    QObject *getObject() override;
    void setNetCount(const Tav::NetControl::NetControlCountAsr &value) override;
    Tav::NetControl::NetControlCountAsr getNetCount() override;
    void setUIData(const QVector<STProtoDataContainer> &value) override;
    QVector<STProtoDataContainer> getUIData() override;
    void setState(const Tav::Base::CommandStateAsr &value) override;
    Tav::Base::CommandStateAsr getState() override;
    void setDeviceInfo(const Tav::NetControl::NetDeviceInfos &value) override;
    Tav::NetControl::NetDeviceInfos getDeviceInfo() override;
    void setRuleInfo(const Tav::NetControl::NetRuleInfoAsr &value) override;
    Tav::NetControl::NetRuleInfoAsr getRuleInfo() override;
    void updateUIItem(const STProtoDataContainer &item) override;
    void setAllCheck(bool check) override;
    void reverseDeviceState(int index) override;
    void reverseDevicesState() override;

private:
    QMutex mutex;
    Tav::NetControl::NetControlCountAsr netCount;
    QVector<STProtoDataContainer> uiData;
    Tav::Base::CommandStateAsr state;
    Tav::NetControl::NetDeviceInfos deviceInfo;
    Tav::NetControl::NetRuleInfoAsr ruleInfo;
};
