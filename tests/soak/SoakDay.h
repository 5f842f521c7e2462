#pragma once

#include "Contest.h"
#include "SoakPage.h"

#include <QThread>

#include <array>
#include <atomic>
#include <memory>
#include <mutex>

class TavPluginHost;
class TwoSystemRoots;

/**
 * @brief The client's day, again and again: a new registry with new managers, pictures loaded, all operations of all
 * managers from eight threads, pages selected and pages that open and close meanwhile; then the end of it all.
 */
class SoakDay
{
public:
    /// @p loops are the threads in which pages that open and close hear of selections.
    SoakDay(const TwoSystemRoots &roots, std::array<QThread *, 3> loops);

    /// One day, from morning to evening; what is on its way then has been delivered when this returns.
    void run();

    int days = 0;
    long long emissions = 0;
    long long visits = 0; ///< pages that were opened and closed
    std::vector<std::string> failures; ///< a line for each kind, of the first day that had any

private:
    /// What a page that was open for a while heard of its own thread's selections.
    struct Visit {
        int expected; ///< number of the next of them
        int missing; ///< how many are still to come
        bool mistaken = false;
    };

    Contest selecting(TavPluginHost &host);
    void appendPictures(TavPluginHost &host);
    void fail(const std::string &what);

    const TwoSystemRoots &m_roots;
    const std::array<QThread *, 3> m_loops;
    std::array<int, threadCount> m_selections = {}; ///< of each thread
    std::mutex m_mutex; ///< guards the visits, which threads add
    std::vector<std::shared_ptr<Visit>> m_visits; ///< of the present day
};
