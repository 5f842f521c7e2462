#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <thread>

/**
 * @brief Every different text that @p read gives while another thread calls @p write over and over.
 *
 * Two or more texts mean that the two have really met: it reads until then, but no longer than 20 seconds. @p write
 * gets a number that changes from call to call, beginning with 0.
 */
inline std::set<std::string> readWhileWriting(const std::function<void(int call)> &write,
                                              const std::function<std::string()> &read)
{
    std::atomic<bool> finished{false};
    std::thread writer([&] {
        for (int call = 0; !finished; ++call) {
            write(call);
        }
    });

    std::set<std::string> seen;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    do {
        for (int reads = 0; reads < 10000; ++reads) {
            seen.insert(read());
        }
        std::this_thread::yield(); // a lock that is taken again at once leaves the writer no chance
    } while (seen.size() < 2 && std::chrono::steady_clock::now() < deadline);
    finished = true;
    writer.join();
    return seen;
}
