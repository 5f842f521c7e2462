#pragma once

#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

/// @brief A program, run once to its end; what it printed and how it ended.
struct Program {
    /**
     * Runs @p command, which is looked up in PATH, with @p inputFile as its standard input. Not by QProcess: with
     * user-mode emulation it starts nothing, since the emulator knows no descriptors of processes.
     */
    explicit Program(const QStringList &command, const QString &inputFile = QStringLiteral("/dev/null"))
    {
        std::vector<QByteArray> words;
        for (const QString &word : command) {
            words.push_back(QFile::encodeName(word));
        }
        std::vector<char *> arguments;
        for (QByteArray &word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);

        const QTemporaryDir directory;
        QFile outputFile(directory.filePath(QStringLiteral("output")));
        QFile errorFile(directory.filePath(QStringLiteral("errors")));
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        const auto redirect = [&files](int descriptor, const QString &file, int flags) {
            posix_spawn_file_actions_addopen(&files, descriptor, QFile::encodeName(file).constData(), flags, 0600);
        };
        redirect(0, inputFile, O_RDONLY);
        redirect(1, outputFile.fileName(), O_WRONLY | O_CREAT);
        redirect(2, errorFile.fileName(), O_WRONLY | O_CREAT);
        pid_t child = -1;
        int status = -1;
        rusage usage{};
        const int error = posix_spawnp(&child, arguments.front(), &files, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&files);
        if (error == 0 && wait4(child, &status, 0, &usage) == child && WIFEXITED(status)) {
            exitCode = WEXITSTATUS(status);
            peakMiB = usage.ru_maxrss / 1024;
            processorSeconds = double(usage.ru_utime.tv_sec) + double(usage.ru_utime.tv_usec) / 1e6;
        }
        if (outputFile.open(QIODevice::ReadOnly) && errorFile.open(QIODevice::ReadOnly)) {
            output = outputFile.readAll();
            errors = errorFile.readAll();
        }
    }

    QByteArray output;
    QByteArray errors;
    long peakMiB = 0; ///< the most memory that it had at one time, or this process had before
    double processorSeconds = 0; ///< spent in it, and not in the system
    int exitCode = -1; ///< -1 when it could not be started or a signal ended it
};
