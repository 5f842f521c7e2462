#include "SoakDay.h"

#include "Contests.h"

#include "ITavPicResourceMgr.h"
#include "ITavSelectFuncMgr.h"

#include <QCoreApplication>

#include <chrono>
#include <numeric>
#include <thread>

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;

/// Waits until everything posted has been delivered; false when that takes far too long.
bool settle()
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (TavEventNotifyMgr::getInstance()->pendingCount() > 0) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        QCoreApplication::processEvents();
        std::this_thread::yield();
    }
    return true;
}
}

SoakDay::SoakDay(const TwoSystemRoots &roots, std::array<QThread *, 3> loops) : m_roots(roots), m_loops(loops)
{
}

void SoakDay::run()
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    appendPictures(host);
    std::vector<Contest> all;
    for (const auto &contests : {Contests::heldValues(host),
                                 Contests::rows(host),
                                 Contests::accessControl(host, Contests::Clearing::Yes),
                                 Contests::devices(host),
                                 Contests::configurations(host, m_roots),
                                 Contests::pictures(host),
                                 Contests::objects(host),
                                 {selecting(host)}}) {
        all.insert(all.end(), contests.begin(), contests.end());
    }
    const long long before = std::accumulate(m_selections.begin(), m_selections.end(), 0LL);
    for (const std::string &failure : runAllAtOnce(all, 3)) {
        fail(failure);
    }
    emissions += std::accumulate(m_selections.begin(), m_selections.end(), 0LL) - before;
    appendPictures(host);
    if (!settle()) {
        fail("events are still on their way");
    }
    for (const auto &visit : m_visits) {
        if (visit->missing != 0 || visit->mistaken) {
            fail("a page that was open for a while has missed a selection or heard of one twice");
        }
    }
    visits += static_cast<long long>(m_visits.size());
    m_visits.clear();
    ++days;
}

Contest SoakDay::selecting(TavPluginHost &host)
{
    auto *const manager = host.manager<ITavSelectFuncMgr>();
    const auto select = [this, manager](int seed) {
        const int thread = seed % threadCount;
        const SoakPage::SubFuncType value = SoakPage::value(thread, m_selections[thread]++);
        manager->setCurSelType(static_cast<FuncType>(value), value);
        return manager->getCurSelSubFuncType() >= 0 && manager->getCurSelFuncType() >= 0;
    };
    const auto openAndClose = [this, select](int seed) {
        constexpr int selections = 3;
        const int thread = seed % threadCount;
        const auto visit = std::make_shared<Visit>(Visit{m_selections[thread], selections});
        const auto take = [visit, thread](int value) {
            if (value % threadCount == thread) {
                visit->mistaken = visit->mistaken || value / threadCount != visit->expected++;
                --visit->missing;
            }
        };
        const int id = eventFuncPageUpdate.subscribe(take, m_loops[seed / threadCount % m_loops.size()]);
        for (int i = 0; i < selections; ++i) {
            select(seed);
        }
        const bool closed = eventFuncPageUpdate.unsubscribe(id);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_visits.push_back(visit);
        return closed;
    };
    const auto selectAgain = [manager](int) {
        // Not announced, and so nobody's mistake.
        manager->setCurSelFuncType(manager->getCurSelFuncType());
        manager->setCurSelSubFuncType(manager->getCurSelSubFuncType());
        return true;
    };
    return {"ITavSelectFuncMgr",
            {{"setCurSelType", select}, {"a page that opens and closes", openAndClose}, {"set again", selectAgain}}};
}

void SoakDay::appendPictures(TavPluginHost &host)
{
    auto *const manager = host.manager<ITavPicResourceMgr>();
    const std::shared_ptr<QImage> held = manager->getImageRef("navigationLarge", "hostIcon");
    manager->appendPicResourcePath(QStringLiteral(TAV_SOURCE_DIR "/share/demo/opt/tavsec/pictures/navigationLarge"));
    const std::shared_ptr<QImage> image = manager->getImageRef("navigationLarge", "hostIcon");
    if (!image || image->isNull() || image == held || (held && *held != *image)) {
        fail("a picture is not what it was");
    }
}

void SoakDay::fail(const std::string &what)
{
    if (failures.size() < 20) {
        failures.push_back("day " + std::to_string(days) + ": " + what);
    }
}
