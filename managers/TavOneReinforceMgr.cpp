#include "TavOneReinforceMgr.h"

#include "TavHeldValue.h"

TavOneReinforceMgr::TavOneReinforceMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavOneReinforceMgr::getObject()
{
    return this;
}

void TavOneReinforceMgr::setreinforceMode(const Tav::Reinforce::ReinforceMode &value)
{
    TavHeldValue::set(mutex, reinforceMode, value);
}

Tav::Reinforce::ReinforceMode TavOneReinforceMgr::getreinforceMode()
{
    return TavHeldValue::get(mutex, reinforceMode);
}

void TavOneReinforceMgr::setthreeConfig(const Tav::Reinforce::OneThreeConfig &value)
{
    TavHeldValue::set(mutex, threeConfig, value);
}

Tav::Reinforce::OneThreeConfig TavOneReinforceMgr::getthreeConfig()
{
    return TavHeldValue::get(mutex, threeConfig);
}

void TavOneReinforceMgr::setreforcePolicy(const Tav::Reinforce::OneReforcePolicy &value)
{
    TavHeldValue::set(mutex, reforcePolicy, value);
}

Tav::Reinforce::OneReforcePolicy TavOneReinforceMgr::getreforcePolicy()
{
    return TavHeldValue::get(mutex, reforcePolicy);
}

void TavOneReinforceMgr::setStateInfo(const QVector<STStateInfo> &value)
{
    TavHeldValue::set(mutex, stateInfo, value);
}

QVector<STStateInfo> TavOneReinforceMgr::getStateInfo()
{
    return TavHeldValue::get(mutex, stateInfo);
}

void TavOneReinforceMgr::setSecswitchContent(const Tav::Reinforce::SecswitchAsr &value)
{
    TavHeldValue::set(mutex, secswitchContent, value);
}

Tav::Reinforce::SecswitchAsr TavOneReinforceMgr::getSecswitchContent()
{
    return TavHeldValue::get(mutex, secswitchContent);
}

void TavOneReinforceMgr::setReforceFinishState(const Tav::Reinforce::OneReforceFinishState &value)
{
    TavHeldValue::set(mutex, reforceFinishState, value);
}

Tav::Reinforce::OneReforceFinishState TavOneReinforceMgr::getReforceFinishState()
{
    return TavHeldValue::get(mutex, reforceFinishState);
}
