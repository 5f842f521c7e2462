#include "ProcessReader.h"

#include "HostFile.h"
#include "TavCountedText.h"
#include "TextBuffer.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

namespace
{
constexpr quint64 kernelThreadFlag = 0x00200000; ///< among the kernel's flags of a process

/// Seconds since the epoch; 0, and a note, when it cannot be read.
qint64 readBootTime(const QString &root, ReadingNotes &notes)
{
    const QByteArray content = HostFile::readOrNote(root, "/proc/stat", notes).value_or(QByteArray());
    const QList<QByteArray> lines = content.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("btime ")) {
            return line.mid(6).trimmed().toLongLong();
        }
    }
    return 0;
}

/// Notes when /proc hides other users' processes.
void noteHidden(const QString &root, ReadingNotes &notes)
{
    const QList<QByteArray> lines = HostFile::attribute(root, "/proc/self/mounts").split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 4 || fields.at(1) != "/proc") {
            continue;
        }
        const QList<QByteArray> options = fields.at(3).split(',');
        for (const QByteArray &option : options) {
            if (option.startsWith("hidepid=") && option != "hidepid=0" && option != "hidepid=off") {
                HostFile::note(notes, "/proc", QStringLiteral("may hide other users' processes"));
            }
        }
    }
}

/// Real and effective user id from the line "Uid:" of a process's status; false when there is none.
bool readUserIds(const QByteArray &status, ProcessReader::Process &process)
{
    const QList<QByteArray> lines = status.split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() >= 3 && fields.at(0) == "Uid:") {
            process.uid = fields.at(1).toUInt();
            process.effectiveUid = fields.at(2).toUInt();
            return true;
        }
    }
    return false;
}

/// 1: unknown program, 3: privilege raised; 0: none of the types.
int exceptionType(const ProcessReader::Process &process)
{
    if (process.programGone) {
        return 1;
    }
    return process.uid != process.effectiveUid ? 3 : 0;
}

const char *reasonOf(const ProcessReader::Process &process, int type)
{
    if (process.program.startsWith("/memfd:")) {
        return "runs from memory, without a file";
    }
    if (process.programGone) {
        return "the program's file has been deleted or replaced since the start";
    }
    return type == 3 ? "runs with the rights of another user than the one who started it"
                     : "has ended, and its parent has not asked for the result";
}
}

QVector<int> ProcessReader::processIds(const QString &root, ReadingNotes &notes)
{
    QVector<int> pids;
    const QVector<QByteArray> names = HostFile::entriesOrNote(root, "/proc", notes);
    for (const QByteArray &name : names) {
        bool ok = false;
        const int pid = name.toInt(&ok);
        if (ok && pid > 0) {
            pids.append(pid);
        }
    }
    std::sort(pids.begin(), pids.end());
    return pids;
}

std::optional<ProcessReader::Process> ProcessReader::readProcess(const QString &root, int pid, qint64 bootTime,
                                                                 bool &denied)
{
    const QByteArray directory = "/proc/" + QByteArray::number(pid);
    const QByteArray stat = HostFile::attribute(root, directory + "/stat");
    // "pid (name) state ppid ...": the name may hold brackets and blanks itself.
    const int nameStart = stat.indexOf('(');
    const int nameEnd = stat.lastIndexOf(')');
    if (nameStart < 0 || nameEnd < nameStart) {
        return std::nullopt;
    }
    const QList<QByteArray> fields = stat.mid(nameEnd + 2).split(' ');
    Process process;
    // Fields counted from the state, the third of the line: 1 parent, 6 flags, 19 start in ticks since boot.
    if (fields.size() < 20 || !readUserIds(HostFile::attribute(root, directory + "/status"), process)) {
        return std::nullopt;
    }
    process.pid = pid;
    process.name = stat.mid(nameStart + 1, nameEnd - nameStart - 1);
    process.zombie = fields.at(0) == "Z";
    process.ppid = fields.at(1).toInt();
    process.kernelThread = (fields.at(6).toULongLong() & kernelThreadFlag) != 0;
    if (bootTime > 0) {
        process.startTime = bootTime + fields.at(19).toLongLong() / ::sysconf(_SC_CLK_TCK);
    }
    int error = 0;
    process.program = HostFile::link(root, directory + "/exe", &error).value_or(QByteArray());
    denied = error == EACCES || error == EPERM;
    const QByteArray gone = " (deleted)";
    if (process.program.endsWith(gone)) {
        process.program.chop(gone.size());
        process.programGone = true;
    }
    return process;
}

QVector<ProcessReader::Process> ProcessReader::readProcesses(const QString &root, ReadingNotes &notes, int limit)
{
    noteHidden(root, notes);
    const qint64 bootTime = readBootTime(root, notes);
    QVector<Process> processes;
    int deniedCount = 0;
    int leftOut = 0;
    const QVector<int> pids = processIds(root, notes);
    for (const int pid : pids) {
        bool denied = false;
        const auto process = readProcess(root, pid, bootTime, denied);
        if (!process || process->kernelThread) {
            continue;
        }
        if (processes.size() == limit) {
            ++leftOut;
            continue;
        }
        deniedCount += denied ? 1 : 0;
        processes.append(*process);
    }
    if (deniedCount > 0) {
        HostFile::note(notes, "/proc/*/exe", "permission denied for " + countedText(deniedCount, "process"));
    }
    if (leftOut > 0) {
        HostFile::note(notes, "/proc", countedText(leftOut, "further process") + " not listed");
    }
    return processes;
}

QVector<STProProtectContentAsr> ProcessReader::records(const QVector<Process> &processes,
                                                       const QHash<quint32, QByteArray> &userNames)
{
    QVector<STProProtectContentAsr> records(processes.size());
    for (int i = 0; i < processes.size(); ++i) {
        const Process &process = processes.at(i);
        STProProtectContentAsr &record = records[i];
        record.id = i + 1;
        record.pid = process.pid;
        record.uid = process.effectiveUid;
        record.startTime = process.startTime;
        TextBuffer::copy(record.userName, userNames.value(process.effectiveUid));
        TextBuffer::copy(record.name, process.name);
        TextBuffer::copy(record.path, process.program);
    }
    return records;
}

Tav::Base::PriExceptionAsr ProcessReader::exceptions(QVector<Process> processes,
                                                     const QHash<quint32, QByteArray> &userNames, qint64 now)
{
    std::stable_sort(processes.begin(), processes.end(),
                     [](const Process &a, const Process &b) { return a.startTime > b.startTime; });
    Tav::Base::PriExceptionAsr answer;
    for (const Process &process : processes) {
        const int type = exceptionType(process);
        if (type == 0 && !process.zombie) {
            continue;
        }
        auto *const entry = answer.add_entries();
        entry->set_id(answer.entries_size());
        if (type != 0) {
            entry->set_type(type);
        }
        entry->set_state(process.zombie ? 2 : 0);
        entry->set_pid(process.pid);
        entry->set_ppid(process.ppid);
        entry->set_uid(process.effectiveUid);
        entry->set_user_name(TextBuffer::message(userNames.value(process.effectiveUid)));
        entry->set_process_name(TextBuffer::message(process.name));
        entry->set_path(TextBuffer::message(process.program));
        entry->set_time(now);
        entry->set_count(1);
        entry->set_reason(reasonOf(process, type));
    }
    answer.set_total(answer.entries_size());
    return answer;
}
