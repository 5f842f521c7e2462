#pragma once

#include "ITavAccessControlMgr.h"
#include "ITavAuditMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavFuncTypeMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavPicResourceMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSelectFuncMgr.h"
#include "ITavSystemConfigMgr.h"
#include "TavTypeList.h"

#include <array>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/**
 * @brief Every operation of every manager, each once: its member, its name, the names of its arguments.
 *
 * Whoever needs "all operations" or "all held values" at compile time visits them here; at run time, by name and with
 * JSON, TavCall.h does. A new operation takes one line in its interface's table, at the place it has in the interface.
 */
namespace TavOperations
{
template<class Member>
struct Signature;

/// @brief The types of a member function.
template<class Class, class ResultType, class... Types>
struct Signature<ResultType (Class::*)(Types...)> {
    using Interface = Class; ///< whose member it is
    using Result = ResultType; ///< what it returns
    using Function = ResultType(Types...); ///< the same without the class
    using Arguments = std::tuple<Types...>; ///< as the interface declares them, references included
    using Values = std::tuple<std::decay_t<Types>...>; ///< what a caller holds to pass them
};

/// Whether a function of this type takes one value, by reference, and returns nothing.
template<class Function>
constexpr bool isSetter = false;
/// One that does.
template<class Value>
constexpr bool isSetter<void(const Value &)> = true;

/// @brief One operation. Its member, interface, result and arguments are known at compile time, too.
template<auto Member>
struct Operation : Signature<decltype(Member)> {
    static constexpr auto member = Member; ///< pointer to the operation
    static constexpr std::size_t argumentCount
        = std::tuple_size_v<typename Operation::Arguments>; ///< how many it takes

    std::string_view name; ///< the operation's name
    std::array<std::string_view, argumentCount> argumentNames; ///< in their order
    bool isIndeterminateAtFirst = false; ///< returns whatever the memory held until the setter has been called once
    std::string_view editedList = {}; ///< name of the getter of the list of which it overwrites one row; empty for none
    std::string_view foundBy = {}; ///< the fields by which it finds that row

    /// The same, marked: it is a getter whose value the plugin leaves indeterminate.
    constexpr Operation indeterminateAtFirst() const
    {
        Operation marked = *this;
        marked.isIndeterminateAtFirst = true;
        return marked;
    }

    /// The same, marked: it overwrites the row of the list of @p getter that has the fields @p key.
    constexpr Operation overwritesRowOf(std::string_view getter, std::string_view key) const
    {
        Operation marked = *this;
        marked.editedList = getter;
        marked.foundBy = key;
        return marked;
    }
};

/// One entry of a table.
template<auto Member, class... Names>
constexpr Operation<Member> op(std::string_view name, Names... argumentNames)
{
    static_assert(sizeof...(Names) == Operation<Member>::argumentCount, "one name for each argument");
    return {{}, name, {argumentNames...}};
}

/// Chooses among operations that share a name, by their function type.
template<class Function, class Class>
constexpr auto overload(Function Class::*member)
{
    return member;
}

/// The operations of one interface, in its order: `Table<Interface>::list` is a tuple of Operation.
template<class Interface>
struct Table;

// One entry a line, in short tables, too.
// clang-format off

template<>
struct Table<ITavFuncTypeMgr> {
    using I = ITavFuncTypeMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::loadIniConfig>("loadIniConfig"),
        op<&I::loadConfig>("loadConfig"),
        op<&I::getFuncInfoData>("getFuncInfoData", "funcType"),
        op<&I::getFuncInfos>("getFuncInfos"),
        op<overload<QVector<TavSubFuncTypeData_>(const CTavFuncTypeHeader::TavFuncTypeHeader_ &)>(&I::getSubFuncInfo)>(
            "getSubFuncInfo", "funcType"),
        op<overload<TavSubFuncTypeData_(const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &)>(&I::getSubFuncInfo)>(
            "getSubFuncInfo", "subFuncType"),
        op<overload<QVector<TavSubFuncTypeData_>()>(&I::getSubFuncInfo)>("getSubFuncInfo"),
        op<&I::getFirstSubFuncType>("getFirstSubFuncType", "funcType"),
    };
};

template<>
struct Table<ITavPicResourceMgr> {
    using I = ITavPicResourceMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::getImageRef>("getImageRef", "dirName", "imageName"),
        op<&I::appendPicResourcePath>("appendPicResourcePath", "dirPath"),
    };
};

template<>
struct Table<ITavSelectFuncMgr> {
    using I = ITavSelectFuncMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setCurSelFuncType>("setCurSelFuncType", "funcType"),
        op<&I::getCurSelFuncType>("getCurSelFuncType"),
        op<&I::setCurSelSubFuncType>("setCurSelSubFuncType", "subFuncType"),
        op<&I::getCurSelSubFuncType>("getCurSelSubFuncType"),
        op<&I::setCurSelType>("setCurSelType", "funcType", "subFuncType"),
    };
};

template<>
struct Table<ITavAccessControlMgr> {
    using I = ITavAccessControlMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::updateSystemUsers>("updateSystemUsers", "users"),
        op<&I::getSystemUsers>("getSystemUsers"),
        op<&I::updateUIUsers>("updateUIUsers", "users"),
        op<&I::getUIUsers>("getUIUsers"),
        op<&I::updateUIUser>("updateUIUser", "user").overwritesRowOf("getUIUsers", "userName"),
        op<&I::uncheckAllUIUsers>("uncheckAllUIUsers"),
        op<&I::getCheckObjectLevel>("getCheckObjectLevel"),
        op<&I::updateUserDetail>("updateUserDetail", "key", "details"),
        op<overload<QVector<STPriDetailAsr>(int)>(&I::getUserDetail)>("getUserDetail", "key"),
        op<overload<QVector<STPriDetailAsr>()>(&I::getUserDetail)>("getUserDetail"),
        op<&I::getCheckPriLevel>("getCheckPriLevel"),
        op<&I::hasUserDetail>("hasUserDetail", "userName"),
        op<overload<void(const QVector<STAccessSetUIData> &)>(&I::updateUIPriData)>("updateUIPriData", "levels"),
        op<overload<void(const STAccessSetUIData &)>(&I::updateUIPriData)>("updateUIPriData", "level")
            .overwritesRowOf("getUIPriData", "level"),
        op<&I::getUIPriData>("getUIPriData"),
        op<&I::updateObjectDetail>("updateObjectDetail", "key", "flag", "details"),
        op<overload<QVector<STObjectDetailAsr>(int, bool)>(&I::getObjectDetail)>("getObjectDetail", "key", "flag"),
        op<overload<QVector<STObjectDetailAsr>()>(&I::getObjectDetail)>("getObjectDetail"),
        op<overload<void(const QVector<STAccessSetUIData> &)>(&I::updateUIObjectData)>("updateUIObjectData", "levels"),
        op<overload<void(const STAccessSetUIData &)>(&I::updateUIObjectData)>("updateUIObjectData", "level")
            .overwritesRowOf("getUIObjectData", "level"),
        op<&I::getUIObjectData>("getUIObjectData"),
        op<&I::updateUIFiles>("updateUIFiles", "files"),
        op<&I::getUIFiles>("getUIFiles"),
        op<&I::updateUIFile>("updateUIFile", "file").overwritesRowOf("getUIFiles", "fileName and filePath"),
        op<&I::setObjectCount>("setObjectCount", "count", "flag", "key"),
        op<&I::getObjectCount>("getObjectCount", "flag", "key"),
        op<&I::setModeConfig>("setModeConfig", "config"),
        op<&I::getModeConfig>("getModeConfig"),
        op<&I::setState>("setState", "state"),
        op<&I::getState>("getState"),
        op<&I::clearCacheData>("clearCacheData"),
    };
};

template<>
struct Table<ITavCompleteProtectMgr> {
    using I = ITavCompleteProtectMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setCurPathState>("setCurPathState", "state"),
        op<&I::getCurPathState>("getCurPathState"),
        op<&I::setSystemScanState>("setSystemScanState", "state"),
        op<&I::getSystemScanState>("getSystemScanState"),
        op<&I::setImaCount>("setImaCount", "count"),
        op<&I::getImaCount>("getImaCount"),
        op<&I::setImaState>("setImaState", "state"),
        op<&I::getImaState>("getImaState"),
        op<&I::setImaList>("setImaList", "list"),
        op<&I::getImaList>("getImaList"),
        op<&I::setImaInitState>("setImaInitState", "state"),
        op<&I::getImaInitState>("getImaInitState"),
        op<&I::setSingleScanId>("setSingleScanId", "id"),
        op<&I::getSingleScanId>("getSingleScanId"),
        op<&I::setDySCanState>("setDySCanState", "state"),
        op<&I::getDySCanState>("getDySCanState"),
        op<&I::setDyTimeInterval>("setDyTimeInterval", "interval"),
        op<&I::getDyTimeInterval>("getDyTimeInterval"),
        op<&I::setCompleteMeasure>("setCompleteMeasure", "answer"),
        op<&I::getCompleteMeasure>("getCompleteMeasure"),
        op<&I::setCredibleList>("setCredibleList", "list"),
        op<&I::getCredibleList>("getCredibleList"),
        op<&I::setCredibleCount>("setCredibleCount", "count"),
        op<&I::getCredibleCount>("getCredibleCount"),
        op<&I::setCredibleMode>("setCredibleMode", "mode"),
        op<&I::getCredibleMode>("getCredibleMode"),
        op<&I::setCredibleVecUI>("setCredibleVecUI", "rows"),
        op<&I::getCredibleVecUI>("getCredibleVecUI"),
        op<&I::setCredibleImteUI>("setCredibleImteUI", "item").overwritesRowOf("getCredibleVecUI", "index"),
    };
};

template<>
struct Table<ITavProtectMgr> {
    using I = ITavProtectMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setSelfState>("setSelfState", "state"),
        op<&I::getSelfState>("getSelfState"),
        op<&I::setKernelCount>("setKernelCount", "count"),
        op<&I::getKernelCount>("getKernelCount"),
        op<&I::setKernelContent>("setKernelContent", "content"),
        op<&I::getKernelContent>("getKernelContent"),
        op<&I::setProCount>("setProCount", "count"),
        op<&I::getProCount>("getProCount"),
        op<&I::setProContentList>("setProContentList", "content"),
        op<&I::getProContentList>("getProContentList"),
        op<&I::setDirCount>("setDirCount", "count"),
        op<&I::getDirCount>("getDirCount"),
        op<&I::setDirContent>("setDirContent", "content"),
        op<&I::getDirContent>("getDirContent"),
        op<&I::setFileCount>("setFileCount", "count"),
        op<&I::getFileCount>("getFileCount"),
        op<&I::setFileContent>("setFileContent", "content"),
        op<&I::getFileContent>("getFileContent"),
        op<&I::setProtectUIData>("setProtectUIData", "rows"),
        op<&I::getProtectUIData>("getProtectUIData"),
        op<&I::setKernelState>("setKernelState", "state"),
        op<&I::getKernelState>("getKernelState"),
        op<&I::setProState>("setProState", "state"),
        op<&I::getProState>("getProState"),
        op<&I::setDirState>("setDirState", "state"),
        op<&I::getDirState>("getDirState"),
        op<&I::setFileState>("setFileState", "state"),
        op<&I::getFileState>("getFileState"),
        op<&I::setProtoCount>("setProtoCount", "count"),
        op<&I::getProtoCount>("getProtoCount"),
        op<&I::setKernelBlkContent>("setKernelBlkContent", "content"),
        op<&I::getKernelBlkContent>("getKernelBlkContent"),
        op<&I::setKernelBlkMode>("setKernelBlkMode", "mode"),
        op<&I::getKernelBlkMode>("getKernelBlkMode"),
        op<&I::setFileSmash>("setFileSmash", "answer"),
        op<&I::getFileSmash>("getFileSmash"),
        op<&I::setSoftUnloadCount>("setSoftUnloadCount", "count"),
        op<&I::getSoftUnloadCount>("getSoftUnloadCount"),
        op<&I::setSoftUnloadContent>("setSoftUnloadContent", "content"),
        op<&I::getSoftUnloadContent>("getSoftUnloadContent"),
        op<&I::setSoftUnloadMode>("setSoftUnloadMode", "mode"),
        op<&I::getSoftUnloadMode>("getSoftUnloadMode"),
        op<&I::updateUIItem>("updateUIItem", "item").overwritesRowOf("getProtectUIData", "itemKey"),
        op<&I::setUIAllCheck>("setUIAllCheck", "check"),
    };
};

template<>
struct Table<ITavAuditMgr> {
    using I = ITavAuditMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setAuditCount>("setAuditCount", "count"),
        op<&I::getAuditCount>("getAuditCount"),
        op<&I::setAuditContent>("setAuditContent", "content"),
        op<&I::getAuditContent>("getAuditContent"),
        op<&I::setAuditTypeCount>("setAuditTypeCount", "counts"),
        op<&I::getAuditTypeCount>("getAuditTypeCount"),
        op<&I::setAuditMonthCount>("setAuditMonthCount", "counts"),
        op<&I::getAuditMonthCount>("getAuditMonthCount"),
        op<&I::setAuditMonthFailCount>("setAuditMonthFailCount", "counts"),
        op<&I::getAuditMonthFailCount>("getAuditMonthFailCount"),
    };
};

template<>
struct Table<ITavHostInfoMgr> {
    using I = ITavHostInfoMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setResourceInfo>("setResourceInfo", "info"),
        op<&I::getResourceInfo>("getResourceInfo").indeterminateAtFirst(),
        op<&I::setKernelSigState>("setKernelSigState", "state"),
        op<&I::getKernelSigState>("getKernelSigState"),
    };
};

template<>
struct Table<ITavOneReinforceMgr> {
    using I = ITavOneReinforceMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setreinforceMode>("setreinforceMode", "mode"),
        op<&I::getreinforceMode>("getreinforceMode"),
        op<&I::setthreeConfig>("setthreeConfig", "config"),
        op<&I::getthreeConfig>("getthreeConfig"),
        op<&I::setreforcePolicy>("setreforcePolicy", "policy"),
        op<&I::getreforcePolicy>("getreforcePolicy"),
        op<&I::setStateInfo>("setStateInfo", "lines"),
        op<&I::getStateInfo>("getStateInfo"),
        op<&I::setSecswitchContent>("setSecswitchContent", "content"),
        op<&I::getSecswitchContent>("getSecswitchContent"),
        op<&I::setReforceFinishState>("setReforceFinishState", "state"),
        op<&I::getReforceFinishState>("getReforceFinishState"),
    };
};

template<>
struct Table<ITavLineScanMgr> {
    using I = ITavLineScanMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setLineScanContent>("setLineScanContent", "content"),
        op<&I::getLineScanContent>("getLineScanContent"),
        op<&I::setLineCount>("setLineCount", "count"),
        op<&I::getLineCount>("getLineCount"),
        op<&I::setscanState>("setscanState", "state"),
        op<&I::getscanState>("getscanState"),
        op<&I::setScanItemConfigErr>("setScanItemConfigErr", "errors"),
        op<&I::getScanItemConfigErr>("getScanItemConfigErr"),
        op<&I::setLineLevel>("setLineLevel", "level"),
        op<&I::getLineLevel>("getLineLevel"),
        op<&I::loadJsonConfig>("loadJsonConfig"),
        op<&I::getItemConfig>("getItemConfig", "itemId"),
    };
};

template<>
struct Table<ITavNetControlMgr> {
    using I = ITavNetControlMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setNetCount>("setNetCount", "count"),
        op<&I::getNetCount>("getNetCount"),
        op<&I::setUIData>("setUIData", "rows"),
        op<&I::getUIData>("getUIData"),
        op<&I::setState>("setState", "state"),
        op<&I::getState>("getState"),
        op<&I::setDeviceInfo>("setDeviceInfo", "info"),
        op<&I::getDeviceInfo>("getDeviceInfo"),
        op<&I::setRuleInfo>("setRuleInfo", "info"),
        op<&I::getRuleInfo>("getRuleInfo"),
        op<&I::updateUIItem>("updateUIItem", "item").overwritesRowOf("getUIData", "index, the position in the list"),
        op<&I::setAllCheck>("setAllCheck", "check"),
        op<&I::reverseDeviceState>("reverseDeviceState", "index"),
        op<&I::reverseDevicesState>("reverseDevicesState"),
    };
};

template<>
struct Table<ITavAuthInfoMgr> {
    using I = ITavAuthInfoMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setLoginCheck>("setLoginCheck", "answer"),
        op<&I::getLoginCheck>("getLoginCheck"),
        op<&I::setPwdChange>("setPwdChange", "answer"),
        op<&I::getPwdChange>("getPwdChange"),
    };
};

template<>
struct Table<ITavSystemConfigMgr> {
    using I = ITavSystemConfigMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setServerInfo>("setServerInfo", "info"),
        op<&I::getServerInfo>("getServerInfo"),
        op<&I::setOnlineState>("setOnlineState", "state"),
        op<&I::getOnlineState>("getOnlineState"),
    };
};

template<>
struct Table<ITavDevCtlMgr> {
    using I = ITavDevCtlMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setUsbInfoList>("setUsbInfoList", "list"),
        op<&I::getUsbInfoList>("getUsbInfoList"),
        op<&I::setFuncEnableInfo>("setFuncEnableInfo", "info"),
        op<&I::getFuncEnableInfo>("getFuncEnableInfo"),
    };
};

template<>
struct Table<ITavProExceptionMgr> {
    using I = ITavProExceptionMgr;
    static constexpr auto list = std::tuple{
        op<&I::getObject>("getObject"),
        op<&I::setPriException>("setPriException", "answer"),
        op<&I::getPriException>("getPriException"),
        op<overload<void(const QVector<STProtoDataContainer> &)>(&I::setUIData)>("setUIData", "rows"),
        op<&I::getUIData>("getUIData"),
        op<overload<void(const STProtoDataContainer &)>(&I::setUIData)>("setUIData", "item")
            .overwritesRowOf("getUIData", "index"),
    };
};

// clang-format on

/// All interfaces, in the order in which the plugin registers their managers.
using Interfaces
    = TavTypeList<ITavFuncTypeMgr, ITavPicResourceMgr, ITavSelectFuncMgr, ITavAccessControlMgr, ITavCompleteProtectMgr,
                  ITavProtectMgr, ITavAuditMgr, ITavHostInfoMgr, ITavOneReinforceMgr, ITavLineScanMgr,
                  ITavNetControlMgr, ITavAuthInfoMgr, ITavSystemConfigMgr, ITavDevCtlMgr, ITavProExceptionMgr>;

/// The names of all interfaces, in the same order.
inline std::vector<const char *> interfaceNames()
{
    std::vector<const char *> names;
    Interfaces::forEach([&](auto tag) { names.push_back(qobject_interface_iid<typename decltype(tag)::type *>()); });
    return names;
}

/// Calls @p visit with each Operation of @p Interface, in the interface's order.
template<class Interface, class Visitor>
constexpr void forEachOperation(Visitor &&visit)
{
    std::apply([&](const auto &...operations) { (visit(operations), ...); }, Table<Interface>::list);
}

/// Calls @p visit with each Operation of all interfaces.
template<class Visitor>
constexpr void forEachOperation(Visitor &&visit)
{
    Interfaces::forEach([&](auto tag) { forEachOperation<typename decltype(tag)::type>(visit); });
}

/// Whether another operation of the same interface has the name of @p operation, too.
template<auto Member>
constexpr bool sharesItsName(const Operation<Member> &operation)
{
    const auto count = [&operation](const auto &...others) { return ((others.name == operation.name ? 1 : 0) + ...); };
    return std::apply(count, Table<typename Operation<Member>::Interface>::list) > 1;
}

/// What of @p name follows @p prefix; empty when it does not begin so.
constexpr std::string_view behind(std::string_view prefix, std::string_view name)
{
    return name.substr(0, prefix.size()) == prefix ? name.substr(prefix.size()) : std::string_view();
}

/// What an operation with this name sets: what follows "set" or "update"; empty for others.
constexpr std::string_view valueSetBy(std::string_view operation)
{
    const std::string_view set = behind("set", operation);
    return set.empty() ? behind("update", operation) : set;
}

/// By place in the interface's table: what follows "get" in the name of an operation without arguments.
template<class Interface>
constexpr auto gettersValues = std::apply(
    [](const auto &...operations) {
        return std::array{operations.argumentCount == 0 ? behind("get", operations.name) : std::string_view()...};
    },
    Table<Interface>::list);

/// Place in its interface's table of the getter whose name goes on as that of @p setter does; -1 for none.
template<auto Member>
constexpr int getterOf(const Operation<Member> &setter)
{
    const std::string_view held = valueSetBy(setter.name);
    int place = 0;
    for (const std::string_view value : gettersValues<typename Operation<Member>::Interface>) {
        if (!held.empty() && value == held) {
            return place;
        }
        ++place;
    }
    return -1;
}

/// Calls @p visit when the operation at @p place is a setter with a getter.
template<class Interface, std::size_t place, class Visitor>
constexpr void visitPair(Visitor &visit)
{
    constexpr auto &list = Table<Interface>::list;
    using Setter = std::tuple_element_t<place, std::decay_t<decltype(list)>>;
    if constexpr (isSetter<typename Setter::Function>) {
        if constexpr (constexpr int getter = getterOf(std::get<place>(list)); getter != -1) {
            using Getter = std::tuple_element_t<getter, std::decay_t<decltype(list)>>;
            // Of two setters with one name, the other edits a single row of the list.
            if constexpr (std::is_same_v<typename Setter::Values, std::tuple<typename Getter::Result>>) {
                visit(std::get<place>(list), std::get<getter>(list));
            }
        }
    }
}

/// The same for all places.
template<class Interface, class Visitor, std::size_t... places>
constexpr void visitPairs(Visitor &visit, std::index_sequence<places...>)
{
    (visitPair<Interface, places>(visit), ...);
}

/// Calls @p visit with the setter and the getter of each held value of @p Interface.
template<class Interface, class Visitor>
constexpr void forEachPair(Visitor &&visit)
{
    constexpr std::size_t count = std::tuple_size_v<decltype(Table<Interface>::list)>;
    visitPairs<Interface>(visit, std::make_index_sequence<count>());
}

/// Calls @p visit with the setter and the getter of each held value of all interfaces.
template<class Visitor>
constexpr void forEachPair(Visitor &&visit)
{
    Interfaces::forEach([&](auto tag) { forEachPair<typename decltype(tag)::type>(visit); });
}
}
