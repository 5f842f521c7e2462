#include "AgentSteps.h"

#include "ManagerFeeds.h"
#include "TavObjectMgr.h"

#include <QElapsedTimer>

#include <algorithm>

namespace
{
template<class Manager>
AgentStep step(const QString &name, int (*feed)(const QString &, const AgentCalls<Manager> &, ReadingNotes &))
{
    const QLatin1String manager(qobject_interface_iid<Manager *>());
    return {name, manager, [feed](const QString &root, const AgentObserver &observer, ReadingNotes &notes) {
                auto *const found = tavObject<Manager>();
                return found != nullptr ? std::optional<int>(feed(root, AgentCalls<Manager>(*found, observer), notes))
                                        : std::nullopt;
            }};
}
}

QVector<AgentStep> agentSteps()
{
    using namespace ManagerFeeds;
    return {
        step(QStringLiteral("server"), feedServer),
        step(QStringLiteral("account"), feedAccount),
        step(QStringLiteral("resources"), feedResources),
        step(QStringLiteral("kernel signatures"), feedKernelState),
        step(QStringLiteral("USB devices"), feedDevices),
        step(QStringLiteral("network devices"), feedNetwork),
        step(QStringLiteral("users"), feedUsers),
        step(QStringLiteral("access objects"), feedObjects),
        step(QStringLiteral("access mode"), feedAccessMode),
        step(QStringLiteral("kernel modules"), feedModules),
        step(QStringLiteral("blocked modules"), feedBlockedModules),
        step(QStringLiteral("processes"), feedProcesses),
        step(QStringLiteral("directories"), feedDirectories),
        step(QStringLiteral("files"), feedFiles),
        step(QStringLiteral("software"), feedSoftware),
        step(QStringLiteral("protection states"), feedProtectionStates),
        step(QStringLiteral("protection rows"), feedProtectionRows),
        step(QStringLiteral("process exceptions"), feedExceptions),
        step(QStringLiteral("kernel measurement"), feedKernelMeasurement),
        step(QStringLiteral("program measurement"), feedProgramMeasurement),
        step(QStringLiteral("audit events"), feedAudit),
        step(QStringLiteral("baseline items"), feedBaseline),
        step(QStringLiteral("hardening"), feedHardening),
    };
}

namespace
{
/// Each note once, since a step may read one file several times.
ReadingNotes withoutRepetition(const ReadingNotes &notes)
{
    ReadingNotes once;
    for (const ReadingNote &note : notes) {
        const bool known = std::any_of(once.cbegin(), once.cend(), [&note](const ReadingNote &other) {
            return other.source == note.source && other.reason == note.reason;
        });
        if (!known) {
            once.append(note);
        }
    }
    return once;
}
}

AgentReading runStep(const AgentStep &step, const QString &root, const AgentObserver &observer)
{
    AgentReading reading;
    reading.name = step.name;
    reading.manager = step.manager;
    QElapsedTimer timer;
    timer.start();
    ReadingNotes notes;
    const std::optional<int> entries = step.feed(root, observer, notes);
    reading.microseconds = timer.nsecsElapsed() / 1000;
    reading.fed = entries.has_value();
    reading.entries = entries.value_or(0);
    reading.notes = withoutRepetition(notes);
    if (!reading.fed) {
        reading.notes.append({step.manager, QStringLiteral("no such manager is registered")});
    }
    return reading;
}
