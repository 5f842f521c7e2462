#include "AreaPages.h"

#include "CellText.h"
#include "ITavAccessControlMgr.h"
#include "PageSections.h"
#include "TavObjectMgr.h"

using namespace CellText;

namespace
{
/// Permission bits as "rwx".
QString permission(qint32 bits)
{
    return QString(bits & 4 ? "r" : "-") + (bits & 2 ? "w" : "-") + (bits & 1 ? "x" : "-");
}

PageSection levelSection(const QString &title, const QVector<STAccessSetUIData> &levels)
{
    return tableOf<>(title, levels,
                     {{"", [](const auto &row) { return check(row.checked); }},
                      {"level", [](const auto &row) { return number(row.level); }, CellKind::Number},
                      {"labels", [](const auto &row) { return QStringList(row.labels.toList()).join(", "); }},
                      {"flag", [](const auto &row) { return row.extraFlag ? "yes" : "no"; }}});
}
}

QVector<PageSection> AreaPages::principalPage()
{
    auto &model = *tavObject<ITavAccessControlMgr>();
    QVector<PageSection> sections{
        tableOf<>("System users", model.getSystemUsers(),
                  {{"uid", [](const auto &row) { return number(row.uid); }, CellKind::Number},
                   {"name", [](const auto &row) { return text(row.name); }},
                   {"full name", [](const auto &row) { return text(row.fullName); }},
                   {"home", [](const auto &row) { return text(row.home); }},
                   {"shell", [](const auto &row) { return text(row.shell); }},
                   {"may log in", [](const auto &row) { return row.canLogin ? "yes" : "no"; }},
                   {"locked", [](const auto &row) { return row.locked < 0 ? "?"
                                                        : row.locked      ? "yes"
                                                                          : "no"; }}}),
        tableOf<>("Principal details", model.getUserDetail(),
                  {{"user", [](const auto &row) { return text(row.userName); }},
                   {"uid", [](const auto &row) { return number(row.uid); }, CellKind::Number},
                   {"level", [](const auto &row) { return number(row.level); }, CellKind::Number},
                   {"permission", [](const auto &row) { return permission(row.permission); }},
                   {"in force", [](const auto &row) { return row.state ? "yes" : "no"; }},
                   {"updated", [](const auto &row) { return timeText(row.updateTime); }}}),
        levelSection("Principal levels", model.getUIPriData()),
        factsOf("Checked level", {{"principals", number(model.getCheckPriLevel())}})};
    sections += messageSections("Mode", model.getModeConfig());
    sections += messageSections("Last command", model.getState());
    return sections;
}

QVector<PageSection> AreaPages::objectPage()
{
    auto &model = *tavObject<ITavAccessControlMgr>();
    return {tableOf<>("Object details", model.getObjectDetail(),
                      {{"path", [](const auto &row) { return text(row.filePath); }},
                       {"name", [](const auto &row) { return text(row.fileName); }},
                       {"owner", [](const auto &row) { return text(row.userName); }},
                       {"size", [](const auto &row) { return bytes(row.size); }, CellKind::Number},
                       {"level", [](const auto &row) { return number(row.level); }, CellKind::Number},
                       {"permission", [](const auto &row) { return permission(row.permission); }},
                       {"in force", [](const auto &row) { return row.state ? "yes" : "no"; }}}),
            levelSection("Object levels", model.getUIObjectData()),
            factsOf("Checked level", {{"objects", number(model.getCheckObjectLevel())}})};
}

QVector<PageSection> AreaPages::principalAddPage()
{
    return {tableOf<>("Principals to add", tavObject<ITavAccessControlMgr>()->getUIUsers(),
                      {{"", [](const auto &row) { return check(row.checked); }},
                       {"name", [](const auto &row) { return row.userName; }},
                       {"number", [](const auto &row) { return number(row.userNumber); }, CellKind::Number},
                       {"text", [](const auto &row) { return row.userText; }}})};
}

QVector<PageSection> AreaPages::objectAddPage()
{
    return {tableOf<>("Files to add", tavObject<ITavAccessControlMgr>()->getUIFiles(),
                      {{"", [](const auto &row) { return check(row.checked); }},
                       {"name", [](const auto &row) { return row.fileName; }},
                       {"path", [](const auto &row) { return row.filePath; }}})};
}
