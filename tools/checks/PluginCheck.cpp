#include "PluginCheck.h"

#include "ElfFile.h"
#include "FileOwner.h"
#include "RootedPath.h"
#include "TavPluginHost.h"

#include <QDataStream>
#include <QElapsedTimer>
#include <QFileInfo>

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
    case Kind::NoPages: // no finding: it may be another kind of plugin
        break;
    }
    Q_UNREACHABLE();
}

constexpr qint64 secondsToLoad = 10;

Finding findingOf(const TavPluginError &error)
{
    const QString owner
        = error.kind() == TavPluginError::Kind::NotReadable ? "; " + ownerText(error.file()) : QString();
    return Finding::ofFile(codeOf(error.kind()), error.file(), error.problem() + owner, error.effect(),
                           pluginAdvice(error));
}

/// Whether @p file is for the machine of the system root, going by the root's shell.
bool isForRoot(const QString &file)
{
    const QString shell = followInRoot("/bin/sh").file();
    if (!QFileInfo(shell).isFile()) {
        return false;
    }
    const ElfFile program(shell);
    const ElfFile::Machine machine = ElfFile(file).machine();
    const ElfFile::Machine own = program.machine();
    return program.hasMark() && machine.number == own.number && machine.bits == own.bits
        && machine.isBigEndian == own.isBigEndian;
}

/// @brief A process of its own, in which the plugin is loaded: what it does there ends with it.
class LoadingProcess
{
public:
    /// Loads the data plugin @p file and then @p page, or the former alone.
    explicit LoadingProcess(QString file, QString page = {})
        : m_dataPlugin(std::move(file)), m_page(std::move(page)), m_file(m_page.isEmpty() ? m_dataPlugin : m_page)
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

    /// Waits for its end. To be called once; the page's controllers are known then.
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
        stream >> code >> problem >> effect >> advice >> m_controllers;
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

    /// The registry keys of what the page plugin registers.
    QStringList controllers() const
    {
        return m_controllers;
    }

private:
    /// In the child: writes what it has found to @p output, the code 0 for nothing.
    [[noreturn]] void load(int output)
    {
        const int nowhere = open("/dev/null", O_WRONLY); // what the plugin prints is no part of the report
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        Finding finding{};
        QStringList keys;
        try {
            TavPluginHost host(m_dataPlugin);
            const QVector<TavRegistration> pages
                = m_page.isEmpty() ? QVector<TavRegistration>() : host.loadPages(m_page);
            for (const TavRegistration &page : pages) {
                keys.append(page.key.name);
            }
        } catch (const TavPluginError &error) {
            if (error.kind() != TavPluginError::Kind::NoPages) {
                finding = findingOf(error);
            }
        }
        QFile file;
        file.open(output, QIODevice::WriteOnly | QIODevice::Unbuffered);
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly)
            << int(finding.code) << finding.problem << finding.effect << finding.advice << keys;
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

    QString m_dataPlugin;
    QString m_page;
    QString m_file; // the one that is tried
    QStringList m_controllers;
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
        const bool isOfOtherMachine
            = error.kind() == TavPluginError::Kind::OtherMachine || error.kind() == TavPluginError::Kind::OtherWordSize;
        if (isOfOtherMachine && isForRoot(file)) {
            return {Finding::ofFile(FindingCode::PluginNotTried, file, error.problem() + ", as the system root is",
                                    "whether it can be loaded there and registers its managers is not known",
                                    "check it on such a machine")};
        }
        return {findingOf(error)};
    }
}

PagesTried tryPagePlugins(const QString &file, const QStringList &pages)
{
    using Kind = TavPluginError::Kind;
    PagesTried tried;
    for (const QString &page : pages) {
        try {
            TavPluginHost::checkUnloaded(page);
            LoadingProcess process(file, page);
            tried.findings += process.findings();
            tried.controllers += process.controllers();
        } catch (const TavPluginError &error) {
            if (error.kind() != Kind::NotALibrary && error.kind() != Kind::NotAPlugin
                && error.kind() != Kind::OtherPlugin) {
                tried.findings.append(findingOf(error));
            }
        }
    }
    return tried;
}

QString pluginAdvice(const TavPluginError &error)
{
    return error.wantsAnotherFile() ? error.advice() + " with --plugin" : error.advice();
}
