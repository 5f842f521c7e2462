#include "Contests.h"

#include "SampleValue.h"

#include "TavFields.h"
#include "TavOperations.h"

#include <algorithm>
#include <cstring>

namespace
{
template<class T>
void makeOwn(T &)
{
}

/// A list of its own, so that the manager alone holds it and whoever reads it without a lock reads freed memory.
template<class T>
void makeOwn(QVector<T> &list)
{
    list.detach();
}

/// Whether values of this type meet in a contest of their own, whose edits leave them other than they were set: the
/// selection, the devices, and the rows with a check mark.
template<class Value>
constexpr bool hasOwnContest = std::is_enum_v<Value> || std::is_same_v<Value, Tav::NetControl::NetDeviceInfos>;
template<class Row>
constexpr bool hasOwnContest<QVector<Row>> = std::apply(
    [](const auto &...fields) { return ((fields.kind == TavFields::Kind::CheckMark) || ...); },
    TavFields::Table<Row>::list);

/// What is read is one of the values set, to the last byte.
template<class Setter, class Getter>
Contest contest(TavPluginHost &host, const Setter &, const Getter &getter)
{
    using Value = typename Getter::Result;
    auto *const manager = host.manager<typename Getter::Interface>();
    std::vector<Value> samples;
    std::vector<std::string> contents;
    for (int seed = 1; seed <= 4; ++seed) {
        samples.push_back(SampleValue::sample<Value>(seed));
        contents.push_back(SampleValue::content(samples.back()));
    }
    (manager->*Setter::member)(samples.front());

    const auto setSample = [manager, samples](int seed) {
        Value value = samples[seed % samples.size()];
        makeOwn(value);
        (manager->*Setter::member)(value);
        return true;
    };
    const auto getSample = [manager, contents](int) {
        const auto isSample = [&contents](const Value &value) {
            return std::find(contents.begin(), contents.end(), SampleValue::content(value)) != contents.end();
        };
        return look([manager] { return (manager->*Getter::member)(); }, isSample);
    };
    const std::string interface = qobject_interface_iid<typename Getter::Interface *>();
    return {interface + ' ' + getter.name.substr(std::strlen("get")).data(), {{"set", setSample}, {"get", getSample}}};
}
}

std::vector<Contest> Contests::heldValues(TavPluginHost &host)
{
    std::vector<Contest> contests;
    TavOperations::forEachPair([&](const auto &setter, const auto &getter) {
        if constexpr (!hasOwnContest<typename std::decay_t<decltype(getter)>::Result>) {
            contests.push_back(contest(host, setter, getter));
        }
    });
    return contests;
}
