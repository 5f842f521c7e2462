// The baseline's file: any bytes.
#include "ITavLineScanMgr.h"
#include "Require.h"
#include "ScratchFile.h"
#include "TavPluginHost.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdint>
#include <limits>
#include <map>

namespace
{
QString textOf(const QJsonObject &item, const char *key)
{
    return item[QLatin1String(key)].toString();
}

/// The last element of each id.
std::map<int, QJsonObject> itemsOf(const QByteArray &json)
{
    std::map<int, QJsonObject> items;
    const QJsonObject top = QJsonDocument::fromJson(json).object();
    for (const QJsonValue &element : top[QStringLiteral("enableConfig")].toArray()) {
        const QJsonObject item = element.toObject();
        items[item[QStringLiteral("itemId")].toInt()] = item;
    }
    return items;
}

void requireItem(const STBLEnableConfig &item, int id, const QJsonObject &expected)
{
    require(item.itemId == id, "an item is found under its id");
    require(item.name == textOf(expected, "name") && item.standardValue == textOf(expected, "standardValue")
                && item.desc == textOf(expected, "desc"),
            "an item has the texts of the last element with its id");
    require(item.checkValueScript
                == QStringLiteral("/opt/tavsec/script/baselineScript") + textOf(expected, "checkValueScript"),
            "a script's path is the directory and the file's value");
    require(item.type == expected[QStringLiteral("type")].toInt(), "an item has its type");
    require(item.btntext == (item.type == 3 ? textOf(expected, "btntext") : QString()),
            "items of type 3, and no others, have a button text");
    require(item.extraText.isEmpty(), "the free text is left empty");
}

void requireDefault(const STBLEnableConfig &item)
{
    require(item.name.isEmpty() && item.standardValue.isEmpty() && item.extraText.isEmpty() && item.desc.isEmpty()
                && item.checkValueScript.isEmpty() && item.btntext.isEmpty() && item.itemId == 0 && item.type == 0,
            "an id that is not held gives a default record");
}

void requireItems(ITavLineScanMgr &manager, const std::map<int, QJsonObject> &items)
{
    for (const auto &[id, expected] : items) {
        requireItem(manager.getItemConfig(id), id, expected);
    }
    for (const int id : {std::numeric_limits<int>::min(), -1, 0, 1, 3, 101, std::numeric_limits<int>::max()}) {
        if (items.count(id) == 0) {
            requireDefault(manager.getItemConfig(id));
        }
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile file(QStringLiteral("etc/tavsec.d/baselineConfig/baseline.json"));
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<int>(size));
    file.write(input);

    TavPluginHost plugin{TAV_PLUGIN_FILE};
    TavGlobalInfoMgr::getInstance()->setSystemRoot(file.root());
    auto &manager = *plugin.manager<ITavLineScanMgr>();
    const std::map<int, QJsonObject> items = itemsOf(input);
    require(manager.loadJsonConfig(), "loadJsonConfig returns true");
    requireItems(manager, items);
    require(manager.loadJsonConfig(), "loadJsonConfig returns true the second time");
    requireItems(manager, items);

    file.write("{}");
    require(manager.loadJsonConfig(), "loadJsonConfig returns true when there is nothing to load");
    requireItems(manager, items); // those held stay
    return 0;
}
