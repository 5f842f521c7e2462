#include "AreaPages.h"

#include "ITavAccessControlMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

namespace
{
PageSection levelSection(const QString &title, const QVector<STAccessSetUIData> &levels)
{
    return tableOf<>(title, levels,
                     {column<&STAccessSetUIData::checked>(""), column<&STAccessSetUIData::level>("level"),
                      column<&STAccessSetUIData::labels>("labels"), column<&STAccessSetUIData::extraFlag>("flag")});
}
}

QVector<PageSection> AreaPages::principalPage()
{
    auto &model = *tavObject<ITavAccessControlMgr>();
    QVector<PageSection> sections{
        tableOf<>("System users", model.getSystemUsers(),
                  {column<&STLookUsersAsr::uid>("uid"), column<&STLookUsersAsr::name>("name"),
                   column<&STLookUsersAsr::fullName>("full name"), column<&STLookUsersAsr::home>("home"),
                   column<&STLookUsersAsr::shell>("shell"), column<&STLookUsersAsr::canLogin>("may log in"),
                   column<&STLookUsersAsr::locked>("locked")}),
        tableOf<>("Principal details", model.getUserDetail(),
                  {column<&STPriDetailAsr::userName>("user"), column<&STPriDetailAsr::uid>("uid"),
                   column<&STPriDetailAsr::level>("level"), column<&STPriDetailAsr::permission>("permission"),
                   column<&STPriDetailAsr::state>("in force"), column<&STPriDetailAsr::updateTime>("updated")}),
        levelSection("Principal levels", model.getUIPriData()),
        factsOf("Checked level", {{"principals", QString::number(model.getCheckPriLevel())}})};
    sections += messageSections("Mode", model.getModeConfig());
    sections += messageSections("Last command", model.getState());
    return sections;
}

QVector<PageSection> AreaPages::objectPage()
{
    auto &model = *tavObject<ITavAccessControlMgr>();
    return {tableOf<>("Object details", model.getObjectDetail(),
                      {column<&STObjectDetailAsr::filePath>("path"), column<&STObjectDetailAsr::fileName>("name"),
                       column<&STObjectDetailAsr::userName>("owner"), column<&STObjectDetailAsr::size>("size"),
                       column<&STObjectDetailAsr::level>("level"), column<&STObjectDetailAsr::permission>("permission"),
                       column<&STObjectDetailAsr::state>("in force")}),
            levelSection("Object levels", model.getUIObjectData()),
            factsOf("Checked level", {{"objects", QString::number(model.getCheckObjectLevel())}})};
}

QVector<PageSection> AreaPages::principalAddPage()
{
    return {tableOf<>("Principals to add", tavObject<ITavAccessControlMgr>()->getUIUsers(),
                      {column<&STPriAddUIData::checked>(""), column<&STPriAddUIData::userName>("name"),
                       column<&STPriAddUIData::userNumber>("number"), column<&STPriAddUIData::userText>("text")})};
}

QVector<PageSection> AreaPages::objectAddPage()
{
    return {tableOf<>("Files to add", tavObject<ITavAccessControlMgr>()->getUIFiles(),
                      {column<&STObjectAddUIData::checked>(""), column<&STObjectAddUIData::fileName>("name"),
                       column<&STObjectAddUIData::filePath>("path")})};
}
