#include "AreaPages.h"

#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

namespace
{
QPair<QString, QString> stateFact(const QString &name, const STStateAsr &state)
{
    return {name, QString("%1 (%2)").arg(state.stateValue).arg(state.stateExtra)};
}
}

QVector<PageSection> AreaPages::selfProtectPage()
{
    auto &model = *tavObject<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("States",
                {stateFact("self protection", model.getSelfState()),
                 stateFact("removal of software", model.getSoftUnloadMode())}),
        tableOf<>("Protections", model.getProtectUIData(),
                  {column<&STSystemProUIData::isChecked>(""), column<&STSystemProUIData::itemKey>("key"),
                   column<&STSystemProUIData::title>("title"), column<&STSystemProUIData::detail>("detail"),
                   column<&STSystemProUIData::status>("status")})};
    sections += messageSections("Protected software count", model.getSoftUnloadCount());
    sections += messageSections("Protected software", model.getSoftUnloadContent());
    return sections;
}

QVector<PageSection> AreaPages::processProtectPage()
{
    auto &model = *tavObject<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("State",
                {stateFact("process protection", model.getProState()),
                 {"entries", QString::number(model.getProCount().count)}}),
        tableOf<>("Processes", model.getProContentList(),
                  {column<&STProProtectContentAsr::pid>("pid"), column<&STProProtectContentAsr::name>("name"),
                   column<&STProProtectContentAsr::userName>("user"),
                   column<&STProProtectContentAsr::startTime>("started"),
                   column<&STProProtectContentAsr::path>("path")})};
    sections += messageSections("Process exceptions", tavObject<ITavProExceptionMgr>()->getPriException());
    return sections << rowsSection("Exception rows", tavObject<ITavProExceptionMgr>()->getUIData());
}

QVector<PageSection> AreaPages::kernelProtectPage()
{
    auto &model = *tavObject<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("State",
                {stateFact("kernel protection", model.getKernelState()),
                 stateFact("blocking of modules", model.getKernelBlkMode()),
                 {"entries", QString::number(model.getKernelCount().count)}}),
        tableOf<>("Kernel modules", model.getKernelContent(),
                  {column<&STKernelContentAsr::name>("name"), column<&STKernelContentAsr::size>("size"),
                   column<&STKernelContentAsr::refCount>("users"), column<&STKernelContentAsr::loaded>("loaded"),
                   column<&STKernelContentAsr::path>("path")})};
    sections += messageSections("Blocked modules", model.getKernelBlkContent());
    return sections;
}

QVector<PageSection> AreaPages::directoryPage()
{
    auto &model = *tavObject<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("States",
                {stateFact("directory protection", model.getDirState()),
                 stateFact("file protection", model.getFileState()),
                 {"directories", QString::number(model.getDirCount().count)},
                 {"files", QString::number(model.getFileCount().count)}}),
        tableOf<>("Directories", model.getDirContent(),
                  {column<&STDirProtectContentAsr::path>("path"), column<&STDirProtectContentAsr::state>("state"),
                   column<&STDirProtectContentAsr::fileCount>("files"),
                   column<&STDirProtectContentAsr::updateTime>("changed")}),
        tableOf<>("Files", model.getFileContent(),
                  {column<&STFileProtectContentAsr::path>("path"), column<&STFileProtectContentAsr::mode>("mode"),
                   column<&STFileProtectContentAsr::size>("size"),
                   column<&STFileProtectContentAsr::modifyTime>("changed"),
                   column<&STFileProtectContentAsr::digest>("digest")})};
    sections += messageSections("Protected objects", model.getProtoCount());
    sections += messageSections("File destruction", model.getFileSmash());
    return sections;
}
