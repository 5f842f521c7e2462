#include "TavScenarioRecorder.h"

#include "PrintQString.h"
#include "TavPluginHost.h"
#include "TavScenarioPlayer.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace
{
Tav::Base::CommandStateAsr state(int number)
{
    Tav::Base::CommandStateAsr state;
    state.set_state(number);
    return state;
}

class Recorder : public testing::Test
{
protected:
    QVector<TavScenario::Line> lines()
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        TavScenarioReader reader(file);
        QVector<TavScenario::Line> all;
        for (TavScenario::Line line; reader.next(line);) {
            all.append(line);
        }
        return all;
    }

    QTemporaryDir directory;
    const QString path = directory.filePath("day.jsonl");
};

/// Lets no file of this process grow beyond @p bytes, as a full disk does.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
    }

    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before{};
};
}

TEST_F(Recorder, WritesAScenarioThatPlaysWhatItWasTold)
{
    {
        TavScenarioRecorder recorder(path, {{"title", "a day"}});
        recorder.record<&ITavNetControlMgr::setState>(state(7));
        recorder.record("ITavNetControlMgr", "getState", {}, QJsonObject{{"state", 7}});
    }
    TavPluginHost host{TAV_PLUGIN_FILE};
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    TavPlayOptions options;
    options.speed = TavPlayOptions::fastest;
    options.isChecked = true;
    const TavPlayReport report = TavScenarioPlayer(host, file, options).wait();
    EXPECT_FALSE(report.error) << report.error->what();
    EXPECT_EQ(report.lines, 2);
    EXPECT_EQ(host.manager<ITavNetControlMgr>()->getState().state(), 7);
}

TEST_F(Recorder, LeavesOutASetterWithTheValueItHadLast)
{
    {
        TavScenarioRecorder recorder(path);
        for (const int number : {1, 1, 2, 2, 1}) {
            recorder.record<&ITavNetControlMgr::setState>(state(number));
            recorder.record<&ITavAccessControlMgr::setState>(state(3));
        }
        EXPECT_EQ(recorder.progress().unchanged, 2 + 4);
    }
    EXPECT_EQ(lines().size(), 4);
}

TEST_F(Recorder, KnowsTheValuesOfAKeyedTableApart)
{
    const QVector<STPriDetailAsr> none;
    const QVector<STPriDetailAsr> one(1);
    {
        TavScenarioRecorder recorder(path);
        for (const auto &details : {none, one, one}) {
            recorder.record<&ITavAccessControlMgr::updateUserDetail>(1, details);
            recorder.record<&ITavAccessControlMgr::updateUserDetail>(2, none);
        }
        recorder.record<&ITavAccessControlMgr::updateUserDetail>(1, none);
        EXPECT_EQ(recorder.progress().unchanged, 1 + 2);
    }
    EXPECT_EQ(lines().size(), 4);
}

TEST_F(Recorder, LeavesOutGettersThatAreNotToBeChecked)
{
    {
        TavScenarioRecorder recorder(path);
        recorder.record<&ITavNetControlMgr::getState>();
        recorder.record("ITavNetControlMgr", "getState", {}, QJsonObject());
        EXPECT_EQ(recorder.progress().unchanged, 1);
    }
    EXPECT_EQ(lines().size(), 1);
}

TEST_F(Recorder, NeverLeavesOutACallThatIsToBeChecked)
{
    {
        TavScenarioRecorder recorder(path);
        for (int i = 0; i < 2; ++i) {
            recorder.record("ITavNetControlMgr", "setState", {TavJson::toJson(state(1))}, QJsonValue::Null);
        }
    }
    EXPECT_EQ(lines().size(), 2);
}

TEST_F(Recorder, NamesTheArgumentsOfOperationsThatShareTheirName)
{
    using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;
    {
        TavScenarioRecorder recorder(path, {}, TavScenarioRecorder::Calls::All);
        constexpr auto ofPage
            = TavOperations::overload<TavSubFuncTypeData_(const Page &)>(&ITavFuncTypeMgr::getSubFuncInfo);
        recorder.record<ofPage>(Page(-1)); // its number alone might be that of a function as well
    }
    ASSERT_EQ(lines().size(), 1);
    EXPECT_EQ(lines().first().arguments, QJsonValue(QJsonObject{{"subFuncType", -1}}));
}

TEST_F(Recorder, KeepsTheNameOfAThreadThatHasOneOfTheScenarios)
{
    {
        TavScenarioRecorder recorder(path);
        int number = 0;
        const auto tellOn = [&](const QString &name, const std::function<void()> &meanwhile) {
            const std::unique_ptr<QThread> thread(QThread::create([&] {
                recorder.record<&ITavNetControlMgr::setState>(state(++number));
                meanwhile();
            }));
            thread->setObjectName(name);
            thread->start();
            thread->wait();
        };
        // All live at once: the system gives a thread that has ended and its successor one number.
        const auto nobody = [] {};
        const auto unnamed = [&] { tellOn("", nobody); };
        const auto reader = [&] { tellOn("reader", unnamed); };
        const auto agent = [&] { tellOn("agent", reader); };
        const auto agent3 = [&] { tellOn("agent3", agent); };
        tellOn("agent", agent3);
    }
    QStringList threads;
    for (const TavScenario::Line &line : lines()) {
        threads.append(TavScenario::threads()[line.thread]);
    }
    EXPECT_EQ(threads, (QStringList{"agent", "agent3", "agent", "agent2", "agent4"}));
}

TEST_F(Recorder, NamesTheThreadThatMadeTheCall)
{
    {
        TavScenarioRecorder recorder(path);
        int number = 0;
        const auto tell = [&] { recorder.record<&ITavNetControlMgr::setState>(state(++number)); };
        const auto tellOnOneMore = [&](const std::function<void()> &meanwhile) {
            std::thread([&] {
                tell();
                meanwhile();
            }).join();
        };
        tell();
        tellOnOneMore([&] { tellOnOneMore(tell); });
    }
    QStringList threads;
    for (const TavScenario::Line &line : lines()) {
        threads.append(TavScenario::threads()[line.thread]);
    }
    EXPECT_EQ(threads, (QStringList{"gui", "agent", "agent2", "agent2"}));
}

TEST_F(Recorder, WritesEveryCallWhenToldTo)
{
    {
        TavScenarioRecorder recorder(path, {}, TavScenarioRecorder::Calls::All);
        recorder.record<&ITavNetControlMgr::setState>(state(1));
        recorder.record<&ITavNetControlMgr::setState>(state(1));
        recorder.record<&ITavNetControlMgr::getState>();
    }
    EXPECT_EQ(lines().size(), 3);
}

TEST_F(Recorder, WritesAnUnchangedValueBehindWhatMayHaveChangedIt)
{
    const QVector<STAccessSetUIData> levels(1);
    {
        TavScenarioRecorder recorder(path);
        recorder.record<&ITavNetControlMgr::setDeviceInfo>(Tav::NetControl::NetDeviceInfos());
        recorder.record<&ITavNetControlMgr::reverseDeviceState>(0);
        recorder.record<&ITavNetControlMgr::setDeviceInfo>(Tav::NetControl::NetDeviceInfos());
        // A row and the whole list have setters of one name.
        recorder.record("ITavAccessControlMgr", "updateUIPriData", {TavJson::toJson(levels)});
        recorder.record("ITavAccessControlMgr", "updateUIPriData", {TavJson::toJson(levels.first())});
        recorder.record("ITavAccessControlMgr", "updateUIPriData", {TavJson::toJson(levels)});
    }
    EXPECT_EQ(lines().size(), 6);
}

TEST_F(Recorder, KeepsTimesInTheOrderInWhichThreadsTellTheirCalls)
{
    {
        TavScenarioRecorder recorder(path);
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&recorder, thread] {
                for (int i = 0; i < 500; ++i) {
                    recorder.record<&ITavNetControlMgr::setState>(state(1000 * thread + i));
                }
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
    }
    EXPECT_EQ(lines().size(), 2000); // the reader refuses times that fall
}

// A pipe that nobody reads is a disk that does not answer.
TEST_F(Recorder, NeverWaitsForTheDiskAndCountsWhatFindsNoRoom)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    const int reader = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    {
        TavScenarioRecorder recorder(path, {}, TavScenarioRecorder::Calls::All, 200'000);
        for (int i = 0; i < 10'000; ++i) {
            recorder.record<&ITavNetControlMgr::setState>(state(i));
        }
        const TavRecordProgress progress = recorder.progress();
        EXPECT_GT(progress.lost, 0);
        EXPECT_EQ(progress.lines + progress.lost, 10'000);
        fcntl(reader, F_SETFL, 0);
        std::thread drain([reader] {
            char bytes[4096];
            while (read(reader, bytes, sizeof(bytes)) > 0) { }
        });
        drain.detach(); // ends with the recorder's end of the pipe
    }
}

TEST_F(Recorder, WritesTheNextValueWhereOneWasLost)
{
    {
        TavScenarioRecorder recorder(path, {}, TavScenarioRecorder::Calls::Changing, 200);
        Tav::NetControl::NetDeviceInfos large;
        large.add_devices()->set_name(std::string(300, 'x'));
        recorder.record<&ITavNetControlMgr::setDeviceInfo>(Tav::NetControl::NetDeviceInfos());
        recorder.record<&ITavNetControlMgr::setDeviceInfo>(large);
        EXPECT_EQ(recorder.progress().lost, 1);
        while (recorder.progress().bytes < 100) { // until there is room again
            std::this_thread::yield();
        }
        recorder.record<&ITavNetControlMgr::setDeviceInfo>(Tav::NetControl::NetDeviceInfos());
    }
    EXPECT_EQ(lines().size(), 2);
}

TEST_F(Recorder, LeavesWholeLinesOnAFullDiskAndSaysSo)
{
    constexpr rlim_t size = 20'000;
    {
        const FullDisk disk(size);
        TavScenarioRecorder recorder(path, {}, TavScenarioRecorder::Calls::All);
        for (int i = 0; i < 1000; ++i) {
            recorder.record<&ITavNetControlMgr::setState>(state(i));
        }
        while (recorder.progress().error.isEmpty()) {
            recorder.record<&ITavNetControlMgr::setState>(state(0));
            std::this_thread::yield();
        }
        EXPECT_EQ(recorder.progress().error, "File too large");
        EXPECT_GT(recorder.progress().lost, 0);
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_LE(text.size(), int(size));
    EXPECT_TRUE(text.endsWith("}\n"));
    lines(); // each can be read
}

TEST_F(Recorder, CountsWhatJsonCannotTellAsLost)
{
    {
        TavScenarioRecorder recorder(path);
        recorder.record("ITavPicResourceMgr", "appendPicResourcePath", {QString(QChar(0xd800))});
        EXPECT_EQ(recorder.progress().lost, 1);
    }
    EXPECT_EQ(lines().size(), 0);
}

TEST_F(Recorder, CannotBeginWithoutAFile)
{
    try {
        const TavScenarioRecorder recorder(directory.filePath("none/day.jsonl"));
        FAIL();
    } catch (const std::runtime_error &error) {
        EXPECT_TRUE(QString(error.what()).endsWith("day.jsonl: cannot be written: No such file or directory"));
    }
}
