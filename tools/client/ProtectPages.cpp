#include "AreaPages.h"

#include "CellText.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using namespace CellText;

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
    QVector<PageSection> sections{factsOf("States",
                                          {stateFact("self protection", model.getSelfState()),
                                           stateFact("removal of software", model.getSoftUnloadMode())}),
                                  tableOf<>("Protections", model.getProtectUIData(),
                                            {{"", [](const auto &row) { return check(row.isChecked); }},
                                             {"key", [](const auto &row) { return row.itemKey; }},
                                             {"title", [](const auto &row) { return row.title; }},
                                             {"detail", [](const auto &row) { return row.detail; }},
                                             {"status", [](const auto &row) { return row.status ? "yes" : "no"; }}})};
    sections += messageSections("Protected software count", model.getSoftUnloadCount());
    sections += messageSections("Protected software", model.getSoftUnloadContent());
    return sections;
}

QVector<PageSection> AreaPages::processProtectPage()
{
    auto &model = *tavObject<ITavProtectMgr>();
    QVector<PageSection> sections{
        factsOf("State",
                {stateFact("process protection", model.getProState()), {"entries", number(model.getProCount().count)}}),
        tableOf<>("Processes", model.getProContentList(),
                  {{"pid", [](const auto &row) { return number(row.pid); }, CellKind::Number},
                   {"name", [](const auto &row) { return text(row.name); }},
                   {"user", [](const auto &row) { return text(row.userName); }},
                   {"started", [](const auto &row) { return timeText(row.startTime); }},
                   {"path", [](const auto &row) { return text(row.path); }}})};
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
                 {"entries", number(model.getKernelCount().count)}}),
        tableOf<>("Kernel modules", model.getKernelContent(),
                  {{"name", [](const auto &row) { return text(row.name); }},
                   {"size", [](const auto &row) { return bytes(row.size); }, CellKind::Number},
                   {"users", [](const auto &row) { return number(row.refCount); }, CellKind::Number},
                   {"loaded", [](const auto &row) { return row.loaded ? "yes" : "no"; }},
                   {"path", [](const auto &row) { return text(row.path); }}})};
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
                 {"directories", number(model.getDirCount().count)},
                 {"files", number(model.getFileCount().count)}}),
        tableOf<>("Directories", model.getDirContent(),
                  {{"path", [](const auto &row) { return text(row.path); }},
                   {"state", [](const auto &row) { return number(row.state); }, CellKind::Number},
                   {"files", [](const auto &row) { return number(row.fileCount); }, CellKind::Number},
                   {"changed", [](const auto &row) { return timeText(row.updateTime); }}}),
        tableOf<>("Files", model.getFileContent(),
                  {{"path", [](const auto &row) { return text(row.path); }},
                   {"mode", [](const auto &row) { return QString::number(row.mode, 8); }, CellKind::Number},
                   {"size", [](const auto &row) { return bytes(row.size); }, CellKind::Number},
                   {"changed", [](const auto &row) { return timeText(row.modifyTime); }},
                   {"digest", [](const auto &row) { return text(row.digest).left(16); }}})};
    sections += messageSections("Protected objects", model.getProtoCount());
    sections += messageSections("File destruction", model.getFileSmash());
    return sections;
}
