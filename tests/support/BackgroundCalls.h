#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

/// @brief Makes calls, each in a thread of its own, to see which of them must wait for a lock.
class BackgroundCalls
{
public:
    explicit BackgroundCalls(std::vector<std::function<void()>> calls) : m_returned(calls.size())
    {
        for (std::size_t i = 0; i < calls.size(); ++i) {
            m_threads.emplace_back([this, i, call = std::move(calls[i])] {
                ++m_started;
                call();
                m_returned[i] = true;
            });
        }
    }

    BackgroundCalls(const BackgroundCalls &) = delete;
    BackgroundCalls &operator=(const BackgroundCalls &) = delete;

    /// Waits until the calls have returned.
    ~BackgroundCalls()
    {
        for (std::thread &thread : m_threads) {
            thread.join();
        }
    }

    /// Positions of the calls that have returned, after all have had ample time to. A call that waits for a lock held
    /// elsewhere is never among them, however busy the machine.
    std::vector<std::size_t> returned() const
    {
        while (m_started < m_threads.size()) {
            std::this_thread::yield();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        std::vector<std::size_t> positions;
        for (std::size_t i = 0; i < m_returned.size(); ++i) {
            if (m_returned[i]) {
                positions.push_back(i);
            }
        }
        return positions;
    }

    /// Whether all calls return within ten seconds.
    bool allReturn() const
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        const auto all
            = [this] { return std::all_of(m_returned.cbegin(), m_returned.cend(), [](bool is) { return is; }); };
        while (!all() && std::chrono::steady_clock::now() < end) {
            std::this_thread::yield();
        }
        return all();
    }

private:
    std::vector<std::atomic<bool>> m_returned;
    std::atomic<std::size_t> m_started = 0;
    std::vector<std::thread> m_threads;
};
