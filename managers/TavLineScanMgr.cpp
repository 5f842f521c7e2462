#include "TavLineScanMgr.h"

#include "TavCommonUtils.h"
#include "TavHeldValue.h"

#include <QJsonArray>
#include <QJsonObject>

namespace
{
STBLEnableConfig itemFromJson(const QJsonObject &object)
{
    STBLEnableConfig item;
    item.itemId = object.value(QLatin1String("itemId")).toInt();
    item.name = object.value(QLatin1String("name")).toString();
    item.standardValue = object.value(QLatin1String("standardValue")).toString();
    item.desc = object.value(QLatin1String("desc")).toString();
    // No separator: the file's values begin with "/".
    item.checkValueScript = QLatin1String("/opt/tavsec/script/baselineScript")
        + object.value(QLatin1String("checkValueScript")).toString();
    item.type = object.value(QLatin1String("type")).toInt();
    if (item.type == 3) {
        item.btntext = object.value(QLatin1String("btntext")).toString();
    }
    return item;
}
}

TavLineScanMgr::TavLineScanMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavLineScanMgr::getObject()
{
    return this;
}

void TavLineScanMgr::setLineScanContent(const Tav::Reinforce::LineScanContentAsr &value)
{
    TavHeldValue::set(mutex, lineScanContent, value);
}

Tav::Reinforce::LineScanContentAsr TavLineScanMgr::getLineScanContent()
{
    return TavHeldValue::get(mutex, lineScanContent);
}

void TavLineScanMgr::setLineCount(const Tav::Reinforce::LineCountAsr &value)
{
    TavHeldValue::set(mutex, lineCount, value);
}

Tav::Reinforce::LineCountAsr TavLineScanMgr::getLineCount()
{
    return TavHeldValue::get(mutex, lineCount);
}

void TavLineScanMgr::setscanState(const Tav::Reinforce::LineScanStateAsr &value)
{
    TavHeldValue::set(mutex, scanState, value);
}

Tav::Reinforce::LineScanStateAsr TavLineScanMgr::getscanState()
{
    return TavHeldValue::get(mutex, scanState);
}

void TavLineScanMgr::setScanItemConfigErr(const Tav::Reinforce::LineScanItemConfigErr &value)
{
    TavHeldValue::set(mutex, scanItemConfigErr, value);
}

Tav::Reinforce::LineScanItemConfigErr TavLineScanMgr::getScanItemConfigErr()
{
    return TavHeldValue::get(mutex, scanItemConfigErr);
}

void TavLineScanMgr::setLineLevel(const Tav::Reinforce::LineScanLevelState &value)
{
    TavHeldValue::set(mutex, lineLevel, value);
}

Tav::Reinforce::LineScanLevelState TavLineScanMgr::getLineLevel()
{
    return TavHeldValue::get(mutex, lineLevel);
}

bool TavLineScanMgr::loadJsonConfig()
{
    QMutexLocker lock(&mutex);
    const QString path = QStringLiteral("/etc/tavsec.d/baselineConfig/baseline.json");
    const QJsonArray elements = TavCommonUtils::readJsonFromFile(path).value(QLatin1String("enableConfig")).toArray();
    // Merged into what is held: an item that has vanished from the file stays.
    for (const QJsonValue &element : elements) {
        const STBLEnableConfig item = itemFromJson(element.toObject());
        itemConfig.insert(item.itemId, item);
    }
    return true;
}

STBLEnableConfig TavLineScanMgr::getItemConfig(int itemId)
{
    QMutexLocker lock(&mutex);
    return itemConfig.value(itemId);
}
