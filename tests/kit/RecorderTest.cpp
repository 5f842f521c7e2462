#include "TavScenarioRecorder.h"

#include "PrintQString.h"
#include "TavPluginHost.h"
#include "TavScenarioPlayer.h"
#include "TextFile.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

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

/// A disk that does not answer: a pipe that nobody reads.
class StuckDisk
{
public:
    explicit StuckDisk(const QString &path)
    {
        std::signal(SIGPIPE, SIG_IGN);
        EXPECT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        m_reader = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
        EXPECT_GE(m_reader, 0);
    }

    ~StuckDisk()
    {
        breakDown();
    }

    Q_DISABLE_COPY(StuckDisk)

    /// Until somebody stands and waits for it.
    void waitUntilFull() const
    {
        int bytes = 0;
        while (bytes < 60'000 && ioctl(m_reader, FIONREAD, &bytes) == 0) {
            std::this_thread::yield();
        }
    }

    /// All that is written until the other end is closed.
    QByteArray readAll() const
    {
        fcntl(m_reader, F_SETFL, 0);
        QFile file;
        return file.open(m_reader, QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void breakDown()
    {
        if (m_reader >= 0) {
            close(m_reader);
        }
        m_reader = -1;
    }

private:
    int m_reader = -1;
};

/// What is longer than a pipe is.
Tav::NetControl::NetDeviceInfos longValue()
{
    Tav::NetControl::NetDeviceInfos value;
    value.add_devices()->set_name(std::string(200'000, 'x'));
    return value;
}

/// The number that the file opened next will have.
int nextDescriptor()
{
    const int next = dup(STDERR_FILENO);
    close(next);
    return next;
}

/// The system's number of this process's thread with the name; 0 when there is none.
int threadWithName(const QByteArray &name)
{
    for (const QString &number : QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file("/proc/self/task/" + number + "/comm");
        if (file.open(QIODevice::ReadOnly) && file.readAll() == name + '\n') { // or it has ended meanwhile
            return number.toInt();
        }
    }
    return 0;
}
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
    EXPECT_TRUE(lines()[0].returns.isUndefined());
    EXPECT_EQ(lines()[1].returns, QJsonValue(QJsonObject{{"state", 7}}));
    EXPECT_EQ(host.manager<ITavNetControlMgr>()->getState().state(), 7);
}

TEST_F(Recorder, TellsWhatHasBeenWrittenWhenItHasFinished)
{
    EXPECT_EQ(TavRecordProgress().bytes + TavRecordProgress().microseconds, 0);
    TavScenarioRecorder recorder(path);
    recorder.finish(); // there is nothing to wait for
    for (int i = 1; i <= 20; ++i) {
        recorder.record<&ITavNetControlMgr::setState>(state(i));
        recorder.finish();
        const TavRecordProgress progress = recorder.progress();
        EXPECT_EQ(progress.lines, i);
        EXPECT_EQ(progress.lost + progress.unchanged, 0);
        EXPECT_EQ(progress.bytes, QFile(path).size());
        EXPECT_EQ(lines().size(), i);
    }
}

TEST_F(Recorder, TellsTimesInMicroseconds)
{
    const auto start = std::chrono::steady_clock::now();
    TavScenarioRecorder recorder(path);
    std::this_thread::sleep_for(std::chrono::microseconds(1));
    recorder.record<&ITavNetControlMgr::setState>(state(1));
    recorder.finish();
    const qint64 microseconds = recorder.progress().microseconds;
    EXPECT_LE(std::chrono::microseconds(microseconds), std::chrono::steady_clock::now() - start);
    ASSERT_EQ(lines().size(), 1);
    EXPECT_GT(lines().first().at, 0);
    EXPECT_LE(lines().first().at, microseconds);
    const QString line = contentOf(path).split('\n')[1];
    EXPECT_TRUE(line.contains(QRegularExpression(R"(^{"at":\d+\.\d{6},)"))) << qPrintable(line);
}

TEST_F(Recorder, TakesThePlaceOfALongerFileThatNobodyElseMayRun)
{
    writeFile(path, QByteArray(1000, 'x'));
    {
        const TavScenarioRecorder recorder(path);
        const TavScenarioRecorder other(directory.filePath("other.jsonl"));
    }
    EXPECT_EQ(contentOf(path), "{\"tavScenario\":1}\n");
    EXPECT_FALSE(QFile::permissions(directory.filePath("other.jsonl")) & QFile::ExeOther);
}

TEST_F(Recorder, ClosesItsFile)
{
    const int before = nextDescriptor();
    {
        const TavScenarioRecorder recorder(path);
        EXPECT_NE(nextDescriptor(), before);
    }
    EXPECT_EQ(nextDescriptor(), before);
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
        const auto gui = [&] { tellOn("gui", nobody); }; // the application's alone
        const auto unnamed = [&] { tellOn("", gui); };
        const auto reader = [&] { tellOn("reader", unnamed); };
        const auto agent = [&] { tellOn("agent", reader); };
        const auto agent3 = [&] { tellOn("agent3", agent); };
        tellOn("agent", agent3);
    }
    QStringList threads;
    for (const TavScenario::Line &line : lines()) {
        threads.append(TavScenario::threads()[line.thread]);
    }
    EXPECT_EQ(threads, (QStringList{"agent", "agent3", "agent", "agent2", "agent4", "agent5"}));
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

TEST_F(Recorder, SharesTheEighthNameAmongAllThreadsBeyond)
{
    {
        TavScenarioRecorder recorder(path);
        int number = 0;
        const auto tell = [&] { recorder.record<&ITavNetControlMgr::setState>(state(++number)); };
        const std::function<void(int)> tellOn = [&](int threads) {
            std::thread([&, threads] {
                tell();
                if (threads > 1) {
                    tellOn(threads - 1);
                }
                tell();
            }).join();
        };
        tellOn(9);
    }
    QStringList threads;
    for (const TavScenario::Line &line : lines()) {
        threads.append(TavScenario::threads()[line.thread]);
    }
    QStringList expected = TavScenario::threads().mid(0, 8) + QStringList("agent8");
    for (int i = expected.size(); i > 0; --i) {
        expected.append(expected[i - 1]);
    }
    EXPECT_EQ(threads, expected);
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

TEST_F(Recorder, TakesNoMoreMemoryThanItMay)
{
    EXPECT_EQ(TavScenarioRecorder::defaultMemory, 67'108'864);
    qint64 size = 0;
    {
        TavScenarioRecorder recorder(path);
        size = recorder.progress().bytes;
        recorder.record<&ITavNetControlMgr::setDeviceInfo>(longValue());
        recorder.finish();
        size = recorder.progress().bytes - size;
    }
    ASSERT_TRUE(QFile::remove(path));
    StuckDisk disk(path);
    TavScenarioRecorder recorder(path, {}, TavScenarioRecorder::Calls::All, 2 * size);
    recorder.record<&ITavNetControlMgr::setDeviceInfo>(longValue());
    disk.waitUntilFull();
    recorder.record<&ITavNetControlMgr::setDeviceInfo>(longValue());
    EXPECT_EQ(recorder.progress().lost, 0);
    recorder.record<&ITavNetControlMgr::setDeviceInfo>(longValue());
    EXPECT_EQ(recorder.progress().lost, 1);
    EXPECT_EQ(recorder.progress().lines, 2);
    disk.breakDown();
}

TEST_F(Recorder, CountsAllThatADiskTakesDownWithItAsLost)
{
    StuckDisk disk(path);
    TavScenarioRecorder recorder(path, {}, TavScenarioRecorder::Calls::All);
    recorder.record<&ITavNetControlMgr::setState>(state(0));
    recorder.finish();
    recorder.record<&ITavNetControlMgr::setDeviceInfo>(longValue());
    disk.waitUntilFull();
    for (int i = 1; i <= 3; ++i) {
        recorder.record<&ITavNetControlMgr::setState>(state(i));
    }
    disk.breakDown();
    while (recorder.progress().error.isEmpty()) {
        std::this_thread::yield();
    }
    recorder.finish();
    // A pipe takes nothing back.
    EXPECT_EQ(recorder.progress().error, "Broken pipe; its last line is cut");
    EXPECT_EQ(recorder.progress().lost, 1 + 3);
    EXPECT_EQ(recorder.progress().lines, 1);
    recorder.record<&ITavNetControlMgr::setState>(state(4));
    EXPECT_EQ(recorder.progress().lost, 1 + 3 + 1);
}

TEST_F(Recorder, CutsNoLineOfWhichNothingIsWritten)
{
    StuckDisk disk(path);
    TavScenarioRecorder recorder(path);
    disk.breakDown();
    recorder.record<&ITavNetControlMgr::setState>(state(1));
    while (recorder.progress().error.isEmpty()) {
        std::this_thread::yield();
    }
    EXPECT_EQ(recorder.progress().error, "Broken pipe");
}

TEST_F(Recorder, GoesOnWhereASignalInterruptsIt)
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    ASSERT_EQ(sigaction(SIGUSR1, &action, nullptr), 0);
    const StuckDisk disk(path);
    QByteArray content;
    std::thread reader;
    {
        TavScenarioRecorder recorder(path);
        recorder.record<&ITavNetControlMgr::setDeviceInfo>(longValue());
        disk.waitUntilFull();
        const int writer = threadWithName("recorder");
        EXPECT_GT(writer, 0);
        // The first finds a part written, all others nothing.
        for (int i = 0; i < 20; ++i) {
            EXPECT_EQ(syscall(SYS_tgkill, getpid(), writer, SIGUSR1), 0);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        reader = std::thread([&] { content = disk.readAll(); });
    }
    reader.join();
    QBuffer buffer(&content);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    TavScenarioReader scenario(buffer);
    TavScenario::Line line;
    ASSERT_TRUE(scenario.next(line));
    EXPECT_EQ(line.arguments, QJsonValue(QJsonArray{TavJson::toJson(longValue())}));
    EXPECT_FALSE(scenario.next(line));
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
        recorder.record("ITavNetControlMgr", "setState", {QJsonObject{{"state", QString(QChar(0xd800))}}});
        EXPECT_EQ(recorder.progress().lost, 2);
    }
    EXPECT_EQ(lines().size(), 0);
}

TEST_F(Recorder, CountsArgumentsThatCannotBeMadeAsLostOnEveryThread)
{
    TavScenarioRecorder recorder(path);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&recorder] {
            for (int i = 0; i < 5000; ++i) {
                recorder.record("ITavNetControlMgr", "setState",
                                []() -> QJsonValue { throw std::runtime_error("no JSON"); });
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(recorder.progress().lost, 20'000);
    EXPECT_EQ(recorder.progress().lines, 0);
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

TEST_F(Recorder, LeavesNothingOnADiskWithoutRoomForTheFirstLine)
{
    const int before = nextDescriptor();
    try {
        const FullDisk disk(5);
        const TavScenarioRecorder recorder(path);
        FAIL();
    } catch (const std::runtime_error &error) {
        EXPECT_TRUE(QString(error.what()).endsWith("day.jsonl: cannot be written: File too large")) << error.what();
    }
    EXPECT_EQ(QFile(path).size(), 0);
    EXPECT_EQ(nextDescriptor(), before);
}
