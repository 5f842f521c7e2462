#include "Contests.h"

#include "ITavAccessControlMgr.h"
#include "ITavAuditMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavFuncTypeMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavPicResourceMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSelectFuncMgr.h"
#include "ITavSystemConfigMgr.h"

namespace
{
/// The manager is looked up in the registry each time, and gives itself.
template<class Interface>
Contest lookUp(TavPluginHost &host)
{
    const char *const name = qobject_interface_iid<Interface *>();
    QObject *const object = host.managerObject(name);
    return {name, {{"getObject", [object](int) {
                        auto *const manager = tavObject<Interface>();
                        return manager && manager->getObject() == object;
                    }}}};
}

template<class... Interfaces>
std::vector<Contest> lookUps(TavPluginHost &host)
{
    return {lookUp<Interfaces>(host)...};
}
}

std::vector<Contest> Contests::objects(TavPluginHost &host)
{
    return lookUps<ITavAccessControlMgr, ITavAuditMgr, ITavAuthInfoMgr, ITavCompleteProtectMgr, ITavDevCtlMgr,
                   ITavFuncTypeMgr, ITavHostInfoMgr, ITavLineScanMgr, ITavNetControlMgr, ITavOneReinforceMgr,
                   ITavPicResourceMgr, ITavProExceptionMgr, ITavProtectMgr, ITavSelectFuncMgr, ITavSystemConfigMgr>(
        host);
}
