#include "AccessorPairs.h"
#include "TavPluginHost.h"

#include "ITavFuncTypeMgr.h"
#include "TavGlobalInfoMgr.h"

#include <QMutex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

// What a manager locks cannot be seen from outside, and a missing lock only rarely shows in what two threads read. So
// this program stands in front of the mutex of the Qt library and notes the calls before it passes them on.
namespace
{
struct LockLog {
    std::vector<QMutex *> taken; ///< in order
    std::vector<QMutex *> held; ///< not given back yet
};

thread_local LockLog *lockLog = nullptr;

using MutexCall = void (*)(QMutex *);

MutexCall qtMutexCall(const char *symbol)
{
    return reinterpret_cast<MutexCall>(dlsym(RTLD_NEXT, symbol));
}
}

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const MutexCall qtLock = qtMutexCall("_ZN6QMutex4lockEv");
    qtLock(this);
    if (lockLog) {
        lockLog->taken.push_back(this);
        lockLog->held.push_back(this);
    }
}

void QMutex::unlock() noexcept
{
    static const MutexCall qtUnlock = qtMutexCall("_ZN6QMutex6unlockEv");
    if (lockLog) {
        const auto last = std::find(lockLog->held.rbegin(), lockLog->held.rend(), this);
        if (last != lockLog->held.rend()) {
            lockLog->held.erase(std::next(last).base());
        }
    }
    qtUnlock(this);
}

namespace
{
LockLog locksOf(const std::function<void()> &call)
{
    LockLog log;
    lockLog = &log;
    call();
    lockLog = nullptr;
    return log;
}

struct Operation {
    std::string manager; ///< name of the interface
    std::string name;
    std::function<void(QObject *manager)> call;
};

void PrintTo(const Operation &operation, std::ostream *out)
{
    *out << operation.manager << ' ' << operation.name;
}

template<class Manager>
Operation operation(const char *name, void (*call)(Manager *))
{
    return {qobject_interface_iid<Manager *>(), name,
            [call](QObject *manager) { call(qobject_cast<Manager *>(manager)); }};
}

/// The setters and getters of all pairs, and what else takes the lock of its manager exactly once.
std::vector<Operation> lockingOperations()
{
    std::vector<Operation> operations;
    for (const AccessorPair &pair : allPairs()) {
        const auto set = [pair, value = pair.sample(1)](QObject *manager) { pair.set(manager, value); };
        operations.push_back({pair.manager, "set" + pair.name, set});
        operations.push_back({pair.manager, "get" + pair.name, pair.get});
    }

    using AccessControl = ITavAccessControlMgr;
    using Complete = ITavCompleteProtectMgr;
    using LineScan = ITavLineScanMgr;
    using Net = ITavNetControlMgr;
    using ProException = ITavProExceptionMgr;
    using Protect = ITavProtectMgr;
    using SelectFunc = ITavSelectFuncMgr;
    const Operation others[] = {
        operation<AccessControl>("updateUIUser", [](AccessControl *mgr) { mgr->updateUIUser({}); }),
        operation<AccessControl>("uncheckAllUIUsers", [](AccessControl *mgr) { mgr->uncheckAllUIUsers(); }),
        operation<AccessControl>("getCheckObjectLevel", [](AccessControl *mgr) { mgr->getCheckObjectLevel(); }),
        operation<AccessControl>("updateUserDetail",
                                 [](AccessControl *mgr) {
                                     QVector<STPriDetailAsr> details;
                                     mgr->updateUserDetail(1, details);
                                 }),
        operation<AccessControl>("getUserDetailOfKey", [](AccessControl *mgr) { mgr->getUserDetail(1); }),
        operation<AccessControl>("getUserDetail", [](AccessControl *mgr) { mgr->getUserDetail(); }),
        operation<AccessControl>("getCheckPriLevel", [](AccessControl *mgr) { mgr->getCheckPriLevel(); }),
        operation<AccessControl>("hasUserDetail", [](AccessControl *mgr) { mgr->hasUserDetail(QString()); }),
        operation<AccessControl>("updateOneUIPriData",
                                 [](AccessControl *mgr) { mgr->updateUIPriData(STAccessSetUIData()); }),
        operation<AccessControl>("updateObjectDetail",
                                 [](AccessControl *mgr) { mgr->updateObjectDetail(1, true, {}); }),
        operation<AccessControl>("getObjectDetailOfKey", [](AccessControl *mgr) { mgr->getObjectDetail(1, true); }),
        operation<AccessControl>("getObjectDetail", [](AccessControl *mgr) { mgr->getObjectDetail(); }),
        operation<AccessControl>("updateOneUIObjectData",
                                 [](AccessControl *mgr) { mgr->updateUIObjectData(STAccessSetUIData()); }),
        operation<AccessControl>("updateUIFile",
                                 [](AccessControl *mgr) {
                                     STObjectAddUIData file;
                                     mgr->updateUIFile(file);
                                 }),
        operation<AccessControl>("setObjectCount", [](AccessControl *mgr) { mgr->setObjectCount(1, true, 1); }),
        operation<AccessControl>("getObjectCount", [](AccessControl *mgr) { mgr->getObjectCount(true, 1); }),
        operation<AccessControl>("clearCacheData", [](AccessControl *mgr) { mgr->clearCacheData(); }),
        operation<Protect>("updateUIItem", [](Protect *mgr) { mgr->updateUIItem({}); }),
        operation<Protect>("setUIAllCheck", [](Protect *mgr) { mgr->setUIAllCheck(true); }),
        operation<Complete>("setCredibleImteUI", [](Complete *mgr) { mgr->setCredibleImteUI({}); }),
        operation<Net>("updateUIItem", [](Net *mgr) { mgr->updateUIItem({}); }),
        operation<Net>("setAllCheck", [](Net *mgr) { mgr->setAllCheck(true); }),
        operation<Net>("reverseDevicesState", [](Net *mgr) { mgr->reverseDevicesState(); }),
        operation<ProException>("setOneUIData", [](ProException *mgr) { mgr->setUIData(STProtoDataContainer()); }),
        operation<LineScan>("loadJsonConfig",
                            [](LineScan *mgr) {
                                TavGlobalInfoMgr::getInstance()->setSystemRoot(QStringLiteral("/nonexistent"));
                                mgr->loadJsonConfig();
                                TavGlobalInfoMgr::getInstance()->setSystemRoot(QString());
                            }),
        operation<LineScan>("getItemConfig", [](LineScan *mgr) { mgr->getItemConfig(1); }),
        operation<SelectFunc>("setCurSelType", [](SelectFunc *mgr) { mgr->setCurSelType({}, {}); }),
    };
    operations.insert(operations.end(), std::begin(others), std::end(others));
    return operations;
}

/// The mutex of @p manager: what its first getter takes.
QMutex *mutexOf(const std::string &interfaceName, QObject *manager)
{
    for (const AccessorPair &pair : allPairs()) {
        if (pair.manager == interfaceName) {
            pair.set(manager, pair.sample(1));
            const LockLog log = locksOf([&] { pair.get(manager); });
            return log.taken.size() == 1 ? log.taken.front() : nullptr;
        }
    }
    return nullptr;
}

class Locking : public testing::TestWithParam<Operation>
{
protected:
    TavPluginHost host{TAV_PLUGIN_FILE};
    QObject *const manager = host.managerObject(GetParam().manager.c_str());
};

INSTANTIATE_TEST_SUITE_P(All, Locking, testing::ValuesIn(lockingOperations()),
                         [](const auto &info) { return info.param.manager + '_' + info.param.name; });

TEST_P(Locking, TakesTheMutexOfItsManagerOnceAndGivesItBack)
{
    QMutex *const mutex = mutexOf(GetParam().manager, manager);
    ASSERT_NE(mutex, nullptr);
    const LockLog log = locksOf([this] { GetParam().call(manager); });
    EXPECT_EQ(std::count(log.taken.begin(), log.taken.end(), mutex), 1);
    EXPECT_THAT(log.held, testing::IsEmpty());
}

TEST(LockingOf, ReversingADeviceTakesTheMutexOnceAndGivesItBack)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    auto *const mgr = host.manager<ITavNetControlMgr>();
    mgr->setDeviceInfo(SampleValue::sample<Tav::NetControl::NetDeviceInfos>(1));
    const LockLog log = locksOf([mgr] { mgr->reverseDeviceState(0); });
    EXPECT_EQ(log.taken, std::vector<QMutex *>({mutexOf("ITavNetControlMgr", mgr->getObject())}));
    EXPECT_THAT(log.held, testing::IsEmpty());
}

TEST(LockingOf, GetObjectTakesNoMutex)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    auto *const mgr = host.manager<ITavAccessControlMgr>();
    EXPECT_THAT(locksOf([mgr] { mgr->getObject(); }).taken, testing::IsEmpty());
}

TEST(LockingOf, NoTwoManagersShareAMutex)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    std::vector<QMutex *> mutexes;
    std::string last;
    for (const AccessorPair &pair : allPairs()) {
        if (pair.manager != last) {
            mutexes.push_back(mutexOf(pair.manager, host.managerObject(pair.manager.c_str())));
            last = pair.manager;
        }
    }
    ASSERT_EQ(mutexes.size(), 13u);
    std::sort(mutexes.begin(), mutexes.end());
    EXPECT_EQ(std::adjacent_find(mutexes.begin(), mutexes.end()), mutexes.end());
}

TEST(LockingOf, OnlyTheMutexesOfThreeManagersAreRecursive)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    std::set<std::string> recursive;
    auto *const catalogue = host.manager<ITavFuncTypeMgr>();
    const LockLog log = locksOf([catalogue] { catalogue->getFuncInfos(); });
    ASSERT_EQ(log.taken.size(), 1u);
    if (log.taken.front()->isRecursive()) {
        recursive.insert("ITavFuncTypeMgr");
    }
    for (const AccessorPair &pair : allPairs()) {
        if (mutexOf(pair.manager, host.managerObject(pair.manager.c_str()))->isRecursive()) {
            recursive.insert(pair.manager);
        }
    }
    EXPECT_THAT(recursive,
                testing::UnorderedElementsAre("ITavCompleteProtectMgr", "ITavFuncTypeMgr", "ITavProtectMgr"));
}
}
