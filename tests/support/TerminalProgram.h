#pragma once

#include <QFile>
#include <QStringList>

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

/// @brief A program, run once to its end on a terminal; what it wrote there.
struct TerminalProgram {
    /// @p environment is added to the test's own, as "NAME=value".
    TerminalProgram(const QStringList &command, ushort width, const QStringList &environment = {})
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
        std::vector<QByteArray> variables{"TERM=xterm"};
        for (const QString &variable : environment) {
            variables.push_back(variable.toUtf8());
        }

        const winsize size{24, width, 0, 0};
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
        if (child == 0) {
            for (QByteArray &variable : variables) {
                putenv(variable.data());
            }
            execvp(arguments.front(), arguments.data());
            _exit(127);
        }
        char buffer[4096];
        for (ssize_t read = 0; (read = ::read(terminal, buffer, sizeof buffer)) > 0;) {
            output.append(buffer, int(read));
        }
        output.replace("\r\n", "\n");
        close(terminal);
        int status = 0;
        waitpid(child, &status, 0);
    }

    QByteArray output;
};
