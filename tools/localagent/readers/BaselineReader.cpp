#include "BaselineReader.h"

#include "BaselineList.h"
#include "BaselineScript.h"
#include "InstallationPaths.h"
#include "STBLEnableConfig.h"

#include <QJsonArray>
#include <QJsonObject>

namespace
{
enum FaultCode { KeyMissing = 1, WrongType = 2, ScriptMissing = 3, ScriptNotExecutable = 4, IdTwice = 5 };

void addFault(Tav::Reinforce::LineScanItemConfigErr &faults, int itemId, FaultCode code, const QString &key,
              const QString &message)
{
    auto *const fault = faults.add_items();
    fault->set_item_id(itemId);
    fault->set_code(code);
    fault->set_key(key.toStdString());
    fault->set_message(message.toStdString());
}

void checkKey(const QJsonObject &item, int itemId, const QString &key, QJsonValue::Type type,
              Tav::Reinforce::LineScanItemConfigErr &faults)
{
    if (!item.contains(key)) {
        addFault(faults, itemId, KeyMissing, key, QStringLiteral("the key is missing"));
    } else if (item.value(key).type() != type) {
        addFault(faults, itemId, WrongType, key, QStringLiteral("the value is of another type"));
    }
}

void checkScript(const QString &script, int itemId, Tav::Reinforce::LineScanItemConfigErr &faults)
{
    const QString key = QStringLiteral("checkValueScript");
    const QVector<ScriptFlaw> flaws = scriptFlaws(script);
    if (flaws.isEmpty()) {
        return;
    }
    const ScriptFlaw &flaw = flaws.first();
    const bool isMissing = flaw.kind == ScriptFlaw::Missing || flaw.kind == ScriptFlaw::NotAFile;
    addFault(faults, itemId, isMissing ? ScriptMissing : ScriptNotExecutable, key,
             isMissing ? QStringLiteral("there is no %1").arg(script) : script + ' ' + flaw.problem);
}
}

Tav::Reinforce::LineScanItemConfigErr BaselineReader::faultsOf(const QJsonObject &config,
                                                               const std::function<STBLEnableConfig(int)> &itemOf)
{
    Tav::Reinforce::LineScanItemConfigErr faults;
    faults.set_path(InstallationPaths::baseline().toStdString());
    checkKey(config, 0, QStringLiteral("enableConfig"), QJsonValue::Array, faults);
    QVector<int> seen;
    const QJsonArray values = BaselineList::itemsOf(config);
    for (const QJsonValue &value : values) {
        const QJsonObject item = value.toObject();
        const int id = BaselineList::idOf(item);
        checkKey(item, id, QStringLiteral("itemId"), QJsonValue::Double, faults);
        checkKey(item, id, QStringLiteral("name"), QJsonValue::String, faults);
        checkKey(item, id, QStringLiteral("standardValue"), QJsonValue::String, faults);
        checkKey(item, id, QStringLiteral("checkValueScript"), QJsonValue::String, faults);
        checkKey(item, id, QStringLiteral("type"), QJsonValue::Double, faults);
        if (seen.contains(id)) {
            addFault(faults, id, IdTwice, QStringLiteral("itemId"), QStringLiteral("the id is given twice"));
            continue;
        }
        seen.append(id);
        checkScript(itemOf(id).checkValueScript, id, faults);
    }
    return faults;
}
