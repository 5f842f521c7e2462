#include "PageValues.h"

#include "BaselineList.h"
#include "CheckedLevel.h"
#include "MessageTable.h"
#include "RecordTable.h"
#include "TavOperations.h"

#include <QCoreApplication>
#include <QHash>

/// @brief How many objects a manager counts under a key, which is not part of what its getter returns.
struct ObjectCount {
    bool flag;
    int key;
    int count;
};

template<>
struct TavFields::Table<ObjectCount> {
    static constexpr auto list = std::tuple{field<&ObjectCount::flag>("flag"), field<&ObjectCount::key>("key"),
                                            field<&ObjectCount::count>("count")};
};

template<>
struct TavFields::Table<CheckedLevel> {
    static constexpr auto list = std::tuple{field<&CheckedLevel::level>("level")};
};

namespace
{
QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), static_cast<int>(view.size()));
}

template<class Value>
QVector<PartTable> tablesOf(const Value &value)
{
    if constexpr (std::is_same_v<Value, int>) {
        return {{{}, std::make_shared<RecordTable<CheckedLevel>>(CheckedLevel{value})}};
    } else if constexpr (TavJson::isList<Value>) {
        return {{{}, std::make_shared<RecordTable<typename Value::value_type>>(value)}};
    } else if constexpr (TavJson::isMessage<Value>) {
        const auto message = std::make_shared<const Value>(value);
        QVector<PartTable> tables{{{}, std::make_shared<MessageTable>(message)}};
        if (tables.constFirst().table->columns().isEmpty()) {
            tables.clear(); // the message is nothing but its lists
        }
        for (const auto *const list : MessageTable::listsIn(value)) {
            tables.append({QString::fromStdString(list->name()), std::make_shared<MessageTable>(message, list)});
        }
        return tables;
    } else {
        return {{{}, std::make_shared<RecordTable<Value>>(value)}};
    }
}

template<class Interface>
Interface *managerIn(ITavObjectMgr &registry)
{
    return qobject_cast<Interface *>(registry.getObject(tavManagerKey(qobject_interface_iid<Interface *>())));
}

template<auto Getter>
QVector<PartTable> read(ITavObjectMgr &registry)
{
    auto *const manager = managerIn<typename TavOperations::Operation<Getter>::Interface>(registry);
    return manager ? tablesOf((manager->*Getter)()) : QVector<PartTable>();
}

/// The value that @p Getter returns.
template<auto Getter>
PageValue value(const char *title)
{
    using Operation = TavOperations::Operation<Getter>;
    using Interface = typename Operation::Interface;
    const auto &getter = std::get<Operation>(TavOperations::Table<Interface>::list);
    PageValue value{title, qobject_interface_iid<Interface *>(), text(getter.name), read<Getter>};
    TavOperations::forEachOperation<Interface>([&](const auto &operation) {
        if (operation.editedList == getter.name) {
            value.rowEdit = text(operation.name);
        }
    });
    return value;
}

template<class Values, std::size_t... i>
Values valuesOf(const QJsonArray &key, std::index_sequence<i...>)
{
    return {TavJson::fromJson<std::tuple_element_t<i, Values>>(key[int(i)])...};
}

template<auto Getter>
QVector<PartTable> readKey(ITavObjectMgr &registry, const QJsonArray &key)
{
    using Operation = TavOperations::Operation<Getter>;
    auto *const manager = managerIn<typename Operation::Interface>(registry);
    const auto ask = [manager](auto... values) { return tablesOf((manager->*Getter)(values...)); };
    const auto indexes = std::make_index_sequence<Operation::argumentCount>();
    return manager ? std::apply(ask, valuesOf<typename Operation::Values>(key, indexes)) : QVector<PartTable>();
}

/// The value that @p Whole returns; @p OfKey returns the part of it that is held under a key.
template<auto Whole, auto OfKey>
PageValue keyedValue(const char *title)
{
    using Operation = TavOperations::Operation<OfKey>;
    PageValue keyed = value<Whole>(title);
    for (const std::string_view name :
         std::get<Operation>(TavOperations::Table<typename Operation::Interface>::list).argumentNames) {
        keyed.keyNames.append(text(name));
    }
    keyed.readKeyFrom = readKey<OfKey>;
    return keyed;
}

/// The items of the configuration file: the manager is asked for them one by one.
QVector<PartTable> readBaselineItems(ITavObjectMgr &registry)
{
    auto *const manager = managerIn<ITavLineScanMgr>(registry);
    if (!manager) {
        return {};
    }
    QVector<STBLEnableConfig> items;
    const QVector<int> ids = BaselineList::idsOf(BaselineList::read());
    for (const int id : ids) {
        if (const STBLEnableConfig item = manager->getItemConfig(id); item.itemId == id) {
            items.append(item); // otherwise the manager has none yet and has answered with an empty one
        }
    }
    return tablesOf(items);
}

QVector<PartTable> readObjectCounts(ITavObjectMgr &registry, const QVector<QJsonArray> &keys)
{
    auto *const manager = managerIn<ITavAccessControlMgr>(registry);
    if (!manager) {
        return {};
    }
    QVector<ObjectCount> counts;
    for (const QJsonArray &set : keys) {
        const bool flag = set[0].toBool();
        const int key = set[1].toInt();
        counts.append({flag, key, manager->getObjectCount(flag, key)});
    }
    return tablesOf(counts);
}

/// Counts that can be asked for key by key only: who knows no keys sees none.
PageValue objectCounts(const char *title)
{
    PageValue counts{title, qobject_interface_iid<ITavAccessControlMgr *>(), "getObjectCount",
                     [](ITavObjectMgr &) { return QVector<PartTable>(); }};
    counts.readKeysFrom = readObjectCounts;
    return counts;
}

using Page = CTavSubFuncTypeHeader;
using Access = ITavAccessControlMgr;
using Audit = ITavAuditMgr;
using Host = ITavHostInfoMgr;
using Measure = ITavCompleteProtectMgr;
using Net = ITavNetControlMgr;
using Protect = ITavProtectMgr;
using Reinforce = ITavOneReinforceMgr;
using Scan = ITavLineScanMgr;
using TavOperations::overload;

// One value a line. A keyed table can be read as a whole: asking for a key that is not there would leave it behind.
// clang-format off

QHash<int, QVector<PageValue>> allPages()
{
    return {
        {Page::SubFunc_serverResourceInfo, {
            value<&Host::getResourceInfo>(QT_TRANSLATE_NOOP("PageValues", "Host")),
            value<&Host::getKernelSigState>(QT_TRANSLATE_NOOP("PageValues", "Kernel signature")),
            value<&ITavSystemConfigMgr::getServerInfo>(QT_TRANSLATE_NOOP("PageValues", "Server")),
            value<&ITavSystemConfigMgr::getOnlineState>(QT_TRANSLATE_NOOP("PageValues", "Online state")),
            value<&ITavAuthInfoMgr::getLoginCheck>(QT_TRANSLATE_NOOP("PageValues", "Log-in")),
            value<&ITavAuthInfoMgr::getPwdChange>(QT_TRANSLATE_NOOP("PageValues", "Password change")),
            value<&ITavDevCtlMgr::getUsbInfoList>(QT_TRANSLATE_NOOP("PageValues", "USB")),
            value<&ITavDevCtlMgr::getFuncEnableInfo>(QT_TRANSLATE_NOOP("PageValues", "Device functions")),
            value<&Net::getNetCount>(QT_TRANSLATE_NOOP("PageValues", "Network control")),
            value<&Net::getDeviceInfo>(QT_TRANSLATE_NOOP("PageValues", "Network"))
                .toggledBy("reverseDeviceState", "reverseDevicesState"),
            value<&Net::getRuleInfo>(QT_TRANSLATE_NOOP("PageValues", "Network rules")),
            value<&Net::getState>(QT_TRANSLATE_NOOP("PageValues", "Last network command")),
            value<&Net::getUIData>(QT_TRANSLATE_NOOP("PageValues", "Network rows"))
                .byPosition().checkedBy("setAllCheck"),
        }},
        {Page::SubFunc_OneClickReinforcement, {
            value<&Reinforce::getreinforceMode>(QT_TRANSLATE_NOOP("PageValues", "Mode")),
            value<&Reinforce::getthreeConfig>(QT_TRANSLATE_NOOP("PageValues", "Three-part configuration")),
            value<&Reinforce::getreforcePolicy>(QT_TRANSLATE_NOOP("PageValues", "Policy")),
            value<&Reinforce::getReforceFinishState>(QT_TRANSLATE_NOOP("PageValues", "Finish state")),
            value<&Reinforce::getSecswitchContent>(QT_TRANSLATE_NOOP("PageValues", "Security switches")),
            value<&Reinforce::getStateInfo>(QT_TRANSLATE_NOOP("PageValues", "States")),
        }},
        {Page::SubFunc_BaselineScan, {
            {QT_TRANSLATE_NOOP("PageValues", "Check items"), "ITavLineScanMgr", "getItemConfig", readBaselineItems},
            value<&Scan::getscanState>(QT_TRANSLATE_NOOP("PageValues", "Scan state")),
            value<&Scan::getLineCount>(QT_TRANSLATE_NOOP("PageValues", "Scan counts")),
            value<&Scan::getLineScanContent>(QT_TRANSLATE_NOOP("PageValues", "Scan content")),
            value<&Scan::getScanItemConfigErr>(QT_TRANSLATE_NOOP("PageValues", "Configuration errors")),
            value<&Scan::getLineLevel>(QT_TRANSLATE_NOOP("PageValues", "Level")),
        }},
        {Page::SubFunc_StaticMeasurements, {
            value<&Measure::getSystemScanState>(QT_TRANSLATE_NOOP("PageValues", "Scan")),
            value<&Measure::getCurPathState>(QT_TRANSLATE_NOOP("PageValues", "Current path")),
            value<&Measure::getSingleScanId>(QT_TRANSLATE_NOOP("PageValues", "Single scan")),
            value<&Measure::getImaState>(QT_TRANSLATE_NOOP("PageValues", "Kernel measurement")),
            value<&Measure::getImaInitState>(QT_TRANSLATE_NOOP("PageValues", "Initialised")),
            value<&Measure::getImaCount>(QT_TRANSLATE_NOOP("PageValues", "Measurement count")),
            value<&Measure::getImaList>(QT_TRANSLATE_NOOP("PageValues", "Measurements")),
        }},
        {Page::SubFunc_DynamicMeasurements, {
            value<&Measure::getDySCanState>(QT_TRANSLATE_NOOP("PageValues", "Scan state")),
            value<&Measure::getDyTimeInterval>(QT_TRANSLATE_NOOP("PageValues", "Interval")),
            value<&Measure::getCompleteMeasure>(QT_TRANSLATE_NOOP("PageValues", "Measurement")),
            value<&Measure::getCredibleMode>(QT_TRANSLATE_NOOP("PageValues", "Trusted mode")),
            value<&Measure::getCredibleCount>(QT_TRANSLATE_NOOP("PageValues", "Trusted count")),
            value<&Measure::getCredibleList>(QT_TRANSLATE_NOOP("PageValues", "Trusted list")),
            value<&Measure::getCredibleVecUI>(QT_TRANSLATE_NOOP("PageValues", "Trusted rows")),
        }},
        {Page::SubFunc_PrincipalSettings, {
            value<&Access::getSystemUsers>(QT_TRANSLATE_NOOP("PageValues", "System users")),
            keyedValue<overload<QVector<STPriDetailAsr>()>(&Access::getUserDetail),
                       overload<QVector<STPriDetailAsr>(int)>(&Access::getUserDetail)>(
                QT_TRANSLATE_NOOP("PageValues", "Principal details")),
            value<&Access::getUIPriData>(QT_TRANSLATE_NOOP("PageValues", "Principal levels")).exclusive(),
            value<&Access::getCheckPriLevel>(QT_TRANSLATE_NOOP("PageValues", "Checked principal level")),
            value<&Access::getModeConfig>(QT_TRANSLATE_NOOP("PageValues", "Mode")),
            value<&Access::getState>(QT_TRANSLATE_NOOP("PageValues", "Last command")),
        }},
        {Page::SubFunc_ObjectSetting, {
            keyedValue<overload<QVector<STObjectDetailAsr>()>(&Access::getObjectDetail),
                       overload<QVector<STObjectDetailAsr>(int, bool)>(&Access::getObjectDetail)>(
                QT_TRANSLATE_NOOP("PageValues", "Object details")),
            objectCounts(QT_TRANSLATE_NOOP("PageValues", "Object counts")),
            value<&Access::getUIObjectData>(QT_TRANSLATE_NOOP("PageValues", "Object levels")).exclusive(),
            value<&Access::getCheckObjectLevel>(QT_TRANSLATE_NOOP("PageValues", "Checked object level")),
        }},
        {Page::SubFunc_PrincipalAdd, {
            value<&Access::getUIUsers>(QT_TRANSLATE_NOOP("PageValues", "Principals to add"))
                .uncheckedBy("uncheckAllUIUsers"),
        }},
        {Page::SubFunc_ObjectAdd, {
            value<&Access::getUIFiles>(QT_TRANSLATE_NOOP("PageValues", "Files to add")),
        }},
        {Page::SubFunc_SelfProtect, {
            value<&Protect::getSelfState>(QT_TRANSLATE_NOOP("PageValues", "Self protection")),
            value<&Protect::getSoftUnloadMode>(QT_TRANSLATE_NOOP("PageValues", "Removal of software")),
            value<&Protect::getProtectUIData>(QT_TRANSLATE_NOOP("PageValues", "Protections")).checkedBy("setUIAllCheck"),
            value<&Protect::getSoftUnloadCount>(QT_TRANSLATE_NOOP("PageValues", "Protected software count")),
            value<&Protect::getSoftUnloadContent>(QT_TRANSLATE_NOOP("PageValues", "Protected software")),
        }},
        {Page::SubFunc_ProcessProtect, {
            value<&Protect::getProState>(QT_TRANSLATE_NOOP("PageValues", "Process protection")),
            value<&Protect::getProCount>(QT_TRANSLATE_NOOP("PageValues", "Process count")),
            value<&Protect::getProContentList>(QT_TRANSLATE_NOOP("PageValues", "Processes")),
            value<&ITavProExceptionMgr::getPriException>(QT_TRANSLATE_NOOP("PageValues", "Process exceptions")),
            value<&ITavProExceptionMgr::getUIData>(QT_TRANSLATE_NOOP("PageValues", "Exception rows")),
        }},
        {Page::SubFunc_KernelProtect, {
            value<&Protect::getKernelState>(QT_TRANSLATE_NOOP("PageValues", "Kernel protection")),
            value<&Protect::getKernelBlkMode>(QT_TRANSLATE_NOOP("PageValues", "Blocking of modules")),
            value<&Protect::getKernelCount>(QT_TRANSLATE_NOOP("PageValues", "Module count")),
            value<&Protect::getKernelContent>(QT_TRANSLATE_NOOP("PageValues", "Kernel modules")),
            value<&Protect::getKernelBlkContent>(QT_TRANSLATE_NOOP("PageValues", "Blocked modules")),
        }},
        {Page::SubFunc_KeyDirAmperProof, {
            value<&Protect::getDirState>(QT_TRANSLATE_NOOP("PageValues", "Directory protection")),
            value<&Protect::getFileState>(QT_TRANSLATE_NOOP("PageValues", "File protection")),
            value<&Protect::getDirCount>(QT_TRANSLATE_NOOP("PageValues", "Directory count")),
            value<&Protect::getFileCount>(QT_TRANSLATE_NOOP("PageValues", "File count")),
            value<&Protect::getDirContent>(QT_TRANSLATE_NOOP("PageValues", "Directories")),
            value<&Protect::getFileContent>(QT_TRANSLATE_NOOP("PageValues", "Files")),
            value<&Protect::getProtoCount>(QT_TRANSLATE_NOOP("PageValues", "Protected objects")),
            value<&Protect::getFileSmash>(QT_TRANSLATE_NOOP("PageValues", "File destruction")),
        }},
        {Page::SubFunc_LogAudit, {
            value<&Audit::getAuditCount>(QT_TRANSLATE_NOOP("PageValues", "Total")),
            value<&Audit::getAuditTypeCount>(QT_TRANSLATE_NOOP("PageValues", "By type")),
            value<&Audit::getAuditMonthCount>(QT_TRANSLATE_NOOP("PageValues", "By month")),
            value<&Audit::getAuditMonthFailCount>(QT_TRANSLATE_NOOP("PageValues", "Failures by month")),
            value<&Audit::getAuditContent>(QT_TRANSLATE_NOOP("PageValues", "Entries")),
        }},
    };
}

// clang-format on
}

PageValue PageValue::byPosition() const
{
    PageValue marked = *this;
    marked.isByPosition = true;
    return marked;
}

PageValue PageValue::exclusive() const
{
    PageValue marked = *this;
    marked.isExclusive = true;
    return marked;
}

PageValue PageValue::checkedBy(const char *operation) const
{
    PageValue marked = *this;
    marked.checkAll = operation;
    return marked;
}

PageValue PageValue::uncheckedBy(const char *operation) const
{
    PageValue marked = *this;
    marked.uncheckAll = operation;
    return marked;
}

PageValue PageValue::toggledBy(const char *row, const char *all) const
{
    PageValue marked = *this;
    marked.toggleRow = row;
    marked.toggleAll = all;
    return marked;
}

const QVector<PageValue> &valuesOf(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    static const QHash<int, QVector<PageValue>> all = allPages();
    static const QVector<PageValue> none;
    const auto found = all.constFind(page);
    return found == all.constEnd() ? none : *found;
}

void determineHeldValues()
{
    TavOperations::forEachPair([](const auto &setter, const auto &getter) {
        using Setter = std::decay_t<decltype(setter)>;
        if (!getter.isIndeterminateAtFirst) {
            return;
        }
        if (auto *const manager = tavObject<typename Setter::Interface>()) {
            (manager->*Setter::member)(typename std::decay_t<decltype(getter)>::Result{});
        }
    });
}
