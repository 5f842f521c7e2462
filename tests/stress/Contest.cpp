#include "Contest.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>
#include <mutex>
#include <random>
#include <thread>

namespace
{
using Counts = std::map<std::string, int>;

/// Runs @p work in eight threads at once and says what failed in them.
std::vector<std::string> runInThreads(const std::function<void(int thread, Counts &failures)> &work)
{
    std::vector<Counts> failures(threadCount);
    std::vector<std::thread> threads;
    std::mutex gate;
    std::unique_lock<std::mutex> closed(gate);
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&, thread] {
            std::unique_lock<std::mutex>(gate).unlock();
            work(thread, failures[thread]);
        });
    }
    closed.unlock();
    for (std::thread &thread : threads) {
        thread.join();
    }

    std::vector<std::string> lines;
    for (int thread = 0; thread < threadCount; ++thread) {
        for (const auto &[name, count] : failures[thread]) {
            lines.push_back(name + ", thread " + std::to_string(thread) + ": " + std::to_string(count) + " failures");
        }
    }
    return lines;
}

/// A call's argument, different for all threads and turns.
int seed(int thread, int turn)
{
    return turn * threadCount + thread;
}
}

std::vector<std::string> runContest(const Contest &contest, int turns)
{
    if (contest.operations.size() > threadCount) {
        return {contest.name + ": more operations than threads"};
    }
    return runInThreads([&](int thread, Counts &failures) {
        const Operation &operation = contest.operations[thread % contest.operations.size()];
        for (int turn = 0; turn < turns; ++turn) {
            if (!operation.call(seed(thread, turn))) {
                ++failures[contest.name + ": " + operation.name];
            }
        }
    });
}

std::vector<std::string> runAllAtOnce(const std::vector<Contest> &contests, int turns)
{
    std::vector<std::pair<std::string, const Operation *>> all;
    for (const Contest &contest : contests) {
        for (const Operation &operation : contest.operations) {
            all.emplace_back(contest.name + ": " + operation.name, &operation);
        }
    }
    return runInThreads([&, all](int thread, Counts &failures) {
        auto own = all;
        std::mt19937 random(static_cast<unsigned>(thread));
        for (int turn = 0; turn < turns; ++turn) {
            std::shuffle(own.begin(), own.end(), random);
            for (const auto &[name, operation] : own) {
                if (!operation->call(seed(thread, turn))) {
                    ++failures[name];
                }
            }
        }
    });
}

int turnsOfEachCall()
{
    const QString option = QStringLiteral("--turns=");
    for (const QString &argument : QCoreApplication::arguments()) {
        if (argument.startsWith(option)) {
            return argument.mid(option.size()).toInt();
        }
    }
    return 1000;
}
