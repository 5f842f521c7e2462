#include "TavObjectMgr.h"

#include "AtOnce.h"
#include "Deadline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class ITestMgr
{
public:
    virtual int number() = 0;

protected:
    ~ITestMgr() = default;
};
Q_DECLARE_INTERFACE(ITestMgr, "ITestMgr")

class TestMgr : public QObject, public ITestMgr
{
    Q_OBJECT
    Q_INTERFACES(ITestMgr)
public:
    int number() override
    {
        return 7;
    }
};

namespace
{
const STObjectKey keyA{1, QStringLiteral("a")};
const STObjectKey keyB{1, QStringLiteral("b")};
const STObjectKey keyC{2, QStringLiteral("a")};

/// Calls a function as its destructor.
class LastWord : public QObject
{
public:
    explicit LastWord(std::function<void()> word) : m_word(std::move(word))
    {
    }

    ~LastWord() override
    {
        m_word();
    }

private:
    std::function<void()> m_word;
};

/// Makes a registry of its own the client's, for as long as it lives.
class RegistryInUse
{
public:
    RegistryInUse()
    {
        TavGlobalInfoMgr::setObjectMgr(&m_registry);
    }

    ~RegistryInUse()
    {
        TavGlobalInfoMgr::setObjectMgr(nullptr);
    }

    TavObjectMgr *operator->()
    {
        return &m_registry;
    }

private:
    TavObjectMgr m_registry;
};
}

TEST(ObjectMgr, AnswersWithTheRegisteredObject)
{
    TavObjectMgr registry;
    QObject object;
    registry.registerObject(keyA, &object, false);
    EXPECT_EQ(registry.getObject(keyA), &object);
}

TEST(ObjectMgr, AnswersNullForAnUnknownKey)
{
    TavObjectMgr registry;
    EXPECT_EQ(registry.getObject(keyA), nullptr);
}

TEST(ObjectMgr, KeysWithOneNameAndTwoIdentifiersAreTwoKeys)
{
    TavObjectMgr registry;
    QObject first;
    QObject second;
    registry.registerObject(keyA, &first, false);
    registry.registerObject(keyC, &second, false);
    EXPECT_EQ(registry.getObject(keyA), &first);
    EXPECT_EQ(registry.getObject(keyC), &second);
}

TEST(ObjectMgr, KeysWithOneIdentifierAndTwoNamesAreTwoKeys)
{
    TavObjectMgr registry;
    QObject first;
    QObject second;
    registry.registerObject(keyA, &first, false);
    registry.registerObject(keyB, &second, false);
    EXPECT_EQ(registry.getObject(keyA), &first);
    EXPECT_EQ(registry.getObject(keyB), &second);
}

TEST(ObjectMgr, ListsTheKeysInTheOrderOfRegistration)
{
    TavObjectMgr registry;
    QObject object;
    for (const STObjectKey &key : {keyC, keyA, keyB}) {
        registry.registerObject(key, &object, false);
    }
    EXPECT_THAT(registry.getObjectKeys(), testing::ElementsAre(keyC, keyA, keyB));
}

TEST(ObjectMgr, ListsAKeyRegisteredTwiceOnce)
{
    TavObjectMgr registry;
    QObject object;
    for (const STObjectKey &key : {keyA, keyB, keyA}) {
        registry.registerObject(key, &object, false);
    }
    EXPECT_THAT(registry.getObjectKeys(), testing::ElementsAre(keyA, keyB));
}

TEST(ObjectMgr, AKeyRegisteredTwiceAnswersTheNewest)
{
    TavObjectMgr registry;
    QObject older;
    QObject newer;
    registry.registerObject(keyA, &older, false);
    registry.registerObject(keyA, &newer, false);
    EXPECT_EQ(registry.getObject(keyA), &newer);
}

TEST(ObjectMgr, AKeyRegisteredTwiceKeepsTheOlderObjectAlive)
{
    TavObjectMgr registry;
    const QPointer<QObject> older = new QObject;
    registry.registerObject(keyA, older, true);
    registry.registerObject(keyA, new QObject, true);
    EXPECT_FALSE(older.isNull());
}

TEST(ObjectMgr, WhenTheNewestObjectOfAKeyDiesTheOlderAnswers)
{
    TavObjectMgr registry;
    QObject older;
    auto newer = std::make_unique<QObject>();
    registry.registerObject(keyA, &older, false);
    registry.registerObject(keyA, newer.get(), false);
    newer.reset();
    EXPECT_EQ(registry.getObject(keyA), &older);
}

TEST(ObjectMgr, EndsItsOwnObjectsNewestFirst)
{
    std::vector<int> ended;
    {
        TavObjectMgr registry;
        int number = 0;
        for (const STObjectKey &key : {keyA, keyB, keyA, keyC}) {
            ++number;
            registry.registerObject(key, new LastWord([&ended, number] { ended.push_back(number); }), true);
        }
        ASSERT_THAT(ended, testing::IsEmpty());
    }
    EXPECT_THAT(ended, testing::ElementsAre(4, 3, 2, 1));
}

TEST(ObjectMgr, LeavesObjectsThatItDoesNotOwn)
{
    const auto object = std::make_unique<QObject>();
    const QPointer<QObject> alive = object.get();
    {
        TavObjectMgr registry;
        registry.registerObject(keyA, object.get(), false);
    }
    EXPECT_FALSE(alive.isNull());
}

TEST(ObjectMgr, ForgetsAnObjectThatSomebodyElseDeletes)
{
    TavObjectMgr registry;
    QObject other;
    auto *const object = new QObject;
    registry.registerObject(keyA, object, true);
    registry.registerObject(keyB, &other, false);
    delete object;
    EXPECT_EQ(registry.getObject(keyA), nullptr);
    EXPECT_THAT(registry.getObjectKeys(), testing::ElementsAre(keyB));
}

TEST(ObjectMgr, AnObjectThatDiesWithAnotherIsNotDeletedAgain)
{
    int ends = 0;
    {
        TavObjectMgr registry;
        auto *const child = new LastWord([&ends] { ++ends; });
        auto *const parent = new QObject;
        child->setParent(parent);
        registry.registerObject(keyA, child, true);
        registry.registerObject(keyB, parent, true);
    }
    EXPECT_EQ(ends, 1);
}

TEST(ObjectMgr, AnOwnedObjectUnderTwoKeysIsDeletedOnce)
{
    int ends = 0;
    {
        TavObjectMgr registry;
        auto *const object = new LastWord([&ends] { ++ends; });
        registry.registerObject(keyA, object, true);
        registry.registerObject(keyB, object, true);
    }
    EXPECT_EQ(ends, 1);
}

TEST(ObjectMgr, ANullObjectIsNotRegistered)
{
    TavObjectMgr registry;
    QObject object;
    registry.registerObject(keyA, &object, false);
    registry.registerObject(keyA, nullptr, true);
    registry.registerObject(keyB, nullptr, true);
    EXPECT_EQ(registry.getObject(keyA), &object);
    EXPECT_EQ(registry.getObject(keyB), nullptr);
    EXPECT_THAT(registry.getObjectKeys(), testing::ElementsAre(keyA));
}

TEST(ObjectMgr, ADyingObjectMayAskForTheOlderOnes)
{
    const Deadline deadline;
    QObject older;
    std::optional<QObject *> answerForOlder;
    std::optional<QObject *> answerForItself;
    {
        TavObjectMgr registry;
        registry.registerObject(keyA, &older, false);
        const auto ask = [&] {
            answerForOlder = registry.getObject(keyA);
            answerForItself = registry.getObject(keyB);
        };
        registry.registerObject(keyB, new LastWord(ask), true);
    }
    EXPECT_EQ(answerForOlder, &older);
    EXPECT_EQ(answerForItself, nullptr);
}

TEST(ObjectMgr, ThreadsMayRegisterAndLookUpAtOnce)
{
    constexpr int threadCount = 4;
    TavObjectMgr registry;
    std::vector<int> wrongAnswers(threadCount, 0);
    atOnce(threadCount, [&](int number) {
        const STObjectKey key{number, QStringLiteral("key")};
        for (int round = 0; round < 20000; ++round) {
            auto *const object = new QObject;
            registry.registerObject(key, object, true);
            wrongAnswers[number] += registry.getObject(key) != object;
            wrongAnswers[number] += round % 2000 == 0 && !registry.getObjectKeys().contains(key);
        }
    });
    EXPECT_THAT(wrongAnswers, testing::Each(0));
    EXPECT_EQ(registry.getObjectKeys().size(), threadCount);
}

TEST(ObjectMgr, TheKeyOfAManagerIsItsInterfaceNameWithTheSuffix)
{
    EXPECT_EQ(tavManagerKey("ITestMgr"), (STObjectKey{-9999, QStringLiteral("ITestMgr_Tav_ORG")}));
}

TEST(TavObject, FindsAManagerByItsInterface)
{
    RegistryInUse registry;
    TestMgr manager;
    registry->registerObject({-9999, QStringLiteral("ITestMgr_Tav_ORG")}, &manager, false);
    EXPECT_EQ(tavObject<ITestMgr>("ITestMgr"), static_cast<ITestMgr *>(&manager));
    EXPECT_EQ(tavObject<ITestMgr>(), static_cast<ITestMgr *>(&manager));
}

TEST(TavObject, FindsAManagerUnderAnotherNameOnlyByThatName)
{
    RegistryInUse registry;
    TestMgr manager;
    registry->registerObject(tavManagerKey("IOtherMgr"), &manager, false);
    EXPECT_EQ(tavObject<ITestMgr>("IOtherMgr"), static_cast<ITestMgr *>(&manager));
    EXPECT_EQ(tavObject<ITestMgr>(), nullptr);
}

TEST(TavObject, IsNullWhenTheManagerIsAbsent)
{
    RegistryInUse registry;
    EXPECT_EQ(tavObject<ITestMgr>("ITestMgr"), nullptr);
}

TEST(TavObject, IsNullWhenTheObjectHasAnotherInterface)
{
    RegistryInUse registry;
    QObject object;
    registry->registerObject(tavManagerKey("ITestMgr"), &object, false);
    EXPECT_EQ(tavObject<ITestMgr>("ITestMgr"), nullptr);
}

#include "ObjectMgrTest.moc"
