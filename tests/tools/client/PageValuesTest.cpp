#include "PageValues.h"

#include "CellText.h"
#include "ExtremeValue.h"
#include "GlobalStateGuard.h"
#include "ITavAccessControlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "JsonSchema.h"
#include "PrintQString.h"
#include "TavCall.h"
#include "TavOperations.h"
#include "TavPluginHost.h"
#include "ValueJson.h"

#include <QMetaEnum>

#include <gtest/gtest.h>

namespace
{
QVector<PageValue> allValues()
{
    QVector<PageValue> all;
    const QMetaEnum keys = QMetaEnum::fromType<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>();
    for (int i = 0; i < keys.keyCount(); ++i) {
        all += valuesOf(static_cast<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>(keys.value(i)));
    }
    return all;
}

/// "manager getter" of each.
template<class Values>
QStringList gettersOf(const Values &values)
{
    QStringList getters;
    for (const auto &value : values) {
        getters.append(value.manager + ' ' + value.getter);
    }
    getters.sort();
    return getters;
}

const ValueTable &tableOf(const QVector<PageValue> &values, const QString &getter, const QString &part = {})
{
    for (const PageValue &value : values) {
        if (value.getter != getter) {
            continue;
        }
        static QVector<PartTable> tables;
        tables = value.read();
        for (const PartTable &table : tables) {
            if (table.part == part) {
                return *table.table;
            }
        }
    }
    throw std::runtime_error("no such table: " + getter.toStdString());
}

class PageValues : public testing::Test
{
protected:
    GlobalStateGuard guard;
    TavPluginHost host{TAV_PLUGIN_FILE};
};
}

TEST_F(PageValues, LeaveOutNothingThatAManagerHolds)
{
    const QStringList shown = gettersOf(allValues());
    const QStringList held = gettersOf(TavCall::heldValues());
    for (const QString &getter : held) {
        // The selection is the navigation's, no page's.
        if (!getter.startsWith("ITavSelectFuncMgr")) {
            EXPECT_EQ(shown.count(getter), 1) << getter.toStdString();
        }
    }
}

TEST_F(PageValues, KnowEveryOperationThatEditsARow)
{
    QHash<QString, QString> edits;
    const QVector<PageValue> all = allValues();
    for (const PageValue &value : all) {
        edits.insert(value.manager + ' ' + value.getter, value.rowEdit);
    }
    TavOperations::forEachOperation([&](const auto &operation) {
        using Interface = typename std::decay_t<decltype(operation)>::Interface;
        if (!operation.editedList.empty()) {
            const auto getter = QString::fromUtf8(operation.editedList.data(), int(operation.editedList.size()));
            EXPECT_EQ(edits[qobject_interface_iid<Interface *>() + (' ' + getter)].toStdString(), operation.name);
        }
    });
}

TEST_F(PageValues, NameEditsThatTheirManagersHave)
{
    const QVector<PageValue> all = allValues();
    for (const PageValue &value : all) {
        QStringList operations{QString()};
        for (const TavCall::Operation &operation : TavCall::operationsOf(value.manager)) {
            operations.append(operation.name);
        }
        const QStringList edits{value.getter,     value.rowEdit,   value.checkAll,
                                value.uncheckAll, value.toggleRow, value.toggleAll};
        for (const QString &edit : edits) {
            EXPECT_TRUE(operations.contains(edit)) << edit.toStdString();
        }
    }
}

TEST_F(PageValues, ReadWhatWasSetAtTheLimitsOfEachType)
{
    for (int seed = 0; seed < ExtremeValue::seedCount; ++seed) {
        TavOperations::forEachPair([&](const auto &setter, const auto &) {
            using Setter = std::decay_t<decltype(setter)>;
            using Value = std::tuple_element_t<0, typename Setter::Values>;
            auto *const manager = host.manager<typename Setter::Interface>();
            (manager->*Setter::member)(ExtremeValue::make<Value>(seed));
        });
        QJsonArray tables;
        const QVector<PageValue> all = allValues();
        for (const PageValue &value : all) {
            for (const PartTable &part : value.read()) {
                const ValueTable &table = *part.table;
                tables.append(QJsonObject{{"title", value.title},
                                          {"manager", value.manager},
                                          {"getter", value.getter},
                                          {"part", part.part},
                                          {"list", table.isList()},
                                          {"columns", ValueJson::columns(table)},
                                          {"rows", ValueJson::rows(table)}});
                for (int row = 0; row < table.rowCount(); ++row) {
                    for (int column = 0; column < table.columns().size(); ++column) {
                        const QVariant cell = table.cell(row, column);
                        EXPECT_TRUE(!cell.isValid() || cell == table.cell(row, column));
                        CellText::ofKind(table.columns()[column].kind, cell);
                    }
                }
            }
        }
        const QJsonObject document{
            {"tavPages", 1},
            {"played", QJsonObject{{"calls", 0}, {"compared", 0}, {"seconds", 0}, {"cutLine", 0}, {"stopped", false}}},
            {"pages", QJsonArray{QJsonObject{{"type", "x"}, {"tables", tables}}}}};
        EXPECT_EQ(schemaFindings("pages", document), "") << seed;
    }
}

TEST_F(PageValues, ShowKeyedTablesAsAWholeWithoutLeavingKeysBehind)
{
    auto *const access = host.manager<ITavAccessControlMgr>();
    STObjectDetailAsr object{};
    object.level = 3;
    access->updateObjectDetail(5, true, {object});
    access->updateObjectDetail(5, false, {object, object});
    const ValueTable &table = tableOf(valuesOf(CTavSubFuncTypeHeader::SubFunc_ObjectSetting), "getObjectDetail");
    EXPECT_EQ(table.rowCount(), 3);
    EXPECT_EQ(table.cell(0, table.column("level")), QVariant(3));
}

TEST_F(PageValues, ShowWhatAKeyedTableHoldsUnderOneKey)
{
    auto *const access = host.manager<ITavAccessControlMgr>();
    const STObjectDetailAsr object{};
    access->updateObjectDetail(5, true, {object});
    access->updateObjectDetail(5, false, {object, object});
    for (const PageValue &value : valuesOf(CTavSubFuncTypeHeader::SubFunc_ObjectSetting)) {
        EXPECT_EQ(value.readKeyFrom != nullptr, value.getter == "getObjectDetail");
        if (value.readKeyFrom) {
            EXPECT_EQ(value.keyNames, (QStringList{"key", "flag"}));
            EXPECT_EQ(value.readKeyFrom(host.registry(), {5, true}).constFirst().table->rowCount(), 1);
            EXPECT_EQ(value.readKeyFrom(host.registry(), {5, false}).constFirst().table->rowCount(), 2);
        }
    }
}

TEST_F(PageValues, HaveNoCheckItemsBeforeTheManagerHasReadThem)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(TAV_SOURCE_DIR "/share/demo");
    const QVector<PageValue> &values = valuesOf(CTavSubFuncTypeHeader::SubFunc_BaselineScan);
    EXPECT_EQ(tableOf(values, "getItemConfig").rowCount(), 0);
    host.manager<ITavLineScanMgr>()->loadJsonConfig();
    const ValueTable &items = tableOf(values, "getItemConfig");
    EXPECT_GT(items.rowCount(), 0);
    EXPECT_FALSE(items.cell(0, items.column("name")).toString().isEmpty());
}

TEST_F(PageValues, TellThatNoLevelIsChecked)
{
    const struct {
        CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page;
        QString getter;
    } levels[]{{CTavSubFuncTypeHeader::SubFunc_PrincipalSettings, "getCheckPriLevel"},
               {CTavSubFuncTypeHeader::SubFunc_ObjectSetting, "getCheckObjectLevel"}};
    for (const auto &level : levels) {
        const ValueTable &table = tableOf(valuesOf(level.page), level.getter);
        EXPECT_EQ(CellText::of(table.columns().first(), table.cell(0, 0)), "-1 (none)");
        EXPECT_EQ(CellText::of(table.columns().first(), 3), "3");
    }
}

TEST_F(PageValues, ShowTheListsOfAMessageAsTablesOfTheirOwn)
{
    Tav::HostInfo::SystemFileStateAsr state;
    state.set_state(2);
    state.add_files()->set_path("/boot/vmlinuz");
    host.manager<ITavHostInfoMgr>()->setKernelSigState(state);
    const QVector<PageValue> &values = valuesOf(CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
    const ValueTable &own = tableOf(values, "getKernelSigState");
    EXPECT_EQ(own.cell(0, own.column("state")), QVariant(2));
    EXPECT_EQ(own.column("files"), -1);
    const ValueTable &files = tableOf(values, "getKernelSigState", "files");
    EXPECT_EQ(files.cell(0, files.column("path")), QVariant("/boot/vmlinuz"));
}

TEST_F(PageValues, AreDeterminedBeforeTheyAreFed)
{
    STResourceInfoAsr other{};
    other.cpuCores = 7;
    host.manager<ITavHostInfoMgr>()->setResourceInfo(other); // as good as what the memory held
    determineHeldValues();
    EXPECT_EQ(host.manager<ITavHostInfoMgr>()->getResourceInfo().cpuCores, 0);
}

TEST(PageValuesWithoutPlugin, AreNone)
{
    for (const PageValue &value : allValues()) {
        EXPECT_TRUE(value.read().isEmpty()) << value.getter.toStdString();
    }
}
