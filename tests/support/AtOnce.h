#pragma once

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

/// Runs @p work in @p threadCount threads, each with its number from 0, and returns when all are done. None begins
/// before all are there.
inline void atOnce(int threadCount, const std::function<void(int)> &work)
{
    std::atomic<int> missing = threadCount;
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&work, &missing, number] {
            --missing;
            while (missing > 0) {
                std::this_thread::yield();
            }
            work(number);
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}
