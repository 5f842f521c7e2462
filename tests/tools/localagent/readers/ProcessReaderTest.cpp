#include "ProcessReader.h"

#include "PlantedHost.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace
{
/// One process below /proc; @p flags as the kernel's, @p start in ticks since boot.
void plantProcess(const PlantedHost &host, int pid, const QByteArray &name, char state, int ppid, int uid,
                  int effectiveUid, const QByteArray &program, const QByteArray &flags = "4194304")
{
    const QByteArray directory = "/proc/" + QByteArray::number(pid);
    const QByteArray start = QByteArray::number(qlonglong(200) * ::sysconf(_SC_CLK_TCK));
    host.file(directory + "/stat",
              QByteArray::number(pid) + " (" + name + ") " + state + ' ' + QByteArray::number(ppid) + " 1 1 0 -1 "
                  + flags + " 0 0 0 0 0 0 0 0 20 0 1 0 " + start + " 0 0\n");
    host.file(directory + "/status",
              "Name:\tx\nUid:\t" + QByteArray::number(uid) + '\t' + QByteArray::number(effectiveUid) + "\t0\t0\n");
    host.file(directory + "/cmdline", QByteArray("run\0--fast\0", 11));
    if (!program.isEmpty()) {
        host.link(directory + "/exe", program);
    }
}
}

TEST(ProcessReader, ReadsNamesWithBracketsAndLeavesOutKernelThreads)
{
    const PlantedHost host;
    host.file("/proc/stat", "cpu 1\nbtime 1000\n");
    plantProcess(host, 10, "a) (b", 'S', 1, 1000, 1000, "/usr/bin/a");
    plantProcess(host, 2, "kthreadd", 'S', 0, 0, 0, "", "2129984");
    ReadingNotes notes;
    const QVector<ProcessReader::Process> processes = ProcessReader::readProcesses(host.root(), notes);
    EXPECT_TRUE(notes.isEmpty());
    ASSERT_EQ(processes.size(), 1);
    EXPECT_EQ(processes.at(0).name, "a) (b");
    EXPECT_EQ(processes.at(0).ppid, 1);
    EXPECT_EQ(processes.at(0).startTime, 1200);
    const QVector<STProProtectContentAsr> records = ProcessReader::records(processes, {{1000, "alice"}});
    EXPECT_STREQ(records.at(0).userName, "alice");
    EXPECT_STREQ(records.at(0).path, "/usr/bin/a");
    EXPECT_EQ(records.at(0).state, 0);
}

TEST(ProcessReader, AProcessThatVanishesIsLeftOut)
{
    const PlantedHost host;
    host.file("/proc/stat", "btime 1000\n");
    host.directory("/proc/10"); // gone before its first file
    plantProcess(host, 11, "half", 'S', 1, 0, 0, "/bin/half");
    ASSERT_EQ(::unlink(host.path("/proc/11/status").constData()), 0); // gone between two files
    plantProcess(host, 12, "stays", 'S', 1, 0, 0, "/bin/stays");
    host.file("/proc/13/stat", "13 (torn");
    ReadingNotes notes;
    const QVector<ProcessReader::Process> processes = ProcessReader::readProcesses(host.root(), notes);
    ASSERT_EQ(processes.size(), 1);
    EXPECT_EQ(processes.at(0).name, "stays");
    EXPECT_TRUE(notes.isEmpty());
}

TEST(ProcessReader, ARealProcessThatHasEndedIsLeftOut)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::pause();
        ::_exit(0);
    }
    bool denied = false;
    EXPECT_TRUE(ProcessReader::readProcess(QStringLiteral("/"), child, 0, denied));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(ProcessReader::readProcess(QStringLiteral("/"), child, 0, denied));
}

TEST(ProcessReader, ListsNoMoreThanItsLimit)
{
    const PlantedHost host;
    host.file("/proc/stat", "btime 1000\n");
    for (int pid = 1; pid <= 5; ++pid) {
        plantProcess(host, pid, "many", 'S', 1, 0, 0, "");
    }
    ReadingNotes notes;
    EXPECT_EQ(ProcessReader::readProcesses(host.root(), notes, 3).size(), 3);
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes.at(0).reason, QStringLiteral("2 further processes not listed"));
}

TEST(ProcessReader, OnlyWhatIsOutOfTheOrdinaryIsAnException)
{
    const PlantedHost host;
    host.file("/proc/stat", "btime 1000\n");
    plantProcess(host, 10, "usual", 'S', 1, 0, 0, "/bin/usual");
    plantProcess(host, 11, "gone", 'S', 1, 1000, 1000, "/tmp/gone (deleted)");
    plantProcess(host, 12, "raised", 'S', 1, 1000, 0, "/usr/bin/raised");
    plantProcess(host, 13, "dead", 'Z', 10, 0, 0, "");
    ReadingNotes notes;
    const Tav::Base::PriExceptionAsr answer
        = ProcessReader::exceptions(ProcessReader::readProcesses(host.root(), notes), {{0, "root"}}, 5000);
    EXPECT_EQ(answer.total(), 3);
    ASSERT_EQ(answer.entries_size(), 3);
    EXPECT_EQ(answer.entries(0).process_name(), "gone");
    EXPECT_EQ(answer.entries(0).type(), 1);
    EXPECT_EQ(answer.entries(0).path(), "/tmp/gone");
    EXPECT_FALSE(answer.entries(0).has_command_line()); // it may hold a password
    EXPECT_EQ(answer.entries(0).time(), 5000);
    EXPECT_EQ(answer.entries(1).type(), 3);
    EXPECT_EQ(answer.entries(1).user_name(), "root");
    EXPECT_FALSE(answer.entries(2).has_type());
    EXPECT_EQ(answer.entries(2).state(), 2);
}
