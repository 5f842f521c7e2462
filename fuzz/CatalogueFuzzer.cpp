// The catalogue's file: any bytes, and any bytes as the JSON that the file holds in Base64.
#include "ITavFuncTypeMgr.h"
#include "Require.h"
#include "ScratchFile.h"
#include "TavPluginHost.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

constexpr int maxFunc = CTavFuncTypeHeader::Func_SystemAudit;
constexpr int maxSubFunc = CTavSubFuncTypeHeader::SubFunc_LogAudit;

bool same(const TavFuncTypeData_ &a, const TavFuncTypeData_ &b)
{
    return a.funcTitle == b.funcTitle && a.funcIcon == b.funcIcon && a.funcType == b.funcType
        && a.parentFuncType == b.parentFuncType && a.funcEnabled == b.funcEnabled && a.usrList == b.usrList;
}

bool same(const TavSubFuncTypeData_ &a, const TavSubFuncTypeData_ &b)
{
    return a.subFuncTitle == b.subFuncTitle && a.funcType == b.funcType && a.subFuncType == b.subFuncType
        && a.realParentType == b.realParentType && a.subFuncClassName == b.subFuncClassName
        && a.subFuncHelp == b.subFuncHelp && a.subFuncHasParent == b.subFuncHasParent
        && a.subFuncEnabled == b.subFuncEnabled;
}

template<class Record>
bool same(const QVector<Record> &a, const QVector<Record> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Record &x, const Record &y) { return same(x, y); });
}

/// The first record whose field has this value; a default record when there is none.
template<class Record, class Type>
Record firstOf(const QVector<Record> &list, Type Record::*field, Type type)
{
    const auto found
        = std::find_if(list.begin(), list.end(), [&](const Record &record) { return record.*field == type; });
    return found == list.end() ? Record() : *found;
}

void requireValid(const QVector<TavFuncTypeData_> &funcs)
{
    for (auto func = funcs.begin(); func != funcs.end(); ++func) {
        const auto isParent = [&](const TavFuncTypeData_ &above) { return above.funcType == func->parentFuncType; };
        require(func->funcEnabled, "every function is enabled");
        require(func->funcType >= -1 && func->funcType <= maxFunc, "a function's type is a member or -1");
        require(func->parentFuncType == 0 || std::any_of(funcs.begin(), func, isParent),
                "a function stands after its parent");
    }
}

void requireValid(const QVector<TavSubFuncTypeData_> &subFuncs, const QVector<TavFuncTypeData_> &funcs)
{
    for (const TavSubFuncTypeData_ &subFunc : subFuncs) {
        const auto isItsFunction = [&](const TavFuncTypeData_ &func) { return func.funcType == subFunc.funcType; };
        require(subFunc.subFuncEnabled, "every page is enabled");
        require(subFunc.subFuncType >= -1 && subFunc.subFuncType <= maxSubFunc, "a page's type is a member or -1");
        require(!subFunc.subFuncHasParent || subFunc.realParentType == 0,
                "a real parent is read only where there is none");
        require(std::any_of(funcs.begin(), funcs.end(), isItsFunction), "a page's function is in the catalogue");
    }
}

void requireQueriesAgree(ITavFuncTypeMgr &manager)
{
    const QVector<TavFuncTypeData_> funcs = manager.getFuncInfos();
    const QVector<TavSubFuncTypeData_> subFuncs = manager.getSubFuncInfo();
    requireValid(funcs);
    requireValid(subFuncs, funcs);
    // One more at either end, where nothing may be found; -1 is the type of the unknown.
    for (int value = -2; value <= maxFunc + 1; ++value) {
        const auto type = static_cast<FuncType>(value);
        require(same(manager.getFuncInfoData(type), firstOf(funcs, &TavFuncTypeData_::funcType, type)),
                "getFuncInfoData gives the first of its type");
        QVector<TavSubFuncTypeData_> pages;
        std::copy_if(subFuncs.begin(), subFuncs.end(), std::back_inserter(pages),
                     [type](const TavSubFuncTypeData_ &subFunc) { return subFunc.funcType == type; });
        require(same(manager.getSubFuncInfo(type), pages), "getSubFuncInfo of a function gives all of its pages");
        require(manager.getFirstSubFuncType(type)
                    == firstOf(subFuncs, &TavSubFuncTypeData_::funcType, type).subFuncType,
                "getFirstSubFuncType gives the first of its pages");
    }
    for (int value = -2; value <= maxSubFunc + 1; ++value) {
        const auto type = static_cast<SubFuncType>(value);
        require(same(manager.getSubFuncInfo(type), firstOf(subFuncs, &TavSubFuncTypeData_::subFuncType, type)),
                "getSubFuncInfo of a page gives the first of its type");
    }
}

/// The titles that a list of functions must give, each before those nested in it, and those of their pages.
void collectTitles(const QJsonArray &list, std::vector<QString> &funcs, std::vector<QString> &pages)
{
    for (const QJsonValue &element : list) {
        const QJsonObject func = element.toObject();
        if (!func.contains(QStringLiteral("funcType"))) {
            continue;
        }
        funcs.push_back(func[QStringLiteral("funcTitle")].toString());
        if (!func.contains(QStringLiteral("subFunList"))) {
            collectTitles(func[QStringLiteral("funcList")].toArray(), funcs, pages);
            continue;
        }
        for (const QJsonValue &page : func[QStringLiteral("subFunList")].toArray()) {
            if (page.toObject()[QStringLiteral("disable")] != QJsonValue(true)) {
                pages.push_back(page.toObject()[QStringLiteral("subFuncTitile")].toString());
            }
        }
    }
}

void requireTitles(ITavFuncTypeMgr &manager, const QByteArray &json)
{
    std::vector<QString> funcTitles;
    std::vector<QString> pageTitles;
    collectTitles(QJsonDocument::fromJson(json).array(), funcTitles, pageTitles);
    const QVector<TavFuncTypeData_> funcs = manager.getFuncInfos();
    const QVector<TavSubFuncTypeData_> pages = manager.getSubFuncInfo();
    require(std::equal(funcs.begin(), funcs.end(), funcTitles.begin(), funcTitles.end(),
                       [](const TavFuncTypeData_ &func, const QString &title) { return func.funcTitle == title; }),
            "the functions are those of the file, in its order");
    require(
        std::equal(pages.begin(), pages.end(), pageTitles.begin(), pageTitles.end(),
                   [](const TavSubFuncTypeData_ &page, const QString &title) { return page.subFuncTitle == title; }),
        "the pages are those of the file, in its order");
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile file(QStringLiteral("funcTypeConfig.json"));
    if (size == 0) {
        return 0;
    }
    const QByteArray input(reinterpret_cast<const char *>(data) + 1, static_cast<int>(size) - 1);
    const bool isWholeFile = data[0] == 'F'; // otherwise the JSON inside
    file.write(isWholeFile ? input : input.toBase64());

    TavPluginHost plugin{TAV_PLUGIN_FILE};
    STAppPathInfo appPath;
    appPath.configPath = file.directory();
    TavGlobalInfoMgr::getInstance()->setAppPath(appPath);
    auto &manager = *plugin.manager<ITavFuncTypeMgr>();
    require(!manager.loadConfig(), "loadConfig returns false");
    requireQueriesAgree(manager);
    if (!isWholeFile) {
        requireTitles(manager, input);
    }

    const QVector<TavFuncTypeData_> funcs = manager.getFuncInfos();
    const QVector<TavSubFuncTypeData_> pages = manager.getSubFuncInfo();
    manager.loadConfig();
    require(same(manager.getFuncInfos(), funcs + funcs) && same(manager.getSubFuncInfo(), pages + pages),
            "a second load appends the same again");
    return 0;
}
