#include "PluginCheck.h"

#include "TavPluginHost.h"

#include <QDataStream>
#include <QElapsedTimer>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace
{
FindingCode codeOf(TavPluginError::Kind kind)
{
    using Kind = TavPluginError::Kind;
    switch (kind) {
    case Kind::NoSuchFile:
        return FindingCode::NoPluginFile;
    case Kind::NotAFile:
        return FindingCode::PluginNotAFile;
    case Kind::NotReadable:
        return FindingCode::NotReadable;
    case Kind::NotALibrary:
        return FindingCode::PluginNotALibrary;
    case Kind::CutOff:
        return FindingCode::PluginCutOff;
    case Kind::OtherMachine:
        return FindingCode::PluginForOtherMachine;
    case Kind::OtherWordSize:
        return FindingCode::PluginOfOtherWordSize;
    case Kind::NotAPlugin:
        return FindingCode::NotAPlugin;
    case Kind::OtherPlugin:
        return FindingCode::OtherPlugin;
    case Kind::OtherQt:
        return FindingCode::PluginOfOtherQt;
    case Kind::MissingLibrary:
        return FindingCode::PluginLacksLibrary;
    case Kind::UndefinedSymbol:
        return FindingCode::PluginLacksSymbol;
    case Kind::NotLoadable:
        return FindingCode::PluginNotLoadable;
    case Kind::NoInterface:
        return FindingCode::PluginWithoutInterface;
    case Kind::WrongManagers:
        return FindingCode::PluginWithOtherManagers;
    case Kind::Exception: // nobody in a client catches it
        return FindingCode::PluginCrashes;
    case Kind::NoPages: // said of page plugins only
        break;
    }
    Q_UNREACHABLE();
}

constexpr qint64 secondsToLoad = 10;

Finding findingOf(const TavPluginError &error)
{
    return Finding::ofFile(codeOf(error.kind()), error.file(), error.problem(), error.effect(), pluginAdvice(error));
}

/// @brief A process of its own, in which the plugin is loaded: what it does there ends with it.
class LoadingProcess
{
public:
    explicit LoadingProcess(QString file) : m_file(std::move(file))
    {
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_CLOEXEC) != 0) {
            throw std::system_error(errno, std::generic_category(), "no pipe to a process that loads the plugin");
        }
        m_child = fork();
        if (m_child == 0) {
            load(ends[1]);
        }
        const int error = errno;
        close(ends[1]);
        if (m_child < 0) {
            close(ends[0]);
            throw std::system_error(error, std::generic_category(), "no process that loads the plugin");
        }
        m_output.open(ends[0], QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    }

    Q_DISABLE_COPY(LoadingProcess)

    /// Waits for its end. To be called once.
    Findings findings()
    {
        const bool isInTime = waitForEnd();
        if (!isInTime) {
            kill(m_child, SIGKILL);
        }
        int status = 0;
        waitpid(m_child, &status, 0);
        if (!isInTime) {
            return {Finding::ofFile(FindingCode::PluginHangs, m_file,
                                    QString("does not return within %1 s of being loaded").arg(secondsToLoad),
                                    "the client hangs when it starts", "install another build of the plugin")};
        }
        QDataStream stream(m_result);
        int code = 0;
        QString problem;
        QString effect;
        QString advice;
        stream >> code >> problem >> effect >> advice;
        if (stream.status() != QDataStream::Ok) { // the child did not come to the end of load()
            const bool isCrash = WIFSIGNALED(status);
            return {Finding::ofFile(FindingCode::PluginCrashes, m_file,
                                    "ends the process that loads it: "
                                        + (isCrash ? QString(sigdescr_np(WTERMSIG(status)))
                                                   : QString("exit code %1").arg(WEXITSTATUS(status))),
                                    isCrash ? "the client crashes when it starts" : "the client ends when it starts",
                                    "install another build of the plugin")};
        }
        return code == 0 ? Findings() : Findings{Finding::ofFile(FindingCode(code), m_file, problem, effect, advice)};
    }

private:
    /// In the child: writes what it has found to @p output, the code 0 for nothing.
    [[noreturn]] void load(int output)
    {
        const int nowhere = open("/dev/null", O_WRONLY); // what the plugin prints is no part of the report
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        try {
            const TavPluginHost host(m_file);
            stream << 0 << QString() << QString() << QString();
        } catch (const TavPluginError &error) {
            const Finding finding = findingOf(error);
            stream << int(finding.code) << finding.problem << finding.effect << finding.advice;
        }
        QFile file;
        file.open(output, QIODevice::WriteOnly | QIODevice::Unbuffered);
        file.write(bytes);
        _exit(0);
    }

    /// Reads what the child writes until it closes the pipe. False when that takes too long.
    bool waitForEnd()
    {
        QElapsedTimer timer;
        timer.start();
        for (;;) {
            pollfd descriptor{m_output.handle(), POLLIN, 0};
            const qint64 left = secondsToLoad * 1000 - timer.elapsed();
            if (left <= 0 || poll(&descriptor, 1, int(left)) == 0) {
                return false;
            }
            const QByteArray bytes = m_output.read(4096);
            if (bytes.isEmpty()) {
                return true;
            }
            m_result += bytes;
        }
    }

    QString m_file;
    pid_t m_child = -1;
    QFile m_output;
    QByteArray m_result;
};
}

Findings checkPlugin(const QString &file)
{
    const Findings findings = checkPluginUnloaded(file);
    return findings.isEmpty() ? LoadingProcess(file).findings() : findings;
}

Findings checkPluginUnloaded(const QString &file)
{
    try {
        TavPluginHost::checkUnloaded(file);
        return {};
    } catch (const TavPluginError &error) {
        return {findingOf(error)};
    }
}

QString pluginAdvice(const TavPluginError &error)
{
    return error.wantsAnotherFile() ? error.advice() + " with --plugin" : error.advice();
}
