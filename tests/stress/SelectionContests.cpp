#include "Contests.h"

#include "ITavSelectFuncMgr.h"

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

/// Two words of the same bits, so that a half-written one is none of them.
int type(int seed)
{
    return seed % 2 == 0 ? 0x55555555 : 0x2aaaaaaa;
}

bool isType(int value)
{
    return value == type(0) || value == type(1);
}
}

std::vector<Contest> Contests::selection(TavPluginHost &host)
{
    auto *const manager = host.manager<ITavSelectFuncMgr>();
    manager->setCurSelType(static_cast<FuncType>(type(0)), static_cast<SubFuncType>(type(0)));
    return {{"ITavSelectFuncMgr",
             {{"setCurSelFuncType",
               [manager](int seed) {
                   manager->setCurSelFuncType(static_cast<FuncType>(type(seed)));
                   return true;
               }},
              {"getCurSelFuncType", [manager](int) { return isType(manager->getCurSelFuncType()); }},
              {"setCurSelSubFuncType",
               [manager](int seed) {
                   manager->setCurSelSubFuncType(static_cast<SubFuncType>(type(seed)));
                   return true;
               }},
              {"getCurSelSubFuncType", [manager](int) { return isType(manager->getCurSelSubFuncType()); }},
              {"setCurSelType", [manager](int seed) {
                   manager->setCurSelType(static_cast<FuncType>(type(seed)), static_cast<SubFuncType>(type(seed)));
                   return true;
               }}}}};
}
