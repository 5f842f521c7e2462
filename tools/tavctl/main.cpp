#include "CommandLine.h"
#include "Presentation.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace
{
/// Ends the program's output: what a full disk or a closed pipe has swallowed is no success.
ExitCode flushed(ExitCode code)
{
    std::cout.flush();
    if (std::cout) {
        return code;
    }
    printError("standard output: cannot be written");
    return ExitCode::Usage;
}

/// Opens something in the place of each standard stream that is closed: otherwise the next file that is opened would
/// become that stream. It is opened the wrong way round, so that using the stream fails as on a closed one.
void occupyClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY); // takes the lowest free place: this one
        }
    }
}
}

// What escapes is a lack of memory, which nothing here could report.
int main(int argc, char **argv) // NOLINT(bugprone-exception-escape)
{
    occupyClosedStreams();
    QCoreApplication application(argc, argv);
    try {
        return static_cast<int>(flushed(actionOf(argc, argv)()));
    } catch (const ToolError &error) {
        printError(QString::fromUtf8(error.what()));
        return static_cast<int>(error.code());
    }
}
