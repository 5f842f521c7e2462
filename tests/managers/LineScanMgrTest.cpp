#include "BackgroundCalls.h"
#include "GlobalStateGuard.h"
#include "HeldReading.h"
#include "ITavLineScanMgr.h"
#include "PrintQString.h"
#include "TavPluginHost.h"
#include "TextFile.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

using testing::IsEmpty;

namespace
{
const std::string scriptDirectory = "/opt/tavsec/script/baselineScript";

// An item as a tuple, which compares and prints: name, id, standard value, extra text, description, script, button
// text, type.
using ItemRow = std::tuple<std::string, int, std::string, std::string, std::string, std::string, std::string, int>;

ItemRow row(const STBLEnableConfig &item)
{
    return {item.name.toStdString(),          item.itemId,
            item.standardValue.toStdString(), item.extraText.toStdString(),
            item.desc.toStdString(),          item.checkValueScript.toStdString(),
            item.btntext.toStdString(),       item.type};
}

const ItemRow defaultItem{"", 0, "", "", "", "", "", 0};

constexpr int intMax = std::numeric_limits<int>::max();
constexpr int intMin = std::numeric_limits<int>::min();

struct NumberReading {
    const char *json;
    int value;
};

const NumberReading numberReadings[] = {
    {"7", 7},
    {"7.0", 7},
    {"7e0", 7},
    {"70e-1", 7},
    {"1e2", 100},
    {"0", 0},
    {"-0.0", 0},
    {"-1", -1},
    {"-1.0", -1},
    {"2147483647", intMax},
    {"2147483647.0", intMax},
    {"-2147483648", intMin},
    {"-2147483648.0", intMin},
    {"2147483648", 0},
    {"-2147483649", 0},
    {"2147483648.0", 0},
    {"-2147483649.0", 0},
    {"4294967303", 0}, // 7 in its lower 32 bits
    {"9223372036854775807", 0},
    {"1e10", 0},
    {"1e300", 0},
    {"7.5", 0},
    {"7.0000001", 0},
    {"2147483646.5", 0},
    {"\"7\"", 0},
    {"\"seven\"", 0},
    {"true", 0},
    {"false", 0},
    {"null", 0},
    {"[7]", 0},
    {"{\"itemId\": 7}", 0},
};

class LineScanMgr : public testing::Test
{
protected:
    LineScanMgr()
    {
        TavGlobalInfoMgr::getInstance()->setSystemRoot(root.path());
    }

    QString configFile() const
    {
        return root.filePath(QStringLiteral("etc/tavsec.d/baselineConfig/baseline.json"));
    }

    bool load(const QByteArray &json)
    {
        writeFile(configFile(), json);
        return mgr->loadJsonConfig();
    }

    bool loadItems(const QByteArray &items)
    {
        return load(R"({"enableConfig": [)" + items + "]}");
    }

    /// The item that a fresh manager holds under @p id after loading these alone.
    ItemRow itemOfFresh(const QByteArray &items, int id)
    {
        TavPluginHost fresh{TAV_PLUGIN_FILE};
        auto *const freshMgr = fresh.manager<ITavLineScanMgr>();
        writeFile(configFile(), R"({"enableConfig": [)" + items + "]}");
        freshMgr->loadJsonConfig();
        return row(freshMgr->getItemConfig(id));
    }

    GlobalStateGuard guard;
    QTemporaryDir root;
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavLineScanMgr *const mgr = host.manager<ITavLineScanMgr>();
};

template<class Message>
std::string bytes(const Message &message)
{
    return message.SerializeAsString();
}

/// Expects of a setter and its getter what every held message promises. @p sample and @p other must differ, and
/// @p sample must have a field that @p other has not.
template<class Message>
void expectHeldMessage(ITavLineScanMgr *mgr, void (ITavLineScanMgr::*set)(const Message &),
                       Message (ITavLineScanMgr::*get)(), const Message &sample, const Message &other)
{
    SCOPED_TRACE(sample.GetTypeName());
    EXPECT_EQ(bytes((mgr->*get)()), bytes(Message()));
    (mgr->*set)(sample);
    EXPECT_EQ(bytes((mgr->*get)()), bytes(sample));

    Message copy = (mgr->*get)();
    copy.Clear();
    EXPECT_EQ(bytes((mgr->*get)()), bytes(sample));

    // Replaced, not merged.
    (mgr->*set)(other);
    EXPECT_EQ(bytes((mgr->*get)()), bytes(other));
    (mgr->*set)(Message());
    EXPECT_EQ(bytes((mgr->*get)()), bytes(Message()));
}
}

TEST_F(LineScanMgr, HoldsEachOfItsFiveMessages)
{
    Tav::Reinforce::LineScanContentAsr content;
    content.set_scan_id(1);
    content.add_items()->set_item_id(7);
    Tav::Reinforce::LineScanContentAsr otherContent;
    otherContent.add_items()->set_item_id(8);
    expectHeldMessage(mgr, &ITavLineScanMgr::setLineScanContent, &ITavLineScanMgr::getLineScanContent, content,
                      otherContent);

    Tav::Reinforce::LineCountAsr count;
    count.set_total(3);
    Tav::Reinforce::LineCountAsr otherCount;
    otherCount.set_failed(4);
    expectHeldMessage(mgr, &ITavLineScanMgr::setLineCount, &ITavLineScanMgr::getLineCount, count, otherCount);

    Tav::Reinforce::LineScanStateAsr state;
    state.set_scan_id(5);
    Tav::Reinforce::LineScanStateAsr otherState;
    otherState.set_progress(6);
    expectHeldMessage(mgr, &ITavLineScanMgr::setscanState, &ITavLineScanMgr::getscanState, state, otherState);

    Tav::Reinforce::LineScanItemConfigErr errors;
    errors.set_path("/path");
    Tav::Reinforce::LineScanItemConfigErr otherErrors;
    otherErrors.add_items()->set_code(2);
    expectHeldMessage(mgr, &ITavLineScanMgr::setScanItemConfigErr, &ITavLineScanMgr::getScanItemConfigErr, errors,
                      otherErrors);

    Tav::Reinforce::LineScanLevelState level;
    level.set_level(2);
    Tav::Reinforce::LineScanLevelState otherLevel;
    otherLevel.set_score(99);
    expectHeldMessage(mgr, &ITavLineScanMgr::setLineLevel, &ITavLineScanMgr::getLineLevel, level, otherLevel);
}

TEST_F(LineScanMgr, KeepsItsMessagesApart)
{
    Tav::Reinforce::LineScanContentAsr content;
    content.set_scan_id(1);
    Tav::Reinforce::LineCountAsr count;
    count.set_total(2);
    Tav::Reinforce::LineScanStateAsr state;
    state.set_scan_id(3);
    Tav::Reinforce::LineScanItemConfigErr errors;
    errors.set_path("4");
    Tav::Reinforce::LineScanLevelState level;
    level.set_level(5);
    mgr->setLineScanContent(content);
    mgr->setLineCount(count);
    mgr->setscanState(state);
    mgr->setScanItemConfigErr(errors);
    mgr->setLineLevel(level);
    loadItems(R"({"itemId": 1})");
    EXPECT_EQ(bytes(mgr->getLineScanContent()), bytes(content));
    EXPECT_EQ(bytes(mgr->getLineCount()), bytes(count));
    EXPECT_EQ(bytes(mgr->getscanState()), bytes(state));
    EXPECT_EQ(bytes(mgr->getScanItemConfigErr()), bytes(errors));
    EXPECT_EQ(bytes(mgr->getLineLevel()), bytes(level));
}

TEST_F(LineScanMgr, HoldsNoItemBeforeTheFirstLoad)
{
    writeFile(configFile(), R"({"enableConfig": [{"itemId": 0, "name": "zero"}, {"itemId": 1, "name": "one"}]})");
    EXPECT_EQ(row(mgr->getItemConfig(0)), defaultItem);
    EXPECT_EQ(row(mgr->getItemConfig(1)), defaultItem);
}

TEST_F(LineScanMgr, ReadsEveryFieldOfAnItem)
{
    loadItems(R"({"itemId": 12, "name": "name", "standardValue": "value", "desc": "description",
                  "checkValueScript": "/check.sh", "type": 3, "btntext": "button"})");
    EXPECT_EQ(row(mgr->getItemConfig(12)),
              (ItemRow{"name", 12, "value", "", "description", scriptDirectory + "/check.sh", "button", 3}));
}

TEST_F(LineScanMgr, KeepsChineseTexts)
{
    loadItems(R"({"itemId": 1, "name": "口令最小长度", "standardValue": "≥ 8", "desc": "𠮷"})");
    EXPECT_EQ(mgr->getItemConfig(1).name, QStringLiteral("口令最小长度"));
    EXPECT_EQ(mgr->getItemConfig(1).standardValue, QStringLiteral("≥ 8"));
    EXPECT_EQ(mgr->getItemConfig(1).desc, QStringLiteral("𠮷"));
}

TEST_F(LineScanMgr, ReadsItsKeysInTheirExactSpellingOnly)
{
    loadItems(R"({"ItemId": 12, "itemid": 12, "id": 12, "Name": "x", "standardvalue": "x", "standard": "x",
                  "description": "x", "Desc": "x", "checkvalueScript": "/x", "script": "/x",
                  "Type": 3, "btnText": "x", "buttonText": "x"})");
    EXPECT_EQ(row(mgr->getItemConfig(0)), (ItemRow{"", 0, "", "", "", scriptDirectory, "", 0}));
    EXPECT_EQ(row(mgr->getItemConfig(12)), defaultItem);
}

TEST_F(LineScanMgr, LeavesTheExtraTextEmpty)
{
    loadItems(R"({"itemId": 1, "extraText": "x", "extra": "x"})");
    EXPECT_EQ(row(mgr->getItemConfig(1)), (ItemRow{"", 1, "", "", "", scriptDirectory, "", 0}));
}

TEST_F(LineScanMgr, ReadsAnIdOnlyFromAWholeNumberOf32Bits)
{
    for (const NumberReading &reading : numberReadings) {
        EXPECT_EQ(itemOfFresh(R"({"name": "x", "itemId": )" + QByteArray(reading.json) + "}", reading.value),
                  (ItemRow{"x", reading.value, "", "", "", scriptDirectory, "", 0}))
            << reading.json;
    }
}

TEST_F(LineScanMgr, ReadsATypeOnlyFromAWholeNumberOf32Bits)
{
    for (const NumberReading &reading : numberReadings) {
        EXPECT_EQ(itemOfFresh(R"({"itemId": 1, "type": )" + QByteArray(reading.json) + "}", 1),
                  (ItemRow{"", 1, "", "", "", scriptDirectory, "", reading.value}))
            << reading.json;
    }
}

TEST_F(LineScanMgr, ReadsTheButtonTextOfType3)
{
    for (const char *const type : {"3", "3.0", "30e-1"}) {
        EXPECT_EQ(itemOfFresh(R"({"itemId": 1, "btntext": "button", "type": )" + QByteArray(type) + "}", 1),
                  (ItemRow{"", 1, "", "", "", scriptDirectory, "button", 3}))
            << type;
    }
}

TEST_F(LineScanMgr, ReadsNoButtonTextOfAnyOtherType)
{
    for (const char *const type : {"0", "1", "2", "4", "-3", "3.5", "\"3\"", "null", "true", "[3]", "4294967299"}) {
        EXPECT_EQ(
            std::get<6>(itemOfFresh(R"({"itemId": 1, "btntext": "button", "type": )" + QByteArray(type) + "}", 1)), "")
            << type;
    }
    EXPECT_EQ(std::get<6>(itemOfFresh(R"({"itemId": 1, "btntext": "button"})", 1)), "");
}

TEST_F(LineScanMgr, TakesTextsOfAnotherTypeForEmpty)
{
    for (const char *const value : {"7", "null", "true", "[\"x\"]", R"({"x": "y"})"}) {
        const QByteArray item = QByteArray(R"({"itemId": 1, "name": X, "standardValue": X, "desc": X,
            "checkValueScript": X, "type": 3, "btntext": X})")
                                    .replace('X', value);
        EXPECT_EQ(itemOfFresh(item, 1), (ItemRow{"", 1, "", "", "", scriptDirectory, "", 3})) << value;
    }
}

TEST_F(LineScanMgr, JoinsTheScriptToItsDirectoryWithoutASeparator)
{
    const struct {
        const char *value;
        std::string path;
    } scripts[] = {
        {"/check.sh", scriptDirectory + "/check.sh"},
        {"check.sh", scriptDirectory + "check.sh"},
        {"/sub/check.sh", scriptDirectory + "/sub/check.sh"},
        {"//check.sh", scriptDirectory + "//check.sh"},
        {"/../check.sh", scriptDirectory + "/../check.sh"},
        {"", scriptDirectory},
        {"/", scriptDirectory + "/"},
    };
    for (const auto &script : scripts) {
        EXPECT_EQ(
            std::get<5>(itemOfFresh(R"({"itemId": 1, "checkValueScript": ")" + QByteArray(script.value) + "\"}", 1)),
            script.path);
    }
}

TEST_F(LineScanMgr, TakesTheBareDirectoryForAMissingScript)
{
    loadItems(R"({"itemId": 1})");
    EXPECT_EQ(mgr->getItemConfig(1).checkValueScript.toStdString(), "/opt/tavsec/script/baselineScript");
}

TEST_F(LineScanMgr, PutsNoSystemRootBeforeTheScriptsPath)
{
    loadItems(R"({"itemId": 1, "checkValueScript": "/check.sh"})");
    EXPECT_FALSE(mgr->getItemConfig(1).checkValueScript.contains(root.path()));
}

TEST_F(LineScanMgr, StoresElementsThatAreNoObjectsUnderId0)
{
    const ItemRow bare{"", 0, "", "", "", scriptDirectory, "", 0};
    for (const char *const element : {"7", "\"text\"", "null", "true", "[]", "[{\"itemId\": 1}]", "{}"}) {
        EXPECT_EQ(itemOfFresh(element, 0), bare) << element;
    }
}

TEST_F(LineScanMgr, LetsTheLaterOfTwoElementsWin)
{
    loadItems(R"({"itemId": 7, "name": "first"}, {"itemId": 8, "name": "other"}, {"itemId": 7, "name": "second"})");
    EXPECT_EQ(mgr->getItemConfig(7).name, QStringLiteral("second"));
    EXPECT_EQ(mgr->getItemConfig(8).name, QStringLiteral("other"));
}

TEST_F(LineScanMgr, EmptiesTheFieldsThatTheLaterElementDoesNotGive)
{
    loadItems(R"({"itemId": 7, "name": "name", "standardValue": "value", "desc": "description",
                  "checkValueScript": "/check.sh", "type": 3, "btntext": "button"},
                 {"itemId": 7})");
    EXPECT_EQ(row(mgr->getItemConfig(7)), (ItemRow{"", 7, "", "", "", scriptDirectory, "", 0}));
}

TEST_F(LineScanMgr, MergesALaterFileIntoWhatItHolds)
{
    loadItems(R"({"itemId": 1, "name": "A1"}, {"itemId": 2, "name": "A2", "desc": "A2"})");
    loadItems(R"({"itemId": 2, "name": "B2"})");
    EXPECT_EQ(mgr->getItemConfig(1).name, QStringLiteral("A1"));
    EXPECT_EQ(row(mgr->getItemConfig(2)), (ItemRow{"B2", 2, "", "", "", scriptDirectory, "", 0}));
}

TEST_F(LineScanMgr, LoadsNothingFromAFileWithoutAListAndIsTrue)
{
    const char *const files[] = {
        "{}",
        R"({"enableConfig": []})",
        R"({"enableConfig": {"itemId": 1, "name": "x"}})",
        R"({"enableConfig": null})",
        R"({"enableConfig": "x"})",
        R"({"enableConfig": 7})",
        R"({"EnableConfig": [{"itemId": 1}], "enableconfig": [{"itemId": 1}], "config": [{"itemId": 1}]})",
        R"([{"itemId": 1, "name": "x"}])",
        R"([{"enableConfig": [{"itemId": 1, "name": "x"}]}])",
        R"({"enableConfig": [{"itemId": 1, "name": "x"}])",
        R"({"enableConfig": [{"itemId": 1, "name": "x"}]} x)",
        "\"text\"",
        "not JSON",
        "",
    };
    EXPECT_TRUE(loadItems(R"({"itemId": 1, "name": "kept"})"));
    for (const char *const file : files) {
        SCOPED_TRACE(file);
        EXPECT_TRUE(load(file));
        EXPECT_EQ(mgr->getItemConfig(1).name, QStringLiteral("kept"));
        EXPECT_EQ(row(mgr->getItemConfig(0)), defaultItem);
    }
}

TEST_F(LineScanMgr, LoadsNothingFromAMissingFileAndIsTrue)
{
    EXPECT_TRUE(loadItems(R"({"itemId": 1, "name": "kept"})"));
    QFile::remove(configFile());
    EXPECT_TRUE(mgr->loadJsonConfig());
    EXPECT_EQ(mgr->getItemConfig(1).name, QStringLiteral("kept"));
}

TEST_F(LineScanMgr, ReadsItsOwnFileAlone)
{
    const QByteArray content = R"({"enableConfig": [{"itemId": 1, "name": "x"}]})";
    for (const char *const other :
         {"baseline.json", "etc/tavsec.d/baseline.json", "etc/tavsec.d/baselineConfig/Baseline.json",
          "etc/tavsec/baselineConfig/baseline.json", "opt/tavsec/baseline.json"}) {
        writeFile(root.filePath(QLatin1String(other)), content);
    }
    EXPECT_TRUE(mgr->loadJsonConfig());
    EXPECT_EQ(row(mgr->getItemConfig(1)), defaultItem);
}

TEST_F(LineScanMgr, ReadsTheItemsOfAnyId)
{
    loadItems(R"({"itemId": -5, "name": "below"}, {"itemId": 2147483647, "name": "last"},
                 {"itemId": 3, "name": "three"}, {"itemId": 1, "name": "one"})");
    EXPECT_EQ(mgr->getItemConfig(-5).name, QStringLiteral("below"));
    EXPECT_EQ(mgr->getItemConfig(1).name, QStringLiteral("one"));
    EXPECT_EQ(mgr->getItemConfig(3).name, QStringLiteral("three"));
    EXPECT_EQ(mgr->getItemConfig(intMax).name, QStringLiteral("last"));
}

TEST_F(LineScanMgr, AnswersWithADefaultItemForAnUnknownId)
{
    loadItems(R"({"itemId": 1, "name": "one"}, {"itemId": 3, "name": "three"})");
    for (const int id : {0, 2, 4, -1, intMin, intMax}) {
        EXPECT_EQ(row(mgr->getItemConfig(id)), defaultItem) << id;
    }
}

TEST_F(LineScanMgr, LookUpsDoNotDisturbALaterLoad)
{
    EXPECT_EQ(row(mgr->getItemConfig(1)), defaultItem);
    loadItems(R"({"itemId": 1, "name": "one"})");
    EXPECT_EQ(mgr->getItemConfig(1).name, QStringLiteral("one"));
}

TEST_F(LineScanMgr, HandsOutCopiesOfItems)
{
    loadItems(R"({"itemId": 1, "name": "one"})");
    STBLEnableConfig item = mgr->getItemConfig(1);
    item.name = QStringLiteral("changed");
    item.extraText = QStringLiteral("changed");
    EXPECT_EQ(row(mgr->getItemConfig(1)), (ItemRow{"one", 1, "", "", "", scriptDirectory, "", 0}));
}

TEST_F(LineScanMgr, EveryOperationWaitsWhileTheFileIsRead)
{
    writeFile(configFile(), R"({"enableConfig": [{"itemId": 1, "name": "one"}]})");
    HeldReading reading;
    std::thread loading([this] { mgr->loadJsonConfig(); });
    EXPECT_TRUE(reading.awaitReader());
    {
        const BackgroundCalls calls({
            [this] { mgr->setLineScanContent({}); },
            [this] { static_cast<void>(mgr->getLineScanContent()); },
            [this] { mgr->setLineCount({}); },
            [this] { static_cast<void>(mgr->getLineCount()); },
            [this] { mgr->setscanState({}); },
            [this] { static_cast<void>(mgr->getscanState()); },
            [this] { mgr->setScanItemConfigErr({}); },
            [this] { static_cast<void>(mgr->getScanItemConfigErr()); },
            [this] { mgr->setLineLevel({}); },
            [this] { static_cast<void>(mgr->getLineLevel()); },
            [this] { static_cast<void>(mgr->getItemConfig(1)); },
        });
        EXPECT_THAT(calls.returned(), IsEmpty());
        reading.release();
    }
    loading.join();
    EXPECT_EQ(mgr->getItemConfig(1).name, QStringLiteral("one"));
}

TEST_F(LineScanMgr, ReadersSeeWholeItemsWhileItLoads)
{
    constexpr int items = 500;
    constexpr int loads = 20;
    const auto file = [](const QByteArray &text) {
        QByteArray elements;
        for (int id = 0; id < items; ++id) {
            elements += QByteArray(id ? "," : "") + R"({"itemId": )" + QByteArray::number(id) + R"(, "name": ")" + text
                + R"(", "standardValue": ")" + text + R"(", "desc": ")" + text + "\"}";
        }
        return QByteArray(R"({"enableConfig": [)" + elements + "]}");
    };
    const QByteArray files[] = {file("one"), file("another")};
    load(files[0]);

    std::atomic<bool> ended = false;
    std::atomic<int> mixed = 0;
    const auto read = [&] {
        while (!ended) {
            for (int id = 0; id < items; ++id) {
                const STBLEnableConfig item = mgr->getItemConfig(id);
                mixed += item.itemId != id || item.name.isEmpty() || item.name != item.standardValue
                    || item.name != item.desc;
            }
        }
    };
    std::thread one(read);
    std::thread other(read);
    for (int i = 1; i <= loads; ++i) {
        load(files[i % 2]);
    }
    ended = true;
    one.join();
    other.join();
    EXPECT_EQ(mixed, 0);
}
