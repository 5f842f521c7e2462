#include "MemberName.h"
#include "Slots.h"
#include "TavOperations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <set>
#include <string>

namespace
{
template<class List>
struct RowOf {
    using type = void;
};

template<class Row>
struct RowOf<QVector<Row>> {
    using type = Row;
};

template<class Operation>
std::string described(const Operation &operation)
{
    return std::string(qobject_interface_iid<typename Operation::Interface *>()) + " " + std::string(operation.name);
}
}

TEST(Operations, StandInTheTableAtThePlaceThatTheirInterfaceGivesThem)
{
    TavOperations::Interfaces::forEach([](auto tag) {
        using Interface = typename decltype(tag)::type;
        int place = 0;
        TavOperations::forEachOperation<Interface>([&place](const auto &operation) {
            EXPECT_EQ(slotIndex(operation.member), place)
                << "an operation is missing in the table, or stands elsewhere; next there: " << described(operation);
            place = slotIndex(operation.member) + 1;
        });
        EXPECT_EQ(slotCount<Interface>(), place)
            << qobject_interface_iid<Interface *>() << ": the last operations are missing in the table";
    });
}

TEST(Operations, BearTheNamesOfTheirMembers)
{
    TavOperations::forEachOperation([](const auto &operation) {
        EXPECT_EQ(operation.name, memberName<std::decay_t<decltype(operation)>::member>()) << described(operation);
    });
}

TEST(Operations, NameEachOfTheirArgumentsDifferently)
{
    TavOperations::forEachOperation([](const auto &operation) {
        const std::set<std::string_view> names(operation.argumentNames.begin(), operation.argumentNames.end());
        EXPECT_EQ(names.size(), operation.argumentNames.size()) << described(operation);
        EXPECT_EQ(names.count(""), 0u) << described(operation);
    });
}

TEST(Operations, ArePairedWhenTheirNamesAreUnlessTheyTakeAKey)
{
    std::set<std::string> setters;
    std::set<std::string> getters;
    TavOperations::forEachOperation([&](const auto &operation) {
        const std::string name = described(operation);
        for (const auto &[prefix, names] :
             {std::pair(" set", &setters), std::pair(" update", &setters), std::pair(" get", &getters)}) {
            if (const std::size_t at = name.find(prefix); at != name.npos) {
                names->insert(std::string(name).erase(at + 1, std::strlen(prefix) - 1));
            }
        }
    });
    std::set<std::string> expected;
    std::set_intersection(setters.begin(), setters.end(), getters.begin(), getters.end(),
                          std::inserter(expected, expected.end()));
    std::set<std::string> paired
        = {"ITavAccessControlMgr ObjectCount", "ITavAccessControlMgr ObjectDetail", "ITavAccessControlMgr UserDetail"};
    TavOperations::forEachPair([&paired](const auto &, const auto &getter) {
        paired.insert(described(getter).erase(described(getter).find(" get") + 1, std::strlen("get")));
    });
    EXPECT_EQ(paired, expected);
}

TEST(Operations, ThatShareTheirNameSaySo)
{
    std::multiset<std::string> names;
    TavOperations::forEachOperation([&names](const auto &operation) { names.insert(described(operation)); });
    TavOperations::forEachOperation([&names](const auto &operation) {
        EXPECT_EQ(TavOperations::sharesItsName(operation), names.count(described(operation)) > 1)
            << described(operation);
    });
}

TEST(Operations, AreSettersWhenTheyTakeOneValueByReferenceAndReturnNothing)
{
    EXPECT_TRUE(TavOperations::isSetter<void(const int &)>);
    EXPECT_FALSE(TavOperations::isSetter<void(int)>);
    EXPECT_FALSE(TavOperations::isSetter<int(const int &)>);
}

TEST(Operations, HaveNoGetterUnlessTheySetSomething)
{
    const auto &audit = TavOperations::Table<ITavAuditMgr>::list;
    EXPECT_EQ(TavOperations::getterOf(std::get<0>(audit)), -1);
    EXPECT_EQ(TavOperations::getterOf(std::get<1>(audit)), 2);
}

TEST(Operations, ThatOverwriteARowNameTheListThatHoldsIt)
{
    TavOperations::Interfaces::forEach([](auto tag) {
        using Interface = typename decltype(tag)::type;
        TavOperations::forEachOperation<Interface>([](const auto &edit) {
            using Edit = std::decay_t<decltype(edit)>;
            bool isEdit = false;
            bool namesItsList = false;
            TavOperations::forEachOperation<Interface>([&](const auto &getter) {
                using List = typename std::decay_t<decltype(getter)>::Result;
                if constexpr (std::is_same_v<typename Edit::Values, std::tuple<typename RowOf<List>::type>>) {
                    isEdit = true;
                    namesItsList = namesItsList || (edit.editedList == getter.name && !edit.foundBy.empty());
                }
            });
            EXPECT_EQ(namesItsList, isEdit) << described(edit);
            EXPECT_EQ(edit.editedList.empty(), !isEdit) << described(edit);
        });
    });
}

TEST(Operations, AreMarkedWhenTheirFirstResultIsIndeterminate)
{
    std::set<std::string> marked;
    TavOperations::forEachOperation([&marked](const auto &operation) {
        if (operation.isIndeterminateAtFirst) {
            marked.insert(described(operation));
        }
    });
    EXPECT_EQ(marked, std::set<std::string>({"ITavHostInfoMgr getResourceInfo"}));
}
