// A held message against other ways of sharing one between threads.

#include "Comparison.h"
#include "ITavDevCtlMgr.h"
#include "ITavNetControlMgr.h"
#include "SampleMessages.h"
#include "TavPluginHost.h"

#include <QMutex>
#include <QReadWriteLock>
#include <QSemaphore>
#include <QVariant>

#include <algorithm>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <thread>

Q_DECLARE_METATYPE(Tav::Base::CommandStateAsr)
Q_DECLARE_METATYPE(Tav::DevControl::DevUsbInfoList)

namespace
{
using namespace Comparison;

constexpr int rounds = 15;

/// A value that is held by a manager.
template<class Manager, class T, T (Manager::*getter)(), void (Manager::*setter)(const T &)>
class Managed
{
public:
    T get()
    {
        return (m_manager->*getter)();
    }

    void set(const T &value)
    {
        (m_manager->*setter)(value);
    }

private:
    TavPluginHost m_plugin{TAV_PLUGIN_FILE};
    Manager *m_manager = m_plugin.manager<Manager>();
};

template<class T>
class BehindReadWriteLock
{
public:
    T get()
    {
        const QReadLocker lock(&m_lock);
        return m_value;
    }

    void set(const T &value)
    {
        const QWriteLocker lock(&m_lock);
        m_value.CopyFrom(value);
    }

private:
    QReadWriteLock m_lock;
    T m_value;
};

template<class T>
class BehindSharedMutex
{
public:
    T get()
    {
        const std::shared_lock lock(m_mutex);
        return m_value;
    }

    void set(const T &value)
    {
        const std::unique_lock lock(m_mutex);
        m_value.CopyFrom(value);
    }

private:
    std::shared_mutex m_mutex;
    T m_value;
};

template<class T>
class AsProperty
{
public:
    T get() const
    {
        return m_object.property("value").template value<T>();
    }

    void set(const T &value)
    {
        m_object.setProperty("value", QVariant::fromValue(value));
    }

private:
    QObject m_object;
};

/// Properties are not for several threads, so whoever wants one there brings a lock.
template<class T>
class AsPropertyBehindMutex
{
public:
    T get()
    {
        const QMutexLocker lock(&m_mutex);
        return m_property.get();
    }

    void set(const T &value)
    {
        const QMutexLocker lock(&m_mutex);
        m_property.set(value);
    }

private:
    QMutex m_mutex;
    AsProperty<T> m_property;
};

/// Nanoseconds from the moment that all threads are let go to the end of the last one.
template<class Work>
double timeInThreads(int threadCount, const Work &work)
{
    QSemaphore ready;
    QSemaphore go;
    std::vector<Clock::time_point> ends(static_cast<std::size_t>(threadCount));
    std::vector<std::thread> threads;
    for (Clock::time_point &end : ends) {
        threads.emplace_back([&] {
            ready.release();
            go.acquire();
            work();
            end = Clock::now();
        });
    }
    ready.acquire(threadCount);
    const Clock::time_point start = Clock::now();
    go.release(threadCount);
    for (std::thread &thread : threads) {
        thread.join();
    }
    return nanoseconds(*std::max_element(ends.begin(), ends.end()) - start);
}

/// Samples accesses to a Holder from several threads; every @p writeEvery-th writes.
template<class Holder, class T>
Sample accesses(int threadCount, int writeEvery, const T &value)
{
    const auto holder = std::make_shared<Holder>();
    holder->set(value);
    const auto access = [=](int number) {
        if (number % writeEvery == 0) {
            holder->set(value);
        } else {
            benchmark::DoNotOptimize(holder->get());
        }
    };
    // Long enough for the threads to meet.
    const int cycles = callsFor(std::chrono::milliseconds(2), [&] {
        for (int i = 0; i < writeEvery; ++i) {
            access(i);
        }
    });
    const int count = cycles * writeEvery;
    const auto accessAll = [=] {
        for (int i = 0; i < count; ++i) {
            access(i);
        }
    };
    return [=] { return timeInThreads(threadCount, accessAll) / (count * threadCount); };
}

template<class Holder, class T>
void addPeerRows(const std::string &kind, T (*makeValue)())
{
    struct Mix {
        const char *name;
        int writeEvery;
    };
    for (const Mix mix : {Mix{"95 % reads", 20}, Mix{"50 % reads", 2}}) {
        for (const int threads : {1, 2, 4}) {
            const std::string name
                = kind + ", " + mix.name + ", " + std::to_string(threads) + (threads == 1 ? " thread" : " threads");
            addRow(name, rounds, [=] {
                const T value = makeValue();
                const int every = mix.writeEvery;
                return Row{
                    accesses<Holder>(threads, every, value),
                    {{"QReadWriteLock", accesses<BehindReadWriteLock<T>>(threads, every, value)},
                     {"std::shared_mutex", accesses<BehindSharedMutex<T>>(threads, every, value)},
                     threads == 1 ? Rival{"QObject property", accesses<AsProperty<T>>(threads, every, value)}
                                  : Rival{"QObject property, QMutex",
                                          accesses<AsPropertyBehindMutex<T>>(threads, every, value)}},
                };
            });
        }
    }
}
}

void Comparison::addRows()
{
    using SmallMessage = Tav::Base::CommandStateAsr;
    using LongMessage = Tav::DevControl::DevUsbInfoList;
    addPeerRows<Managed<ITavNetControlMgr, SmallMessage, &ITavNetControlMgr::getState, &ITavNetControlMgr::setState>,
                SmallMessage>("small message", smallMessage);
    addPeerRows<Managed<ITavDevCtlMgr, LongMessage, &ITavDevCtlMgr::getUsbInfoList, &ITavDevCtlMgr::setUsbInfoList>,
                LongMessage>("message of 1,000 entries", [] { return messageOfEntries(1000); });
}
