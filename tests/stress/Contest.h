#pragma once

#include <functional>
#include <string>
#include <vector>

/// One call, together with a look at what it gives back.
struct Operation {
    std::string name;
    std::function<bool(int seed)> call; ///< false: what it saw was half-copied, or wrong in another way
};

/// Operations that meet on the same members of an object; not more than there are threads.
struct Contest {
    std::string name;
    std::vector<Operation> operations;
};

/**
 * @brief Whether @p isWhole holds for what @p read gives.
 *
 * It reads once more before the copy is dropped. A manager changes a list that it has handed out in place as soon as
 * the last copy is gone. What orders the two is the list's count of copies, which a race checker does not follow; the
 * second read orders them by the manager's lock as well. Where a read does not lock, it orders nothing.
 */
template<class Read, class Check>
bool look(Read read, Check isWhole)
{
    const auto seen = read();
    const bool whole = isWhole(seen);
    read();
    return whole;
}

constexpr int threadCount = 8;

/**
 * @brief Makes the calls of @p contest from eight threads, each thread always the same one, @p turns times; returns a
 * line for each failure, none when all is well.
 *
 * One call a thread, because a thread that also made calls which lock would be put in order with the others by that
 * lock, and a race checker would then miss a call that does not lock.
 */
std::vector<std::string> runContest(const Contest &contest, int turns);

/// Makes every call of every contest from each of eight threads, @p turns times, in an order of the thread's own;
/// returns a line for each failure.
std::vector<std::string> runAllAtOnce(const std::vector<Contest> &contests, int turns);

/// How often each call is made: from the command line, `--turns=N`, or what suits a run without a race checker.
int turnsOfEachCall();
