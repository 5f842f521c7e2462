#include "BaselineCheck.h"

#include "Base64Text.h"
#include "BaselineList.h"
#include "BaselineScript.h"
#include "FileOwner.h"
#include "InstallationPaths.h"
#include "RootedPath.h"
#include "SchemaCheck.h"
#include "TavCommonUtils.h"

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <utility>

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

FindingCode codeOf(ScriptFlaw::Kind kind)
{
    switch (kind) {
    case ScriptFlaw::Missing:
        return FindingCode::ScriptMissing;
    case ScriptFlaw::NotReadable:
        return FindingCode::NotReadable;
    case ScriptFlaw::NotAFile:
        return FindingCode::ScriptNotAFile;
    case ScriptFlaw::NotExecutable:
        return FindingCode::ScriptNotExecutable;
    case ScriptFlaw::Outside:
        return FindingCode::ScriptOutside;
    case ScriptFlaw::Empty:
        return FindingCode::ScriptEmpty;
    case ScriptFlaw::ForeignLineEnd:
        return FindingCode::ScriptLineEnd;
    case ScriptFlaw::NoInterpreter:
        return FindingCode::NoInterpreter;
    }
    Q_UNREACHABLE();
}

/// What to do about the flaw of the script with this name.
QString adviceFor(ScriptFlaw::Kind kind, const QString &name)
{
    switch (kind) {
    case ScriptFlaw::Missing:
        return std::any_of(name.begin(), name.end(), [](QChar character) { return character.isSpace(); })
            ? "put the script there, or correct its name: a blank is part of it, and arguments cannot be given"
            : "put the script there, or correct its name";
    case ScriptFlaw::NotReadable:
        return "look at it as a user who may";
    case ScriptFlaw::NotAFile:
        return "name a script";
    case ScriptFlaw::NotExecutable:
        return R"(make it executable with "chmod +x")";
    case ScriptFlaw::Outside:
        return "put the script itself into the directory";
    case ScriptFlaw::Empty:
        return "write the script";
    case ScriptFlaw::ForeignLineEnd:
        return "save it with line feeds alone";
    case ScriptFlaw::NoInterpreter:
        return R"(begin it with a line such as "#!/bin/sh")";
    }
    Q_UNREACHABLE();
}

QString effectOf(ScriptFlaw::Kind kind)
{
    switch (kind) {
    case ScriptFlaw::NotReadable:
        return "whether it can be run is not known";
    case ScriptFlaw::Outside:
        return "the agent runs with its own rights what others may be able to change";
    case ScriptFlaw::Empty:
        return "the item is checked by a script that never fails";
    default:
        return "the plugin hands its path out, but the item cannot be checked";
    }
}

/// The scripts of the items; not of those at @p wrongPaths, whose values are wrong by themselves.
Findings checkScripts(const QJsonArray &items, const QSet<QString> &wrongPaths)
{
    const RootedPath directory = followInRoot(InstallationPaths::scripts());
    const bool isDirectory = directory.error == 0 && QFileInfo(directory.file()).isDir();
    if (!isDirectory && !items.isEmpty()) {
        const bool isHidden = directory.error == EACCES;
        const QString flaw = isHidden ? "cannot be seen; " + ownerText(directory.file())
            : directory.error == 0    ? QString("is no directory")
                                      : QString("does not exist");
        return {Finding::ofValue(isHidden ? FindingCode::NotReadable : FindingCode::NoScriptDirectory, "/enableConfig",
                                 QString(R"(the script directory "%1" %2)")
                                     .arg(TavCommonUtils::pathInSystemRoot(InstallationPaths::scripts()), flaw),
                                 "no item can be checked", "put it there, or name another system root with --root")};
    }
    Findings findings;
    QHash<QString, QVector<ScriptFlaw>> flawsOf;
    for (int i = 0; i < items.size(); ++i) {
        const QString place = QString("/enableConfig/%1/checkValueScript").arg(i);
        const QString name = items[i]["checkValueScript"].toString();
        if (name.isEmpty() || wrongPaths.contains(place)) {
            continue;
        }
        const QString path = InstallationPaths::scripts() + name;
        if (!flawsOf.contains(path)) { // many items may share a script
            flawsOf.insert(path, scriptFlaws(path));
        }
        const QVector<ScriptFlaw> flaws = flawsOf[path];
        for (const ScriptFlaw &flaw : flaws) {
            findings.append(Finding::ofValue(
                codeOf(flaw.kind), place,
                QString(R"(the script "%1" %2)").arg(TavCommonUtils::pathInSystemRoot(path), flaw.problem),
                effectOf(flaw.kind), adviceFor(flaw.kind, name)));
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
    Findings findings = checkAgainstSchema("baseline.schema.json", text.document());
    QSet<QString> wrongPaths;
    for (const Finding &finding : qAsConst(findings)) {
        wrongPaths.insert(finding.path);
    }
    findings += checkIds(items);
    findings += checkScripts(items, wrongPaths);
    return located(std::move(findings), file, text);
}
