#pragma once

#include "ITavOneReinforceMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The state of one-click hardening.
class TavOneReinforceMgr : public QObject, public ITavOneReinforceMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavOneReinforceMgr)
public:
    explicit TavOneReinforceMgr(QObject *parent);

    QObject *getObject() override;
    void setreinforceMode(const Tav::Reinforce::ReinforceMode &value) override;
    Tav::Reinforce::ReinforceMode getreinforceMode() override;
    void setthreeConfig(const Tav::Reinforce::OneThreeConfig &value) override;
    Tav::Reinforce::OneThreeConfig getthreeConfig() override;
    void setreforcePolicy(const Tav::Reinforce::OneReforcePolicy &value) override;
    Tav::Reinforce::OneReforcePolicy getreforcePolicy() override;
    void setStateInfo(const QVector<STStateInfo> &value) override;
    QVector<STStateInfo> getStateInfo() override;
    void setSecswitchContent(const Tav::Reinforce::SecswitchAsr &value) override;
    Tav::Reinforce::SecswitchAsr getSecswitchContent() override;
    void setReforceFinishState(const Tav::Reinforce::OneReforceFinishState &value) override;
    Tav::Reinforce::OneReforceFinishState getReforceFinishState() override;

private:
    QMutex mutex;
    Tav::Reinforce::ReinforceMode reinforceMode;
    Tav::Reinforce::OneThreeConfig threeConfig;
    Tav::Reinforce::OneReforcePolicy reforcePolicy;
    Tav::Reinforce::OneReforceFinishState reforceFinishState;
    QVector<STStateInfo> stateInfo;
    Tav::Reinforce::SecswitchAsr secswitchContent;
};
