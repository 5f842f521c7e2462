#include "HostReader.h"

#include "HostFile.h"
#include "ModuleReader.h"
#include "ProcessReader.h"
#include "TextBuffer.h"

#include <QDateTime>
#include <QSet>
#include <QThread>

#include <algorithm>
#include <cerrno>

#include <sys/statvfs.h>
#include <sys/utsname.h>

namespace
{
/// Value of the first line "key : value" or "key=value"; null when there is none.
QByteArray valueOf(const QByteArray &content, const QByteArray &key, char separator)
{
    const QList<QByteArray> lines = content.split('\n');
    for (const QByteArray &line : lines) {
        const int at = line.indexOf(separator);
        if (at > 0 && line.left(at).trimmed() == key) {
            return line.mid(at + 1).trimmed();
        }
    }
    return {};
}

void readMemory(const QString &root, STResourceInfoAsr &info, ReadingNotes &notes)
{
    const auto content = HostFile::readOrNote(root, "/proc/meminfo", notes);
    if (!content) {
        return;
    }
    const auto bytesOf = [&](const char *key) -> quint64 {
        bool ok = false;
        const quint64 kibibytes = valueOf(*content, key, ':').split(' ').constFirst().toULongLong(&ok);
        if (!ok) {
            HostFile::note(notes, "/proc/meminfo", QStringLiteral("no %1").arg(QLatin1String(key)));
        }
        return kibibytes * 1024;
    };
    info.memoryTotal = bytesOf("MemTotal");
    info.memoryAvailable = bytesOf("MemAvailable");
    info.swapTotal = bytesOf("SwapTotal");
    info.swapFree = bytesOf("SwapFree");
}

/// A mount point with its blanks, which the kernel writes as octal numbers.
QByteArray unescaped(const QByteArray &text)
{
    QByteArray plain;
    for (int i = 0; i < text.size(); ++i) {
        bool ok = false;
        const int code = text.at(i) == '\\' ? text.mid(i + 1, 3).toInt(&ok, 8) : 0;
        plain.append(ok ? static_cast<char>(code) : text.at(i));
        i += ok ? 3 : 0;
    }
    return plain;
}

void readDisks(const QString &root, STResourceInfoAsr &info, ReadingNotes &notes)
{
    struct statvfs figures {
    };
    if (::statvfs(HostFile::path(root, "/").constData(), &figures) == 0) {
        info.rootDiskTotal = static_cast<quint64>(figures.f_blocks) * figures.f_frsize;
        info.rootDiskFree = static_cast<quint64>(figures.f_bavail) * figures.f_frsize;
    } else {
        HostFile::note(notes, "/", HostFile::errorText(errno));
    }
    const auto mounts = HostFile::readOrNote(root, "/proc/self/mounts", notes);
    if (!mounts) {
        return;
    }
    // Block devices only, and no FUSE: a server or a program behind a file system could keep the call waiting.
    // Read-only images are always full.
    static const QVector<QByteArray> images{"squashfs", "iso9660", "erofs", "udf", "fuse"};
    QSet<QByteArray> devices;
    const QList<QByteArray> lines = mounts->split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 3 || !fields.at(0).startsWith("/dev/") || images.contains(fields.at(2))
            || devices.contains(fields.at(0))) {
            continue;
        }
        const QByteArray mountPoint = unescaped(fields.at(1));
        if (::statvfs(HostFile::path(root, mountPoint).constData(), &figures) != 0) {
            HostFile::note(notes, mountPoint, HostFile::errorText(errno));
            continue;
        }
        devices.insert(fields.at(0));
        info.diskTotal += static_cast<quint64>(figures.f_blocks) * figures.f_frsize;
        info.diskFree += static_cast<quint64>(figures.f_bavail) * figures.f_frsize;
    }
}

void readProcessor(const QString &root, int sampleMilliseconds, STResourceInfoAsr &info, ReadingNotes &notes)
{
    QByteArray model;
    if (const auto content = HostFile::readOrNote(root, "/proc/cpuinfo", notes)) {
        for (const char *const key : {"model name", "cpu model", "Hardware", "Processor", "cpu"}) {
            model = model.isEmpty() ? valueOf(*content, key, ':') : model;
        }
        if (model.isEmpty()) {
            HostFile::note(notes, "/proc/cpuinfo", QStringLiteral("no name of the processor"));
        }
    }
    TextBuffer::copy(info.cpuModel, model);

    const auto before = HostFile::readOrNote(root, "/proc/stat", notes);
    if (!before) {
        return;
    }
    const QList<QByteArray> lines = before->split('\n');
    for (const QByteArray &line : lines) {
        if (line.size() > 3 && line.startsWith("cpu") && line.at(3) >= '0' && line.at(3) <= '9') {
            ++info.cpuCores;
        }
    }
    QThread::msleep(static_cast<unsigned long>(sampleMilliseconds));
    QByteArray after;
    HostFile::read(root, "/proc/stat", after);
    const auto usage = HostReader::cpuUsage(*before, after);
    if (usage) {
        info.cpuUsage = *usage;
    } else {
        HostFile::note(notes, "/proc/stat", QStringLiteral("no processor time passed between two samples"));
    }
}

/// A load such as "0.52" in hundredths.
qint32 hundredths(const QByteArray &text)
{
    return qRound(text.toDouble() * 100);
}

void readLoad(const QString &root, STResourceInfoAsr &info, ReadingNotes &notes)
{
    if (const auto uptime = HostFile::readOrNote(root, "/proc/uptime", notes)) {
        info.uptime = static_cast<qint64>(uptime->split(' ').constFirst().toDouble());
    }
    const auto load = HostFile::readOrNote(root, "/proc/loadavg", notes);
    const QList<QByteArray> fields = load.value_or(QByteArray()).split(' ');
    if (fields.size() >= 3) {
        info.loadAverage1 = hundredths(fields.at(0));
        info.loadAverage5 = hundredths(fields.at(1));
        info.loadAverage15 = hundredths(fields.at(2));
    }
}

QByteArray osName(const QString &root, ReadingNotes &notes)
{
    QByteArray content;
    if (HostFile::read(root, "/etc/os-release", content) != 0) {
        content = HostFile::readOrNote(root, "/usr/lib/os-release", notes).value_or(QByteArray());
    }
    QByteArray name = valueOf(content, "PRETTY_NAME", '=');
    if (name.size() >= 2 && (name.startsWith('"') || name.startsWith('\'')) && name.endsWith(name.at(0))) {
        name = name.mid(1, name.size() - 2);
    }
    return name;
}

/// Content of a one-line file; empty, and a note, when it cannot be read.
QByteArray lineOrNote(const QString &root, const QByteArray &path, ReadingNotes &notes)
{
    return HostFile::readOrNote(root, path, notes).value_or(QByteArray()).trimmed();
}

QByteArray machine()
{
    struct utsname names {
    };
    return ::uname(&names) == 0 ? QByteArray(names.machine) : QByteArray();
}

/// The kernel's own "Y" or "N", "1" or "0"; nothing, and a note, when it cannot be read.
std::optional<bool> flagOrNote(const QString &root, const QByteArray &path, ReadingNotes &notes)
{
    const auto content = HostFile::readOrNote(root, path, notes);
    return content ? std::optional<bool>(content->startsWith('Y') || content->startsWith('1')) : std::nullopt;
}

void readSecureBoot(const QString &root, Tav::HostInfo::SystemFileStateAsr &state, ReadingNotes &notes)
{
    if (!HostFile::exists(root, "/sys/firmware")) {
        HostFile::note(notes, "/sys/firmware", QStringLiteral("not there"));
        return;
    }
    if (!HostFile::exists(root, "/sys/firmware/efi")) {
        state.set_secure_boot(-1);
        return;
    }
    // The file of an EFI variable begins with four bytes of attributes.
    const QByteArray directory = "/sys/firmware/efi/efivars/";
    const QByteArray vendor = "-8be4df61-93ca-11d2-aa0d-00e098032b8c";
    const auto secureBoot = HostFile::readOrNote(root, directory + "SecureBoot" + vendor, notes);
    QByteArray setupMode;
    HostFile::read(root, directory + "SetupMode" + vendor, setupMode);
    if (secureBoot && secureBoot->size() == 5) {
        const bool inSetup = setupMode.size() == 5 && setupMode.at(4) == 1;
        state.set_secure_boot(inSetup ? 2 : secureBoot->at(4) == 1 ? 1 : 0);
    }
}

void readLockdown(const QString &root, Tav::HostInfo::SystemFileStateAsr &state, ReadingNotes &notes)
{
    const QByteArray path = "/sys/kernel/security/lockdown";
    QByteArray content;
    const int error = HostFile::read(root, path, content);
    if (error == ENOENT && HostFile::exists(root, "/sys/kernel/security/lsm")) {
        state.set_lockdown(-1);
    } else if (error != 0) {
        HostFile::note(notes, path, HostFile::errorText(error));
    } else {
        // "none [integrity] confidentiality": the one in force is in brackets.
        state.set_lockdown(content.contains("[confidentiality]") ? 2 : content.contains("[integrity]") ? 1 : 0);
    }
}

void addFile(const QString &root, const QByteArray &path, int type, Tav::HostInfo::SystemFileStateAsr &state,
             ReadingNotes &notes)
{
    int error = 0;
    const auto status = HostFile::status(root, path, &error);
    if (!status) {
        HostFile::note(notes, path, HostFile::errorText(error));
        return;
    }
    auto *const file = state.add_files();
    file->set_path(TextBuffer::message(path));
    file->set_type(type);
    file->set_size(static_cast<quint64>(status->st_size));
    file->set_modify_time(status->st_mtim.tv_sec);
    if (const auto digests = HostFile::digestsOrNote(root, path, notes)) {
        file->set_algorithm("sha256");
        file->set_digest(digests->sha256.toStdString());
    }
}

/// 0: unknown, 1: good, 2: not verified.
int overallState(const Tav::HostInfo::SystemFileStateAsr &state)
{
    if (!state.has_taint()) {
        return 0;
    }
    constexpr quint32 forcedModule = 1U << 1U;
    constexpr quint32 unsignedModule = 1U << 13U;
    const bool refusesUnsigned = state.module_sig_enforce() || state.lockdown() >= 1 || state.modules_disabled();
    return refusesUnsigned && (state.taint() & (forcedModule | unsignedModule)) == 0 ? 1 : 2;
}
}

STResourceInfoAsr HostReader::readResourceInfo(const QString &root, int sampleMilliseconds, ReadingNotes &notes)
{
    STResourceInfoAsr info{};
    info.sampleTime = QDateTime::currentSecsSinceEpoch();
    readMemory(root, info, notes);
    readDisks(root, info, notes);
    readProcessor(root, sampleMilliseconds, info, notes);
    readLoad(root, info, notes);
    info.processCount = ProcessReader::processIds(root, notes).size();
    TextBuffer::copy(info.kernelRelease, lineOrNote(root, "/proc/sys/kernel/osrelease", notes));
    TextBuffer::copy(info.machine, machine());
    TextBuffer::copy(info.osName, osName(root, notes));
    TextBuffer::copy(info.hostName, lineOrNote(root, "/proc/sys/kernel/hostname", notes));
    return info;
}

std::optional<int> HostReader::cpuUsage(const QByteArray &before, const QByteArray &after)
{
    struct Times {
        qint64 total = 0;
        qint64 idle = 0;
    };
    const auto timesOf = [](const QByteArray &content) {
        Times times;
        const QList<QByteArray> fields = content.left(content.indexOf('\n')).simplified().split(' ');
        if (fields.constFirst() != "cpu") {
            return times;
        }
        // user nice system idle iowait irq softirq steal; what follows is contained in user and nice.
        for (int i = 1; i < std::min<int>(fields.size(), 9); ++i) {
            const qint64 time = fields.at(i).toLongLong();
            times.total += time;
            times.idle += i == 4 || i == 5 ? time : 0;
        }
        return times;
    };
    const Times first = timesOf(before);
    const Times second = timesOf(after);
    const qint64 total = second.total - first.total;
    if (first.total == 0 || total <= 0) {
        return std::nullopt;
    }
    // The kernel may correct the time spent waiting for disks downwards.
    const qint64 idle = std::clamp<qint64>(second.idle - first.idle, 0, total);
    return static_cast<int>((total - idle) * 1000 / total);
}

Tav::HostInfo::SystemFileStateAsr HostReader::readKernelState(const QString &root, ReadingNotes &notes)
{
    Tav::HostInfo::SystemFileStateAsr state;
    const QByteArray release = lineOrNote(root, "/proc/sys/kernel/osrelease", notes);
    state.set_kernel_release(TextBuffer::message(release));
    state.set_kernel_version(TextBuffer::message(lineOrNote(root, "/proc/sys/kernel/version", notes)));
    state.set_machine(TextBuffer::message(machine()));
    readSecureBoot(root, state, notes);
    readLockdown(root, state, notes);
    if (const auto enforced = flagOrNote(root, "/sys/module/module/parameters/sig_enforce", notes)) {
        state.set_module_sig_enforce(*enforced);
    }
    if (state.lockdown() >= 1) {
        state.set_kexec_sig_enforce(true);
    } else {
        HostFile::note(notes, "kexec signature enforcement", QStringLiteral("the kernel shows it only in lockdown"));
    }
    if (const auto disabled = flagOrNote(root, "/proc/sys/kernel/modules_disabled", notes)) {
        state.set_modules_disabled(*disabled);
    }
    if (const auto taint = HostFile::readOrNote(root, "/proc/sys/kernel/tainted", notes)) {
        const quint64 bits = taint->trimmed().toULongLong();
        state.set_taint(static_cast<quint32>(bits));
        state.set_taint_letters(taintLetters(bits).toStdString());
    }
    if (const auto modules = ModuleReader::readLoadedModules(root, notes)) {
        state.set_module_count(modules->size());
        state.set_unsigned_module_count(
            static_cast<int>(std::count_if(modules->cbegin(), modules->cend(), [](const ModuleReader::Module &module) {
                return module.taint.contains('E');
            })));
    }
    if (!release.isEmpty()) {
        addFile(root, "/boot/vmlinuz-" + release, 1, state, notes);
        addFile(root, "/boot/initrd.img-" + release, 2, state, notes);
    }
    state.set_state(overallState(state));
    state.set_check_time(QDateTime::currentSecsSinceEpoch());
    return state;
}

QByteArray HostReader::taintLetters(quint64 taint)
{
    // Bit 0 is shown as P. Bits that only newer kernels know have no letter here and are left out.
    static const QByteArray letters = "PFSRMBUDAWCIOELKXTNJ";
    QByteArray found;
    for (int bit = 0; bit < letters.size(); ++bit) {
        if ((taint >> static_cast<unsigned>(bit) & 1U) != 0) {
            found.append(letters.at(bit));
        }
    }
    return found;
}
