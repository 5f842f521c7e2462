#include "AreaPages.h"

#include "BaselineList.h"
#include "CellText.h"
#include "ITavLineScanMgr.h"
#include "ITavOneReinforceMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using namespace CellText;

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
                                 {{"item", [](const auto &row) { return row.itemText; }},
                                  {"state", [](const auto &row) { return row.stateText; }}});
}

QVector<PageSection> AreaPages::baselinePage()
{
    auto &model = *tavObject<ITavLineScanMgr>();
    QVector<STBLEnableConfig> items;
    const QVector<int> ids = BaselineList::idsOf(BaselineList::read());
    for (const int id : ids) {
        items.append(model.getItemConfig(id));
    }
    QVector<PageSection> sections{
        tableOf<>("Check items", items,
                  {{"id", [](const auto &item) { return number(item.itemId); }, CellKind::Number},
                   {"name", [](const auto &item) { return item.name; }},
                   {"standard", [](const auto &item) { return item.standardValue; }},
                   {"type", [](const auto &item) { return number(item.type); }, CellKind::Number},
                   {"button", [](const auto &item) { return item.btntext; }},
                   {"script", [](const auto &item) { return item.checkValueScript; }}})};
    sections += messageSections("Scan state", model.getscanState());
    sections += messageSections("Scan counts", model.getLineCount());
    sections += messageSections("Scan content", model.getLineScanContent());
    sections += messageSections("Configuration errors", model.getScanItemConfigErr());
    sections += messageSections("Level", model.getLineLevel());
    return sections;
}
