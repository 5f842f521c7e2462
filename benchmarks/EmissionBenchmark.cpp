// Announcing a page to its subscribers against as many queued calls.

#include "Comparison.h"
#include "ITavSelectFuncMgr.h"
#include "TavEvents.h"
#include "TavPluginHost.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QThread>

#include <atomic>
#include <memory>

namespace
{
using namespace Comparison;
using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

constexpr double goal = 1.0;

/// Notes when the last of the expected callbacks has come.
class Arrivals
{
public:
    void expect(int count)
    {
        m_missing = count;
    }

    void arrive(Page page)
    {
        benchmark::DoNotOptimize(page);
        // The thread of the callbacks alone counts, so this needs no atomic operation.
        if (--m_missing == 0) {
            m_last = Clock::now();
            m_done.release();
        }
    }

    bool isDone()
    {
        return m_done.tryAcquire();
    }

    void wait()
    {
        m_done.acquire();
    }

    Clock::time_point last() const
    {
        return m_last;
    }

private:
    int m_missing = 0;
    Clock::time_point m_last;
    QSemaphore m_done;
};

/// As many receivers, in one thread, by both ways.
class Receivers
{
public:
    Receivers(int count, bool inEmittingThread)
        : m_count(count), m_inEmittingThread(inEmittingThread), m_thread(inEmittingThread ? nullptr : new QThread)
    {
        QThread *const thread = m_thread ? m_thread.get() : QThread::currentThread();
        if (m_thread) {
            m_thread->start();
        }
        for (int i = 0; i < count; ++i) {
            m_subscriptions.push_back(
                eventFuncPageUpdate.subscribe([this](Page page) { m_arrivals.arrive(page); }, thread));
            m_objects.push_back(std::make_unique<QObject>());
            m_objects.back()->moveToThread(thread);
        }
    }

    ~Receivers()
    {
        for (const int id : m_subscriptions) {
            eventFuncPageUpdate.unsubscribe(id);
        }
        if (m_thread) {
            m_thread->quit();
            m_thread->wait();
        }
    }

    void emitSignal()
    {
        m_manager->setCurSelType(CTavFuncTypeHeader::Func_SystemProtect, CTavSubFuncTypeHeader::SubFunc_KernelProtect);
    }

    void invokeMethods()
    {
        for (const std::unique_ptr<QObject> &object : m_objects) {
            const Page page = CTavSubFuncTypeHeader::SubFunc_KernelProtect;
            QMetaObject::invokeMethod(
                object.get(), [this, page] { m_arrivals.arrive(page); }, Qt::QueuedConnection);
        }
    }

    /// From the call of @p announce to the last callback.
    template<class Announce>
    double timeOfDelivery(const Announce &announce)
    {
        m_arrivals.expect(m_count);
        const Clock::time_point start = Clock::now();
        announce();
        if (m_inEmittingThread) {
            while (!m_arrivals.isDone()) {
                QCoreApplication::processEvents();
            }
        } else {
            m_arrivals.wait();
        }
        return nanoseconds(m_arrivals.last() - start);
    }

private:
    int m_count;
    bool m_inEmittingThread;
    TavPluginHost m_plugin{TAV_PLUGIN_FILE};
    ITavSelectFuncMgr *m_manager = m_plugin.manager<ITavSelectFuncMgr>();
    Arrivals m_arrivals;
    std::unique_ptr<QThread> m_thread;
    std::vector<int> m_subscriptions;
    std::vector<std::unique_ptr<QObject>> m_objects;
};
}

void Comparison::addRows()
{
    for (const bool inEmittingThread : {true, false}) {
        for (const int count : {1, 10, 100}) {
            const std::string name = "emission to " + std::to_string(count)
                + (count == 1 ? " subscriber" : " subscribers")
                + (inEmittingThread ? ", emitting thread" : ", other thread");
            addRow(name, 500, [=] {
                const auto receivers = std::make_shared<Receivers>(count, inEmittingThread);
                return Row{[=] { return receivers->timeOfDelivery([=] { receivers->emitSignal(); }); },
                           {{"queued invokeMethod",
                             [=] { return receivers->timeOfDelivery([=] { receivers->invokeMethods(); }); }, goal}}};
            });
        }
    }
}
