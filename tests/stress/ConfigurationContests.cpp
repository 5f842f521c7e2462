#include "Contests.h"

#include "TwoSystemRoots.h"

#include "ITavFuncTypeMgr.h"
#include "ITavLineScanMgr.h"

namespace
{
using Func = CTavFuncTypeHeader;
using SubFunc = CTavSubFuncTypeHeader;

/// Whether @p titles are those of whole catalogues, one after the other: in each the entries numbered from @p first,
/// @p count of them, all of the same file.
bool areOfWholeCatalogues(const QVector<QString> &titles, int first, int count)
{
    QChar begun;
    for (int i = 0; i < titles.size(); ++i) {
        QChar letter;
        if (!TwoSystemRoots::isText(titles[i], first + i % count, letter)) {
            return false;
        }
        if (i % count == 0) {
            begun = letter;
        }
        if (letter != begun) {
            return false;
        }
    }
    return !titles.isEmpty() && titles.size() % count == 0;
}

QVector<QString> titles(const QVector<TavFuncTypeData_> &list)
{
    QVector<QString> titles;
    for (const TavFuncTypeData_ &func : list) {
        titles.append(func.funcTitle);
    }
    return titles;
}

QVector<QString> titles(const QVector<TavSubFuncTypeData_> &list)
{
    QVector<QString> titles;
    for (const TavSubFuncTypeData_ &subFunc : list) {
        titles.append(subFunc.subFuncTitle);
    }
    return titles;
}

Contest catalogue(ITavFuncTypeMgr *manager, const TwoSystemRoots &roots)
{
    const auto load = [manager, &roots](int seed) {
        roots.useAny(seed);
        return !manager->loadConfig();
    };
    load(0);
    const auto func = [manager](int) {
        const auto isThird = [](const TavFuncTypeData_ &func) { return areOfWholeCatalogues({func.funcTitle}, 3, 1); };
        return look([manager] { return manager->getFuncInfoData(Func::Func_SystemAudit); }, isThird);
    };
    const auto funcs = [manager](int) {
        return look([manager] { return manager->getFuncInfos(); },
                    [](const auto &list) { return areOfWholeCatalogues(titles(list), 1, TwoSystemRoots::funcCount); });
    };
    const auto subFuncsOfFunc = [manager](int) {
        return look([manager] { return manager->getSubFuncInfo(Func::Func_HostInfo); },
                    [](const auto &list) { return areOfWholeCatalogues(titles(list), 1, 2); });
    };
    const auto subFunc = [manager](int) {
        const auto isThird
            = [](const TavSubFuncTypeData_ &page) { return areOfWholeCatalogues({page.subFuncTitle}, 3, 1); };
        return look([manager] { return manager->getSubFuncInfo(SubFunc::SubFunc_LogAudit); }, isThird);
    };
    const auto subFuncs = [manager](int) {
        return look(
            [manager] { return manager->getSubFuncInfo(); },
            [](const auto &list) { return areOfWholeCatalogues(titles(list), 1, TwoSystemRoots::subFuncCount); });
    };
    const auto firstSubFunc
        = [manager](int) { return manager->getFirstSubFuncType(Func::Func_SystemAudit) == SubFunc::SubFunc_LogAudit; };
    return {"ITavFuncTypeMgr",
            {{"loadConfig", load},
             {"loadIniConfig", [manager](int) { return manager->loadIniConfig(); }},
             {"getFuncInfoData", func},
             {"getFuncInfos", funcs},
             {"getSubFuncInfo of a function", subFuncsOfFunc},
             {"getSubFuncInfo of a page", subFunc},
             {"getSubFuncInfo of all", subFuncs},
             {"getFirstSubFuncType", firstSubFunc}}};
}

bool isWholeItem(const STBLEnableConfig &item, int id)
{
    QChar letter;
    return item.itemId == id && TwoSystemRoots::isText(item.name, id, letter) && item.standardValue == item.name
        && item.desc == item.name && item.btntext == item.name && item.type == 3 && item.extraText.isEmpty()
        && item.checkValueScript == "/opt/tavsec/script/baselineScript" + item.name;
}

Contest checkItems(ITavLineScanMgr *manager, const TwoSystemRoots &roots)
{
    const auto load = [manager, &roots](int seed) {
        roots.useAny(seed);
        return manager->loadJsonConfig();
    };
    load(0);
    return {"ITavLineScanMgr items",
            {{"loadJsonConfig", load},
             {"getItemConfig",
              [manager](int seed) {
                  const int id = 1 + seed % TwoSystemRoots::itemCount;
                  return isWholeItem(manager->getItemConfig(id), id);
              }},
             {"getItemConfig of an unknown item", [manager](int seed) {
                  const STBLEnableConfig item = manager->getItemConfig(1000 + seed);
                  return item.itemId == 0 && item.name.isEmpty();
              }}}};
}
}

std::vector<Contest> Contests::configurations(TavPluginHost &host, const TwoSystemRoots &roots)
{
    return {catalogue(host.manager<ITavFuncTypeMgr>(), roots), checkItems(host.manager<ITavLineScanMgr>(), roots)};
}
