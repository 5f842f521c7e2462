#include "PluginCheck.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <system_error>
#include <unistd.h>

TEST(PluginCheck, WithoutRoomForAProcessThrowsAndEndsNone)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs files itself, to see what an object is";
#endif
    ASSERT_TRUE(checkPlugin(TAV_PLUGIN_FILE).isEmpty());
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const int lowestFree = dup(STDIN_FILENO);
    ASSERT_EQ(close(lowestFree), 0);
    const rlimit oneFile{rlim_t(lowestFree) + 1, before.rlim_max}; // for the plugin, but none for both ends of a pipe
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &oneFile), 0);
    EXPECT_THROW(checkPlugin(TAV_PLUGIN_FILE), std::system_error);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
}
