#include "PrintQString.h"
#include "Tavctl.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <spawn.h>
#include <sys/wait.h>

namespace
{
class RecordCommand : public testing::Test
{
protected:
    Tavctl record(const QStringList &options)
    {
        return Tavctl(QStringList{"record", path, "--plugin", TAV_PLUGIN_FILE} + options);
    }

    Tavctl play(const QStringList &options)
    {
        return Tavctl(QStringList{"play", path, "--plugin", TAV_PLUGIN_FILE} + options);
    }

    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Records, ends the program by @p signal once the first reading has been written, and returns how it ended.
    int statusAfter(int signal)
    {
        QFile::remove(path);
        const QByteArray plugin = QByteArray("--plugin=") + TAV_PLUGIN_FILE;
        QList<QByteArray> words;
        for (const QString &word : tavctlCommand({"record", path, QString(plugin)})) {
            words.append(QFile::encodeName(word));
        }
        std::vector<char *> arguments;
        for (QByteArray &word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        pid_t child = -1;
        EXPECT_EQ(posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ), 0);
        for (int i = 0; i < 600 && content().count('\n') < 40; ++i) {
            QThread::msleep(100);
        }
        EXPECT_GE(content().count('\n'), 40);
        kill(child, signal);
        int status = -1;
        waitpid(child, &status, 0);
        return status;
    }

    QTemporaryDir directory;
    const QString path = directory.filePath("day.jsonl");
};
}

TEST_F(RecordCommand, WritesWhatPlaysAgainAndReturnsTheSame)
{
    const Tavctl run = record({"--for", "2s", "--every", "1s"});
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_EQ(run.errors, "") << "no progress where there is no terminal";
    const Tavctl played = play({"--speed", "max", "--check", "--json"});
    EXPECT_EQ(played.exitCode, 0) << played.errors.toStdString();
    EXPECT_GT(played.json()["played"].toObject()["compared"].toInt(), 70);
}

TEST_F(RecordCommand, WritesChangesOnlyUnlessToldToWriteAll)
{
    // A slow machine needs more time for two readings.
    for (const char *const time : {"1500ms", "6s", "24s"}) {
        const QStringList twice{"--for", time, "--every", "1s"};
        ASSERT_EQ(record(twice + QStringList{"--all"}).exitCode, 0);
        if (content().count("\"setServerInfo\"") >= 2) {
            ASSERT_EQ(record(twice).exitCode, 0);
            EXPECT_EQ(content().count("\"setServerInfo\""), 1);
            return;
        }
    }
    FAIL() << "nothing that stays the same is written twice";
}

TEST_F(RecordCommand, LeavesAWholeFileWhenItIsInterrupted)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        const int status = statusAfter(signal);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << signal;
        const Tavctl played = play({"--speed", "max", "--check"});
        EXPECT_EQ(played.exitCode, 0) << played.errors.toStdString();
    }
}

TEST_F(RecordCommand, LeavesWhatCanBePlayedWhenItIsKilled)
{
    EXPECT_TRUE(WIFSIGNALED(statusAfter(SIGKILL)));
    const Tavctl played = play({"--speed", "max", "--check", "--partial"});
    EXPECT_EQ(played.exitCode, 0) << played.errors.toStdString();
}

TEST_F(RecordCommand, SaysWhereItCannotWrite)
{
    const Tavctl run({"record", "/nonexistent/day.jsonl", "--plugin", TAV_PLUGIN_FILE, "--for", "1s"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "tavctl: /nonexistent/day.jsonl: cannot be written: No such file or directory\n");
    EXPECT_EQ(Tavctl({"record", "/dev/full", "--plugin", TAV_PLUGIN_FILE, "--for", "1s"}).errors,
              "tavctl: /dev/full: cannot be written: No space left on device\n");
}

TEST_F(RecordCommand, RefusesTimesThatMakeNoSense)
{
    for (const QStringList &options : {QStringList{"--for", "0"}, QStringList{"--for", "x"},
                                       QStringList{"--every", "-1s"}, QStringList{"--every", "1parsec"}}) {
        EXPECT_EQ(record(options).exitCode, 2) << options.join(' ').toStdString();
    }
}
