#pragma once

#include "SampleValue.h"

#include "TavOperations.h"

#include <any>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

/// One setter and its getter, with the type of what they hold erased: values travel as std::any.
struct AccessorPair {
    std::string manager; ///< name of the interface
    std::string name;
    std::optional<std::string> initialContent; ///< none: the manager gives no initial value
    std::any empty;
    std::function<void(std::any &value, int seed)> fill;
    std::function<std::string(const std::any &value)> content;
    std::function<void(QObject *manager, const std::any &value)> set;
    std::function<std::any(QObject *manager)> get;

    std::any sample(int seed) const
    {
        std::any value = empty;
        fill(value, seed);
        return value;
    }
};

inline void PrintTo(const AccessorPair &pair, std::ostream *out)
{
    *out << pair.manager << ' ' << pair.name;
}

/// What a manager holds before the first set, as its interface gives it.
template<class Manager, class Value>
Value initialValue()
{
    Value value{};
    if constexpr (std::is_same_v<Value, STStateAsr>) {
        value.stateValue = 28;
    } else if constexpr (std::is_same_v<Manager,
                                        ITavNetControlMgr> && std::is_same_v<Value, Tav::Base::CommandStateAsr>) {
        value.set_state(0);
    }
    return value;
}

/// The pairs of all managers.
inline std::vector<AccessorPair> allPairs()
{
    std::vector<AccessorPair> pairs;
    TavOperations::forEachPair([&pairs](const auto &setter, const auto &getter) {
        using Setter = std::decay_t<decltype(setter)>;
        using Getter = std::decay_t<decltype(getter)>;
        using Manager = typename Getter::Interface;
        using Value = typename Getter::Result;
        AccessorPair pair;
        pair.manager = qobject_interface_iid<Manager *>();
        pair.name = getter.name.substr(std::strlen("get"));
        if (!getter.isIndeterminateAtFirst) {
            pair.initialContent = SampleValue::content(initialValue<Manager, Value>());
        }
        pair.empty = Value();
        pair.fill = [](std::any &value, int seed) { SampleValue::fill(std::any_cast<Value &>(value), seed); };
        pair.content = [](const std::any &value) { return SampleValue::content(std::any_cast<const Value &>(value)); };
        pair.set = [](QObject *manager, const std::any &value) {
            (qobject_cast<Manager *>(manager)->*Setter::member)(std::any_cast<const Value &>(value));
        };
        pair.get = [](QObject *manager) { return std::any((qobject_cast<Manager *>(manager)->*Getter::member)()); };
        pairs.push_back(std::move(pair));
    });
    return pairs;
}
