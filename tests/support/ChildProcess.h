#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <sched.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
constexpr bool memoryIsInstrumented = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool memoryIsInstrumented = true;
#else
constexpr bool memoryIsInstrumented = false;
#endif
#else
constexpr bool memoryIsInstrumented = false; ///< true: memory is used for finding faults, too, and limits say nothing
#endif

/// @brief What became of a part of a test that ran in a process of its own.
struct ChildOutcome {
    bool passed = false; ///< it came to its end, in time, and no expectation failed in it
    double peakMiB = 0; ///< the most memory that it had at one time, beyond that at its start
    double seconds = 0;
};

/**
 * @brief Runs @p body in a child process, and waits for it: what is done to the process (limits, rights) ends with it,
 * and its memory is its own. Expectations print from there; the caller expects `passed`.
 */
inline ChildOutcome runInChild(const std::function<void()> &body, unsigned secondsAllowed = 60)
{
    const auto mebibytes = [](const std::string &field) {
        std::ifstream status("/proc/self/status");
        for (std::string line; std::getline(status, line);) {
            if (line.compare(0, field.size(), field) == 0) {
                return std::stod(line.substr(field.size())) / 1024;
            }
        }
        return 0.0;
    };

    ChildOutcome outcome;
    int toParent[2];
    if (pipe(toParent) != 0) {
        return outcome;
    }
    malloc_trim(0); // what has been freed would be used again, unseen, or be the child's most at its start
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        alarm(secondsAllowed);
        const double before = mebibytes("VmRSS:");
        body();
        const double peak = mebibytes("VmHWM:") - before;
        const bool told = write(toParent[1], &peak, sizeof(peak)) == sizeof(peak);
        _exit(told && !testing::Test::HasFailure() ? 0 : 1);
    }
    close(toParent[1]);
    const bool told = read(toParent[0], &outcome.peakMiB, sizeof(outcome.peakMiB)) == sizeof(outcome.peakMiB);
    close(toParent[0]);
    int status = -1;
    outcome.passed = waitpid(child, &status, 0) == child && told && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return outcome;
}

/// Lets the process have no more than this much memory in all, so that it is refused more.
inline void limitMemory(rlim_t mebibytes)
{
    const rlimit limit{mebibytes * 1024 * 1024, mebibytes * 1024 * 1024};
    EXPECT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
}

/// Leaves the process nothing of the file system but what is below @p directory. Whoever is not root gets the right to
/// it from a namespace of his own.
inline void changeRoot(const char *directory)
{
    ASSERT_TRUE(geteuid() == 0 || unshare(CLONE_NEWUSER) == 0);
    ASSERT_EQ(chroot(directory), 0);
}

/// Gives up root's rights, which no mode of a file stops.
inline void dropRights()
{
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0) {
        EXPECT_EQ(setegid(nobody), 0);
        EXPECT_EQ(seteuid(nobody), 0);
    }
}
