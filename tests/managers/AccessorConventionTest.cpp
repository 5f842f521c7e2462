#include "AccessorPairs.h"
#include "SideBySide.h"
#include "TavPluginHost.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <any>
#include <set>
#include <string>
#include <vector>

namespace
{
std::vector<AccessorPair> pairsWithInitialValue()
{
    std::vector<AccessorPair> pairs;
    for (const AccessorPair &pair : allPairs()) {
        if (pair.initialContent) {
            pairs.push_back(pair);
        }
    }
    return pairs;
}

std::string testName(const testing::TestParamInfo<AccessorPair> &info)
{
    return info.param.manager + '_' + info.param.name;
}
}

class AccessorConvention : public testing::TestWithParam<AccessorPair>
{
protected:
    void set(const std::any &value)
    {
        pair.set(manager, value);
    }

    std::any get()
    {
        return pair.get(manager);
    }

    std::string heldContent()
    {
        return pair.content(get());
    }

    TavPluginHost host{TAV_PLUGIN_FILE};
    const AccessorPair &pair = GetParam();
    QObject *const manager = host.managerObject(pair.manager.c_str());
    const std::any valueA = pair.sample(1);
    const std::any valueB = pair.sample(2);
    const std::string contentA = pair.content(valueA);
    const std::string contentB = pair.content(valueB);
};

INSTANTIATE_TEST_SUITE_P(All, AccessorConvention, testing::ValuesIn(allPairs()), testName);

TEST_P(AccessorConvention, TheGetterReturnsWhatWasSet)
{
    set(valueA);
    EXPECT_EQ(heldContent(), contentA);
}

TEST_P(AccessorConvention, ASetReplacesTheWholeOfTheValueBefore)
{
    set(valueA);
    set(valueB);
    EXPECT_EQ(heldContent(), contentB);
    set(pair.empty);
    EXPECT_EQ(heldContent(), pair.content(pair.empty));
}

TEST_P(AccessorConvention, SettingWhatWasJustReadChangesNothing)
{
    set(valueA);
    set(get());
    EXPECT_EQ(heldContent(), contentA);
}

TEST_P(AccessorConvention, ChangingTheReturnedCopyDoesNotChangeTheManager)
{
    set(valueA);
    std::any copy = get();
    pair.fill(copy, 2);
    EXPECT_EQ(heldContent(), contentA);
}

TEST_P(AccessorConvention, ChangingTheArgumentAfterwardsDoesNotChangeTheManager)
{
    std::any argument = valueA;
    set(argument);
    pair.fill(argument, 2);
    EXPECT_EQ(heldContent(), contentA);
}

TEST_P(AccessorConvention, ASetDoesNotChangeItsArgument)
{
    set(valueB);
    const std::any argument = valueA;
    set(argument);
    EXPECT_EQ(pair.content(argument), contentA);
}

TEST_P(AccessorConvention, ALaterSetDoesNotChangeAnEarlierCopy)
{
    set(valueA);
    const std::any copy = get();
    set(valueB);
    EXPECT_EQ(pair.content(copy), contentA);
}

TEST_P(AccessorConvention, ASetChangesNoOtherPairOfItsManager)
{
    std::vector<AccessorPair> others;
    for (const AccessorPair &other : allPairs()) {
        if (other.manager == pair.manager && other.name != pair.name) {
            other.set(manager, other.sample(3));
            others.push_back(other);
        }
    }
    ASSERT_FALSE(others.empty());

    set(valueA);
    for (const AccessorPair &other : others) {
        EXPECT_EQ(other.content(other.get(manager)), other.content(other.sample(3))) << other.name;
    }
}

TEST_P(AccessorConvention, AValueIsNeverReadHalfCopied)
{
    set(valueA);
    // A new value each time, which the manager alone holds: a list read while it is replaced would be a freed one.
    const auto seen = readWhileWriting([this](int call) { set(pair.sample(call % 2 == 0 ? 2 : 1)); },
                                       [this] { return heldContent(); });
    EXPECT_TRUE(seen == std::set<std::string>({contentA, contentB})) << seen.size() << " different values were read";
}

class AccessorInitialValue : public AccessorConvention
{
protected:
    /// Has the C library hand out memory that is not zero by chance.
    static void SetUpTestSuite()
    {
        mallopt(M_PERTURB, 0x5a);
    }
};

INSTANTIATE_TEST_SUITE_P(All, AccessorInitialValue, testing::ValuesIn(pairsWithInitialValue()), testName);

TEST_P(AccessorInitialValue, IsReadBeforeTheFirstSet)
{
    EXPECT_EQ(heldContent(), *pair.initialContent);
}

template<class Manager>
class ManagerConvention : public testing::Test
{
protected:
    const char *const interfaceName = qobject_interface_iid<Manager *>();
    TavPluginHost host{TAV_PLUGIN_FILE};
    QObject *const object = host.managerObject(interfaceName);
    Manager *const manager = host.manager<Manager>();
};

template<class... Interfaces>
testing::Types<Interfaces...> typesOf(TavTypeList<Interfaces...>);
using Managers = decltype(typesOf(TavOperations::Interfaces()));
TYPED_TEST_SUITE(ManagerConvention, Managers, ); // the comma is for clang, which wants the macro's last argument

TYPED_TEST(ManagerConvention, GetObjectReturnsTheManagerItself)
{
    ASSERT_NE(this->manager, nullptr);
    EXPECT_EQ(this->manager->getObject(), this->object);
}

TYPED_TEST(ManagerConvention, AnswersToItsClassNameAndItsInterfaceNameOnly)
{
    const std::string className = std::string(this->interfaceName).substr(1);
    EXPECT_EQ(this->object->metaObject()->className(), className);
    EXPECT_EQ(this->object->qt_metacast(className.c_str()), this->object);
    EXPECT_EQ(this->object->qt_metacast(this->interfaceName), this->manager);
    EXPECT_EQ(this->object->qt_metacast("QObject"), this->object);
    EXPECT_EQ(this->object->qt_metacast("ITavOtherMgr"), nullptr);
}

TYPED_TEST(ManagerConvention, HasNoParent)
{
    EXPECT_EQ(this->object->parent(), nullptr);
}
