#pragma once

#include "Reinforce.pb.h"
#include "STStateInfo.h"

#include <QObject>
#include <QVector>

/**
 * @brief State of one-click hardening.
 *
 * Any thread may call any operation. Getters return copies, empty before the first set. Nothing is signalled on a
 * set: readers ask again. The mixed case of the names and the spelling "reforce" are part of the interface.
 */
class ITavOneReinforceMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the hardening mode.
    virtual void setreinforceMode(const Tav::Reinforce::ReinforceMode &mode) = 0;
    /// Copy of the hardening mode.
    [[nodiscard]] virtual Tav::Reinforce::ReinforceMode getreinforceMode() = 0;

    /// Replaces the three-part configuration.
    virtual void setthreeConfig(const Tav::Reinforce::OneThreeConfig &config) = 0;
    /// Copy of the three-part configuration.
    [[nodiscard]] virtual Tav::Reinforce::OneThreeConfig getthreeConfig() = 0;

    /// Replaces the hardening policy.
    virtual void setreforcePolicy(const Tav::Reinforce::OneReforcePolicy &policy) = 0;
    /// Copy of the hardening policy.
    [[nodiscard]] virtual Tav::Reinforce::OneReforcePolicy getreforcePolicy() = 0;

    /// Replaces the whole state list.
    virtual void setStateInfo(const QVector<STStateInfo> &lines) = 0;
    /// Copy of the state list.
    [[nodiscard]] virtual QVector<STStateInfo> getStateInfo() = 0;

    /// Replaces the security switches.
    virtual void setSecswitchContent(const Tav::Reinforce::SecswitchAsr &content) = 0;
    /// Copy of the security switches.
    [[nodiscard]] virtual Tav::Reinforce::SecswitchAsr getSecswitchContent() = 0;

    /// Replaces the finish state of the last run.
    virtual void setReforceFinishState(const Tav::Reinforce::OneReforceFinishState &state) = 0;
    /// Copy of the finish state of the last run.
    [[nodiscard]] virtual Tav::Reinforce::OneReforceFinishState getReforceFinishState() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavOneReinforceMgr() = default;
};

Q_DECLARE_INTERFACE(ITavOneReinforceMgr, "ITavOneReinforceMgr")
