#include "AccessorPairs.h"
#include "GlobalStateGuard.h"
#include "TavPluginHost.h"

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

/// All operations of the managers that hold values, but for getObject(), with empty arguments.
std::vector<Operation> lockingOperations()
{
    std::set<std::string> holders;
    for (const AccessorPair &pair : allPairs()) {
        holders.insert(pair.manager);
    }
    std::vector<Operation> operations;
    TavOperations::forEachOperation([&](const auto &operation) {
        using Operation = std::decay_t<decltype(operation)>;
        const std::string manager = qobject_interface_iid<typename Operation::Interface *>();
        if (holders.count(manager) == 0 || operation.name == "getObject") {
            return;
        }
        const auto call = [](QObject *object) {
            auto *const manager = qobject_cast<typename Operation::Interface *>(object);
            std::apply([manager](auto... arguments) { (manager->*Operation::member)(arguments...); },
                       typename Operation::Values());
        };
        // Operations that share their name differ in their place.
        operations.push_back({manager, std::string(operation.name) + std::to_string(operations.size()), call});
    });
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
    Locking()
    {
        TavGlobalInfoMgr::getInstance()->setSystemRoot(QStringLiteral("/nonexistent")); // for what loads a file
        // For what changes the first device.
        host.manager<ITavNetControlMgr>()->setDeviceInfo(SampleValue::sample<Tav::NetControl::NetDeviceInfos>(1));
    }

    GlobalStateGuard guard;
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

TEST(LockingOf, GetObjectTakesNoMutex)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    auto *const mgr = host.manager<ITavAccessControlMgr>();
    EXPECT_THAT(locksOf([mgr] { static_cast<void>(mgr->getObject()); }).taken, testing::IsEmpty());
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
    const LockLog log = locksOf([catalogue] { static_cast<void>(catalogue->getFuncInfos()); });
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
