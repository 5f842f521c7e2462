#include "BaselineCheck.h"

#include "BaselineList.h"
#include "BaselineScript.h"
#include "InstallationPaths.h"
#include "SchemaCheck.h"
#include "TavCommonUtils.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

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
                items[i].toObject().contains("itemId") ? path + "/itemId" : path,
                QString("the plugin reads the id %1 also from %2").arg(id).arg(winners[id]),
                QString("this item is overwritten by %2, which getItemConfig(%1) gives").arg(id).arg(winners[id]),
                "write another id in one of them"));
        }
    }
    return findings;
}

/// Why the script with this name cannot be run, and what to do; two empty texts when it can.
QPair<QString, QString> scriptFault(const QString &name)
{
    const QString path = InstallationPaths::scripts() + name;
    const QString script = '"' + TavCommonUtils::pathInSystemRoot(path) + '"';
    switch (scriptState(path)) {
    case ScriptState::Runnable:
        return {};
    case ScriptState::Missing:
        return {"there is no script " + script,
                std::any_of(name.begin(), name.end(), [](QChar character) { return character.isSpace(); })
                    ? "put the script there, or correct its name: a blank is part of it, and arguments cannot be given"
                    : "put the script there, or correct its name"};
    case ScriptState::NotAFile:
        return {script + " is not a regular file", "name a script"};
    case ScriptState::NotExecutable:
        return {script + " is not executable", "make it executable with \"chmod +x\""};
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
        const auto [problem, advice] = scriptFault(value);
        if (!problem.isEmpty()) {
            findings.append(Finding::ofValue(QString("/enableConfig/%1/checkValueScript").arg(i), problem,
                                             "the plugin hands its path out, but the item cannot be checked", advice));
        }
    }
    return findings;
}
}

Findings checkBaseline(const QString &file, const QByteArray &content)
{
    const TavJsonText text(content);
    if (!text.error().isEmpty()) {
        return {Finding::atPlace(file, text.errorPlace(), "not JSON: " + text.error(), "the plugin loads no check item",
                                 "correct the text")};
    }
    const QJsonArray items = BaselineList::itemsOf(text.document().toObject());
    return located(checkAgainstSchema("baseline.schema.json", text.document()) + checkIds(items) + checkScripts(items),
                   file, text);
}
