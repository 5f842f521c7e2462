#include "AreaPages.h"

#include "BaselineList.h"
#include "ITavLineScanMgr.h"
#include "ITavOneReinforceMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

QVector<PageSection> AreaPages::hardeningPage()
{
    auto &model = *tavObject<ITavOneReinforceMgr>();
    QVector<PageSection> sections;
    sections += messageSections("Mode", model.getreinforceMode());
    sections += messageSections("Three-part configuration", model.getthreeConfig());
    sections += messageSections("Policy", model.getreforcePolicy());
    sections += messageSections("Finish state", model.getReforceFinishState());
    sections += messageSections("Security switches", model.getSecswitchContent());
    return sections << tableOf<>("States", model.getStateInfo(),
                                 {column<&STStateInfo::itemText>("item"), column<&STStateInfo::stateText>("state")});
}

QVector<PageSection> AreaPages::baselinePage()
{
    auto &model = *tavObject<ITavLineScanMgr>();
    QVector<STBLEnableConfig> items;
    const QVector<int> ids = BaselineList::idsOf(BaselineList::read());
    for (const int id : ids) {
        items.append(model.getItemConfig(id));
    }
    QVector<PageSection> sections{tableOf<>(
        "Check items", items,
        {column<&STBLEnableConfig::itemId>("id"), column<&STBLEnableConfig::name>("name"),
         column<&STBLEnableConfig::standardValue>("standard"), column<&STBLEnableConfig::type>("type"),
         column<&STBLEnableConfig::btntext>("button"), column<&STBLEnableConfig::checkValueScript>("script")})};
    sections += messageSections("Scan state", model.getscanState());
    sections += messageSections("Scan counts", model.getLineCount());
    sections += messageSections("Scan content", model.getLineScanContent());
    sections += messageSections("Configuration errors", model.getScanItemConfigErr());
    sections += messageSections("Level", model.getLineLevel());
    return sections;
}
