// What the managers stand on, from eight threads at once, with plain threads only.

#include "Contest.h"

#include "GlobalStateGuard.h"
#include "LogCapture.h"
#include "TavCommonUtils.h"
#include "TavEvents.h"
#include "TavObjectMgr.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <thread>

using testing::IsEmpty;

namespace
{
int pendingEvents()
{
    return TavEventNotifyMgr::getInstance()->pendingCount();
}
}

TEST(CommonStress, TheRegistryAnswersWhileObjectsAreRegistered)
{
    constexpr int count = 5;
    std::array<QObject, count> objects;
    TavObjectMgr registry;
    const auto key = [](int seed) { return STObjectKey{seed % count, QString::number(seed % count)}; };
    const auto registerOne = [&](int seed) {
        registry.registerObject(key(seed), &objects[seed % count], false);
        return true;
    };
    for (int seed = 0; seed < count; ++seed) {
        registerOne(seed);
    }
    const auto look = [&](int seed) { return registry.getObject(key(seed)) == &objects[seed % count]; };
    const auto lookInVain = [&](int seed) { return !registry.getObject({seed % count, "nobody"}); };
    const auto list = [&](int) {
        const QVector<STObjectKey> keys = registry.getObjectKeys();
        return keys.size() == count && keys.first() == key(0) && keys.last() == key(count - 1);
    };
    EXPECT_THAT(runContest({"TavObjectMgr",
                            {{"registerObject", registerOne},
                             {"getObject", look},
                             {"getObject of an unknown key", lookInVain},
                             {"getObjectKeys", list}}},
                           turnsOfEachCall()),
                IsEmpty());
}

TEST(CommonStress, TheRegistryAnswersUntilTheLastOfItsObjectsHasEnded)
{
    struct Asker : QObject {
        ~Asker() override
        {
            thread.join();
        }

        std::thread thread;
    };
    std::array<int, threadCount> wrongAnswers = {};
    {
        TavObjectMgr registry;
        std::array<Asker *, threadCount> askers;
        for (Asker *&asker : askers) {
            asker = new Asker;
            registry.registerObject({1, "asker"}, asker, true);
        }
        for (int number = 0; number < threadCount; ++number) {
            askers[number]->thread = std::thread([&registry, &wrong = wrongAnswers[number]] {
                for (int turn = 0; turn < turnsOfEachCall(); ++turn) {
                    wrong += registry.getObject({1, "nobody"}) != nullptr;
                }
            });
        }
    }
    EXPECT_THAT(wrongAnswers, testing::Each(0));
}

TEST(CommonStress, TheRegistryInUseIsOneOfThoseSet)
{
    const GlobalStateGuard guard;
    std::array<TavObjectMgr, 2> registries;
    const auto isOne
        = [&](const ITavObjectMgr *registry) { return registry == &registries[0] || registry == &registries[1]; };
    TavGlobalInfoMgr::setObjectMgr(&registries[0]);
    EXPECT_THAT(runContest({"TavGlobalInfoMgr registry",
                            {{"setObjectMgr",
                              [&](int seed) {
                                  TavGlobalInfoMgr::setObjectMgr(&registries[seed % 2]);
                                  return true;
                              }},
                             {"getObjectMgr", [&](int) { return isOne(TavGlobalInfoMgr::getObjectMgr()); }}}},
                           turnsOfEachCall()),
                IsEmpty());
}

TEST(CommonStress, PathsAreNeverReadHalfCopied)
{
    const GlobalStateGuard guard;
    TavGlobalInfoMgr *const info = TavGlobalInfoMgr::getInstance();
    const auto path = [](int seed) { return QStringLiteral("/a path of installation %1").arg(seed); };
    const auto setAppPath = [&](int seed) {
        info->setAppPath({path(seed), path(seed), path(seed), path(seed), path(seed)});
        return true;
    };
    const auto getAppPath = [&](int) {
        const STAppPathInfo paths = info->getAppPath();
        return paths.appPath.startsWith(path(0).chopped(1)) && paths.pluginPath == paths.appPath
            && paths.logPath == paths.appPath && paths.dataPath == paths.appPath && paths.configPath == paths.appPath;
    };
    setAppPath(0);
    EXPECT_THAT(
        runContest({"TavGlobalInfoMgr application paths", {{"setAppPath", setAppPath}, {"getAppPath", getAppPath}}},
                   turnsOfEachCall()),
        IsEmpty());

    const auto setRoot = [&](int seed) {
        info->setSystemRoot(path(seed));
        return true;
    };
    setRoot(0);
    EXPECT_THAT(runContest({"TavGlobalInfoMgr system root",
                            {{"setSystemRoot", setRoot},
                             {"systemRoot", [&](int) { return info->systemRoot().startsWith(path(0).chopped(1)); }}}},
                           turnsOfEachCall()),
                IsEmpty());
}

TEST(CommonStress, WhatIsGivenInPlaceOfAFileIsReadWhole)
{
    const QString path = QStringLiteral("/given");
    const auto text = [](int seed) { return QStringLiteral("the content that was given as %1").arg(seed % 10); };
    const auto give = [&](int seed) {
        TavCommonUtils::setContent(path, text(seed).toUtf8());
        return true;
    };
    const auto read = [&](int) {
        const QString content = TavCommonUtils::readAll(path);
        return content.chopped(1) == text(0).chopped(1) && content.back().isDigit();
    };
    give(0);
    EXPECT_THAT(runContest({"TavCommonUtils", {{"setContent", give}, {"readAll", read}}}, turnsOfEachCall()),
                IsEmpty());
    TavCommonUtils::setContent(path, {});
}

TEST(CommonStress, TheLogTakesLinesOfAllThreads)
{
    const GlobalStateGuard guard;
    const LogCapture log;
    const auto logLine = [](const char *source) {
        TavNanolog::TavNanoLogLine line(1, source, "function", 1);
        line.encode("message");
        TavNanolog::NanoLog(line);
        return true;
    };
    const std::array<const char *, 3> sources = {"StressA", "StressB", "StressC"};
    EXPECT_THAT(runContest({"TavNanolog",
                            {{"NanoLog", [&](int seed) { return logLine(sources[seed % sources.size()]); }},
                             {"is_logged", [](int) { return TavNanolog::is_logged(1); }},
                             {"setLevel",
                              [](int seed) {
                                  TavNanolog::setLevel(1 + seed % 2);
                                  return true;
                              }},
                             {"NanoLog of one more source", [&](int) { return logLine("StressD"); }}}},
                           turnsOfEachCall()),
                IsEmpty());
    EXPECT_EQ(log.messages("tav.StressD").size(), 2 * turnsOfEachCall());
}

TEST(CommonStress, ASignalMayBeSubscribedToWhileItIsEmitted)
{
    ASSERT_EQ(pendingEvents(), 0);
    const auto token = std::make_shared<char>();
    // The values of each emitter, which must come in order and each once; looked at by this thread alone.
    std::vector<int> received(threadCount);
    int lost = 0;
    {
        TavSignal<int> signal;
        QThread unstarted;
        const auto count
            = [&received, &lost, token](int value) { lost += received[value % threadCount]++ != value / threadCount; };
        signal.subscribe(count, QThread::currentThread());
        const Operation emitValue{"Emit", [&signal](int seed) {
                                      signal.Emit(seed);
                                      return true;
                                  }};
        const auto comeAndGo = [&signal, token](QThread *thread) {
            const int id = signal.subscribe([token](int) {}, thread);
            return id > 1 && signal.unsubscribe(id) && !signal.unsubscribe(id);
        };
        QThread *const here = QThread::currentThread();
        EXPECT_THAT(runContest({"TavSignal",
                                {emitValue,
                                 emitValue,
                                 emitValue,
                                 {"subscribe for this thread", [&, here](int) { return comeAndGo(here); }},
                                 {"subscribe for an unstarted thread", [&](int) { return comeAndGo(&unstarted); }},
                                 {"subscribe for no thread", [&](int) { return comeAndGo(nullptr); }},
                                 {"subscriberCount", [&signal](int) { return signal.subscriberCount() >= 1; }},
                                 {"pendingCount", [](int) { return pendingEvents() >= 0; }}}},
                               turnsOfEachCall()),
                    IsEmpty());
        EXPECT_EQ(signal.subscriberCount(), 1);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(lost, 0);
    for (int emitter = 0; emitter < 3; ++emitter) {
        EXPECT_EQ(received[emitter], turnsOfEachCall());
    }
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_EQ(pendingEvents(), 0);
}

TEST(CommonStress, NoSubscriptionIsLostAndNoneComesBack)
{
    TavSignal<int> signal;
    const int turns = std::min(turnsOfEachCall(), 200);
    const Operation subscribe{"subscribe", [&signal](int) { return signal.subscribe([](int) {}, nullptr) > 0; }};
    const Operation read{"subscriberCount", [&signal](int) { return signal.subscriberCount() >= 0; }};
    // Some threads only subscribe and others only read: nothing that either does orders the two but the list itself.
    EXPECT_THAT(runContest({"TavSignal growing", {subscribe, subscribe, subscribe, read}}, turns), IsEmpty());
    EXPECT_EQ(signal.subscriberCount(), threadCount / 4 * 3 * turns);

    std::vector<int> ids;
    for (int seed = 0; seed < turns * threadCount; ++seed) {
        ids.push_back(signal.subscribe([](int) {}, nullptr));
    }
    const int before = signal.subscriberCount();
    const Operation unsubscribe{"unsubscribe", [&](int seed) { return signal.unsubscribe(ids[seed]); }};
    EXPECT_THAT(runContest({"TavSignal changing", {subscribe, unsubscribe, read, read}}, turns), IsEmpty());
    EXPECT_EQ(signal.subscriberCount(), before); // as many have come as have gone
}

TEST(CommonStress, TheBusTakesEventsOfAllThreads)
{
    ASSERT_EQ(pendingEvents(), 0);
    // Several receivers, so that several threads are the first to send to one.
    const auto token = std::make_shared<char>();
    {
        std::array<QThread, threadCount> receivers;
        std::vector<Operation> operations;
        for (int first = 0; first < threadCount; ++first) {
            operations.push_back({"addEventNotify", [&receivers, token, first](int seed) {
                                      auto *const event = new TavBaseEvent(nullptr);
                                      event->setFunc([token] {});
                                      event->moveToThread(&receivers[(first + seed / threadCount) % threadCount]);
                                      TavEventNotifyMgr::getInstance()->addEventNotify(event);
                                      return true;
                                  }});
        }
        EXPECT_THAT(runContest({"TavEventNotifyMgr", operations}, turnsOfEachCall()), IsEmpty());
        EXPECT_EQ(pendingEvents(), threadCount * turnsOfEachCall());
    }
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_EQ(pendingEvents(), 0);
}

TEST(CommonStress, TheBusMeetsThreadsWhileItForgetsOthers)
{
    ASSERT_EQ(pendingEvents(), 0);
    const auto token = std::make_shared<char>();
    const auto comeAndGo = [&token](int) {
        QThread unstarted;
        auto *const event = new TavBaseEvent(nullptr);
        event->setFunc([token] {});
        event->moveToThread(&unstarted);
        TavEventNotifyMgr::getInstance()->addEventNotify(event);
        return pendingEvents() > 0;
    };
    EXPECT_THAT(runContest({"TavEventNotifyMgr", {{"a thread that comes and goes", comeAndGo}}}, turnsOfEachCall()),
                IsEmpty());
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_EQ(pendingEvents(), 0);
}
