#include "TavGlobalInfoMgr.h"

#include "GlobalStateGuard.h"
#include "PrintQString.h"
#include "TavObjectMgr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace
{
std::atomic<bool> isWatchingEnvironment = false;
std::vector<std::string> *variablesAskedFor = nullptr;

char *askEnvironment(const char *function, const char *name)
{
    if (isWatchingEnvironment) {
        variablesAskedFor->push_back(name);
    }
    return reinterpret_cast<char *(*)(const char *)>(dlsym(RTLD_NEXT, function))(name);
}
}

// These stand before the C library's for the whole process, shared libraries included.
extern "C" char *getenv(const char *name) noexcept
{
    return askEnvironment("getenv", name);
}

extern "C" char *secure_getenv(const char *name) noexcept
{
    return askEnvironment("secure_getenv", name);
}

namespace
{
/// The environment variables that are asked for while @p function runs.
template<class Function>
std::vector<std::string> variablesAskedForBy(Function function)
{
    std::vector<std::string> names;
    variablesAskedFor = &names;
    isWatchingEnvironment = true;
    function();
    isWatchingEnvironment = false;
    return names;
}

void useAll()
{
    TavGlobalInfoMgr *const info = TavGlobalInfoMgr::getInstance();
    static_cast<void>(info->systemRoot());
    static_cast<void>(info->getAppPath());
    static_cast<void>(TavGlobalInfoMgr::getObjectMgr());
}

// Before main(), so that it is the first use indeed.
const std::vector<std::string> variablesAskedForByTheFirstUse = variablesAskedForBy(useAll);

STAppPathInfo appPathOf(const QString &text)
{
    return {text, text, text, text, text};
}

QStringList fields(const STAppPathInfo &info)
{
    return {info.appPath, info.pluginPath, info.logPath, info.dataPath, info.configPath};
}

class GlobalInfoMgr : public testing::Test
{
    GlobalStateGuard m_guard;

protected:
    TavGlobalInfoMgr &info = *TavGlobalInfoMgr::getInstance();
};
}

TEST_F(GlobalInfoMgr, TheDefaultPathsAreThoseOfAStandardInstallation)
{
    EXPECT_THAT(fields(info.getAppPath()),
                testing::ElementsAre(QStringLiteral("/opt/tavsec"), QStringLiteral("/opt/tavsec/plugins"),
                                     QStringLiteral("/var/log/tavsec"), QStringLiteral("/var/lib/tavsec"),
                                     QStringLiteral("/etc/tavsec.d")));
}

TEST_F(GlobalInfoMgr, TheFifthPathIsThatOfTheConfiguration)
{
    const STAppPathInfo paths;
    const auto &[first, second, third, fourth, fifth] = paths;
    EXPECT_EQ(&fifth, &paths.configPath);
    EXPECT_EQ(reinterpret_cast<const char *>(&fifth), reinterpret_cast<const char *>(&first) + 4 * sizeof(QString));
}

TEST_F(GlobalInfoMgr, ThereIsOneInstance)
{
    EXPECT_EQ(TavGlobalInfoMgr::getInstance(), &info);
}

TEST_F(GlobalInfoMgr, GivesThePathsThatWereSet)
{
    const STAppPathInfo paths{QStringLiteral("/1"), QStringLiteral("/2"), QStringLiteral("/3"), QStringLiteral("/4"),
                              QStringLiteral("/5")};
    info.setAppPath(paths);
    EXPECT_EQ(fields(info.getAppPath()), fields(paths));
}

TEST_F(GlobalInfoMgr, ChangingWhatWasGivenOutChangesNoPath)
{
    info.setAppPath(appPathOf(QStringLiteral("/kept")));
    auto &&paths = info.getAppPath();
    paths.configPath = QStringLiteral("/changed");
    EXPECT_EQ(info.getAppPath().configPath, QStringLiteral("/kept"));
}

TEST_F(GlobalInfoMgr, ChangingWhatWasHandedInChangesNoPath)
{
    STAppPathInfo paths = appPathOf(QStringLiteral("/kept"));
    info.setAppPath(paths);
    paths.configPath = QStringLiteral("/changed");
    EXPECT_EQ(info.getAppPath().configPath, QStringLiteral("/kept"));
}

TEST_F(GlobalInfoMgr, HasABuiltInRegistry)
{
    ITavObjectMgr *const builtIn = TavGlobalInfoMgr::getObjectMgr();
    ASSERT_NE(builtIn, nullptr);
    EXPECT_EQ(TavGlobalInfoMgr::getObjectMgr(), builtIn);
}

TEST_F(GlobalInfoMgr, GivesTheRegistryThatTheHostHasSet)
{
    TavObjectMgr registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    EXPECT_EQ(TavGlobalInfoMgr::getObjectMgr(), &registry);
}

TEST_F(GlobalInfoMgr, SettingNoRegistryRestoresTheBuiltInOne)
{
    ITavObjectMgr *const builtIn = TavGlobalInfoMgr::getObjectMgr();
    TavObjectMgr registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    TavGlobalInfoMgr::setObjectMgr(nullptr);
    EXPECT_NE(TavGlobalInfoMgr::getObjectMgr(), &registry);
    EXPECT_EQ(TavGlobalInfoMgr::getObjectMgr(), builtIn);
}

TEST_F(GlobalInfoMgr, TheSystemRootIsEmptyUntilSet)
{
    EXPECT_TRUE(info.systemRoot().isEmpty());
    info.setSystemRoot(QStringLiteral("/srv/root"));
    EXPECT_EQ(info.systemRoot(), QStringLiteral("/srv/root"));
}

TEST_F(GlobalInfoMgr, NoEnvironmentVariableIsAskedForOnFirstUse)
{
    EXPECT_THAT(variablesAskedForByTheFirstUse, testing::IsEmpty());
}

TEST_F(GlobalInfoMgr, NoEnvironmentVariableIsAskedForLater)
{
    EXPECT_THAT(variablesAskedForBy(useAll), testing::IsEmpty());
}

TEST_F(GlobalInfoMgr, TheWatchOnTheEnvironmentSeesQuestionsOfSharedLibraries)
{
    EXPECT_THAT(variablesAskedForBy([] { qgetenv("TAV_ROOT"); }), testing::ElementsAre("TAV_ROOT"));
}

TEST_F(GlobalInfoMgr, ReadersNeverSeeHalfOfAChange)
{
    const auto set = [this](int number) {
        info.setAppPath(appPathOf(QString::number(number)));
        info.setSystemRoot(QString::number(number));
    };
    set(0);

    std::atomic<bool> isOver = false;
    std::atomic<int> mixtures = 0;
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i) {
        readers.emplace_back([&] {
            while (!isOver) {
                const STAppPathInfo paths = info.getAppPath();
                const QString root = info.systemRoot();
                mixtures += fields(paths) != fields(appPathOf(paths.appPath));
                mixtures += QString::number(root.toInt()) != root;
            }
        });
    }
    for (int number = 1; number < 50000; ++number) {
        set(number);
    }
    isOver = true;
    for (std::thread &reader : readers) {
        reader.join();
    }
    EXPECT_EQ(mixtures, 0);
}
