#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/**
 * @brief Ratios instead of times: what the plugin does and what it is held against, measured in turns.
 *
 * A machine that is slow for a moment is slow for both, so the ratio stands where the times do not. Nothing here
 * judges: a goal is only carried along into the report.
 */
namespace Comparison
{
/// Does the work, once or more often, and answers what once cost.
using Sample = std::function<double()>;

/// What ours is held against.
struct Rival {
    std::string name;
    Sample sample;
    double goal = 0; ///< the ratio that ours is not to exceed; 0 when none is set
};

/// One row of the report. What its samples use has to live as long as they do.
struct Row {
    Sample ours;
    std::vector<Rival> rivals;
    std::string unit = "ns";
};

/// Registers a row. @p make sets it up anew for every repetition; a repetition takes one sample of each in every one
/// of @p rounds rounds. Reported are the medians.
void addRow(const std::string &name, int rounds, std::function<Row()> make);

/// Defined by each program: registers its rows.
void addRows();

using Clock = std::chrono::steady_clock;

inline double nanoseconds(Clock::duration duration)
{
    return std::chrono::duration<double, std::nano>(duration).count();
}

/// Nanoseconds that one call of @p work takes.
template<class Work>
double timeOf(const Work &work)
{
    const Clock::time_point start = Clock::now();
    work();
    return nanoseconds(Clock::now() - start);
}

/// Samples @p work, which takes long enough for the clock, after the untimed @p prepare.
template<class Prepare, class Work>
Sample oneCall(Prepare prepare, Work work)
{
    return [=] {
        prepare();
        return timeOf(work);
    };
}

/// How many calls of @p work take at least this long.
template<class Work>
int callsFor(Clock::duration duration, const Work &work)
{
    int calls = 1;
    const auto callAll = [&] {
        for (int i = 0; i < calls; ++i) {
            work();
        }
    };
    while (timeOf(callAll) < nanoseconds(duration)) {
        calls *= 2;
    }
    return calls;
}

/// Samples @p work, which may be as short as it likes.
template<class Work>
Sample manyCalls(Work work)
{
    const int calls = callsFor(std::chrono::microseconds(200), work);
    return [=] {
        const auto callAll = [&] {
            for (int i = 0; i < calls; ++i) {
                work();
            }
        };
        return timeOf(callAll) / calls;
    };
}
}
