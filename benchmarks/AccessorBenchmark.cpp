// Getters and setters against the bare lock and copy of the same type.

#include "Comparison.h"
#include "SampleMessages.h"
#include "TavOperations.h"
#include "TavPluginHost.h"

#include <QMutex>

#include <cstring>
#include <memory>

namespace
{
using namespace Comparison;

constexpr int rounds = 60;
constexpr double goal = 1.1;

/// A value and its lock, in our own hands.
template<class T>
struct Bare {
    QMutex mutex;
    T value;

    T get()
    {
        QMutexLocker lock(&mutex);
        return value;
    }

    void set(const T &newValue)
    {
        QMutexLocker lock(&mutex);
        if constexpr (std::is_base_of_v<google::protobuf::MessageLite, T>) {
            value.CopyFrom(newValue);
        } else {
            value = newValue;
        }
    }
};

/// The rows for one accessor pair, called with a value that @p makeValue makes. The pair is known when this is
/// compiled, as in a page: a call through a pointer would cost more.
template<class Setter, class Getter>
void addPairRows(const std::string &kind, typename Getter::Result (*makeValue)())
{
    using Manager = typename Getter::Interface;
    using T = typename Getter::Result;
    constexpr auto setter = Setter::member;
    constexpr auto getter = Getter::member;
    struct Fixture {
        TavPluginHost plugin{TAV_PLUGIN_FILE};
        Manager *manager = plugin.manager<Manager>();
        Bare<T> bare;
        T values[2];
        unsigned calls = 0;

        /// Not the one that is set already: a list that is shared takes no copy then.
        const T &nextValue()
        {
            return values[++calls % 2];
        }
    };
    const auto makeFixture = [=] {
        auto fixture = std::make_shared<Fixture>();
        for (T &value : fixture->values) {
            value = makeValue();
        }
        (fixture->manager->*setter)(fixture->nextValue());
        fixture->bare.set(fixture->nextValue());
        return fixture;
    };
    addRow("get, " + kind, rounds, [=] {
        const auto fixture = makeFixture();
        return Row{manyCalls([=] { benchmark::DoNotOptimize((fixture->manager->*getter)()); }),
                   {{"bare lock and copy", manyCalls([=] { benchmark::DoNotOptimize(fixture->bare.get()); }), goal}}};
    });
    addRow("set, " + kind, rounds, [=] {
        const auto fixture = makeFixture();
        const auto bareSet = [=] {
            fixture->bare.set(fixture->nextValue());
            benchmark::ClobberMemory();
        };
        return Row{manyCalls([=] { (fixture->manager->*setter)(fixture->nextValue()); }),
                   {{"bare lock and copy", manyCalls(bareSet), goal}}};
    });
}

/// The rows for the pair of @p Manager that holds a value of type @p T.
template<class Manager, class T>
void addAccessorRows(const std::string &kind, T (*makeValue)())
{
    TavOperations::forEachPair<Manager>([&](const auto &setter, const auto &getter) {
        using Getter = std::decay_t<decltype(getter)>;
        if constexpr (std::is_same_v<typename Getter::Result, T>) {
            addPairRows<std::decay_t<decltype(setter)>, Getter>(kind, makeValue);
        }
    });
}

STResourceInfoAsr resourceInfo()
{
    STResourceInfoAsr record;
    std::memset(&record, 1, sizeof record);
    return record;
}

QVector<STProtoDataContainer> rowsOf(int count)
{
    return QVector<STProtoDataContainer>(count, {true, 1, "a row's message, serialised by the page"});
}

/// That a list's getter does not look at the rows.
void addListLengthRow()
{
    addRow("get, list of 100,000 rows or 10", rounds, [] {
        const auto withRows = [](int count) {
            const auto plugin = std::make_shared<TavPluginHost>(TAV_PLUGIN_FILE);
            auto *const manager = plugin->manager<ITavNetControlMgr>();
            manager->setUIData(rowsOf(count));
            return manyCalls([=, keep = plugin] { benchmark::DoNotOptimize(manager->getUIData()); });
        };
        return Row{withRows(100000), {{"list of 10 rows", withRows(10), goal}}};
    });
}
}

void Comparison::addRows()
{
    addAccessorRows<ITavNetControlMgr, Tav::Base::CommandStateAsr>("small message", smallMessage);
    addAccessorRows<ITavDevCtlMgr, Tav::DevControl::DevUsbInfoList>("message of 1,000 entries",
                                                                    [] { return messageOfEntries(1000); });
    addAccessorRows<ITavHostInfoMgr, STResourceInfoAsr>("plain record", resourceInfo);
    addAccessorRows<ITavNetControlMgr, QVector<STProtoDataContainer>>("list of 100,000 rows",
                                                                      [] { return rowsOf(100000); });
    addListLengthRow();
}
