#include "Contests.h"

#include "RowContest.h"

#include "ITavCompleteProtectMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"

namespace
{
Contest protectRows(ITavProtectMgr *manager)
{
    Contest rows = rowContest<STSystemProUIData>(
        "ITavProtectMgr ProtectUIData", [manager](const auto &list) { manager->setProtectUIData(list); },
        [manager] { return manager->getProtectUIData(); }, [manager](const auto &row) { manager->updateUIItem(row); });
    rows.operations.push_back({"setUIAllCheck", [manager](int seed) {
                                   manager->setUIAllCheck(seed % 2 != 0);
                                   return true;
                               }});
    return rows;
}

Contest netRows(ITavNetControlMgr *manager)
{
    Contest rows = rowContest<STProtoDataContainer>(
        "ITavNetControlMgr UIData", [manager](const auto &list) { manager->setUIData(list); },
        [manager] { return manager->getUIData(); }, [manager](const auto &row) { manager->updateUIItem(row); });
    rows.operations.push_back({"setAllCheck", [manager](int seed) {
                                   manager->setAllCheck(seed % 2 != 0);
                                   return true;
                               }});
    return rows;
}

Contest credibleRows(ITavCompleteProtectMgr *manager)
{
    return rowContest<STProtoDataContainer>(
        "ITavCompleteProtectMgr CredibleVecUI", [manager](const auto &list) { manager->setCredibleVecUI(list); },
        [manager] { return manager->getCredibleVecUI(); },
        [manager](const auto &row) { manager->setCredibleImteUI(row); });
}

Contest exceptionRows(ITavProExceptionMgr *manager)
{
    return rowContest<STProtoDataContainer>(
        "ITavProExceptionMgr UIData", [manager](const auto &list) { manager->setUIData(list); },
        [manager] { return manager->getUIData(); }, [manager](const auto &row) { manager->setUIData(row); });
}
}

std::vector<Contest> Contests::rows(TavPluginHost &host)
{
    return {protectRows(host.manager<ITavProtectMgr>()), netRows(host.manager<ITavNetControlMgr>()),
            credibleRows(host.manager<ITavCompleteProtectMgr>()), exceptionRows(host.manager<ITavProExceptionMgr>())};
}
