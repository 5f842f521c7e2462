#include "BaselineCheck.h"

#include "Base64Text.h"
#include "BaselineList.h"
#include "BaselineScript.h"
#include "InstallationPaths.h"
#include "SchemaCheck.h"
#include "TavCommonUtils.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace
{
/// Of several items with one id the plugin keeps the last alone. Ids are what the plugin reads: 0 for what is none.
Findings checkIds(const QJsonArray &items)
{
    QHash<int, QString> winners;
    for (int i = 0; i < items.size(); ++i) {
        winners.insert(BaselineList::idOf(items[i]), "/enableConfig/" + QString::number(i));
    }
    Findings findings;
    for (int i = 0; i < items.size(); ++i) {
        const int id = BaselineList::idOf(items[i]);
        const QString path = "/enableConfig/" + QString::number(i);
        if (winners[id] != path) {
            findings.append(Finding::ofValue(
                FindingCode::IdTwice, items[i].toObject().contains("itemId") ? path + "/itemId" : path,
                QString("the plugin reads the id %1 also from %2").arg(id).arg(winners[id]),
                QString("this item is overwritten by %2, which getItemConfig(%1) gives").arg(id).arg(winners[id]),
                "write another id in one of them"));
        }
    }
    return findings;
}

/// @brief Why a script cannot be run, and what to do.
struct ScriptFault {
    FindingCode code;
    QString problem;
    QString advice;
};

/// Of the script with this name; none when it can be run.
std::optional<ScriptFault> scriptFault(const QString &name)
{
    const QString path = InstallationPaths::scripts() + name;
    const QString script = '"' + TavCommonUtils::pathInSystemRoot(path) + '"';
    switch (scriptState(path)) {
    case ScriptState::Runnable:
        return {};
    case ScriptState::Missing:
        return ScriptFault{
            FindingCode::ScriptMissing, "there is no script " + script,
            std::any_of(name.begin(), name.end(), [](QChar character) { return character.isSpace(); })
                ? "put the script there, or correct its name: a blank is part of it, and arguments cannot be given"
                : "put the script there, or correct its name"};
    case ScriptState::NotAFile:
        return ScriptFault{FindingCode::ScriptNotAFile, script + " is not a regular file", "name a script"};
    case ScriptState::NotExecutable:
        return ScriptFault{FindingCode::ScriptNotExecutable, script + " is not executable",
                           "make it executable with \"chmod +x\""};
    }
    return {};
}

Findings checkScripts(const QJsonArray &items)
{
    Findings findings;
    for (int i = 0; i < items.size(); ++i) {
        const QString value = items[i]["checkValueScript"].toString();
        if (!value.startsWith('/')) {
            continue; // no path within the script directory
        }
        const std::optional<ScriptFault> fault = scriptFault(value);
        if (fault) {
            findings.append(
                Finding::ofValue(fault->code, QString("/enableConfig/%1/checkValueScript").arg(i), fault->problem,
                                 "the plugin hands its path out, but the item cannot be checked", fault->advice));
        }
    }
    return findings;
}
}

Findings checkBaseline(const QString &file, const QByteArray &content)
{
    const TavJsonText text(content);
    if (Base64Text::firstWrong(content) < 0 && Base64Text::isJsonText(Base64Text::decoded(content))) {
        return {Finding::atPlace(FindingCode::Base64WhereJsonBelongs, file, text.errorPlace(),
                                 "not JSON: this is Base64", "the plugin loads no check item",
                                 R"(write what "tavctl catalogue decode" shows)")};
    }
    if (!text.error().isEmpty()) {
        return {Finding::ofNoJson(file, content, text, "the plugin loads no check item")};
    }
    const QJsonArray items = BaselineList::itemsOf(text.document().toObject());
    return located(checkAgainstSchema("baseline.schema.json", text.document()) + checkIds(items) + checkScripts(items),
                   file, text);
}
