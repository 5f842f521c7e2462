#include "AgentCalls.h"
#include "ManagerFeeds.h"
#include "ReinforceReader.h"

namespace
{
/// The administration of the host is not divided: no part of it is set up.
Tav::Reinforce::OneThreeConfig undividedAdministration()
{
    const auto setName = [](Tav::Reinforce::OneThreePart *part, const char *name) {
        part->set_enabled(false);
        part->set_state(0);
        part->set_role_name(name);
    };
    Tav::Reinforce::OneThreeConfig config;
    config.set_enabled(false);
    setName(config.mutable_system(), "system administrator");
    setName(config.mutable_security(), "security administrator");
    setName(config.mutable_audit(), "audit administrator");
    return config;
}
}

int ManagerFeeds::feedHardening(const QString &root, const AgentCalls<ITavOneReinforceMgr> &calls, ReadingNotes &notes)
{
    const Tav::Reinforce::SecswitchAsr switches = ReinforceReader::readSwitches(root, notes);
    calls.make<&ITavOneReinforceMgr::setSecswitchContent>(switches);
    calls.make<&ITavOneReinforceMgr::setreforcePolicy>(ReinforceReader::policyOf(switches));
    calls.make<&ITavOneReinforceMgr::setStateInfo>(ReinforceReader::linesOf(switches));
    calls.make<&ITavOneReinforceMgr::setthreeConfig>(undividedAdministration());

    // The local agent hardens nothing: it is off and has never run.
    Tav::Reinforce::ReinforceMode mode;
    mode.set_mode(0);
    mode.set_can_restore(false);
    calls.make<&ITavOneReinforceMgr::setreinforceMode>(mode);

    Tav::Reinforce::OneReforceFinishState finish;
    finish.set_run_id(0);
    finish.set_state(0);
    calls.make<&ITavOneReinforceMgr::setReforceFinishState>(finish);
    return switches.switches_size();
}
