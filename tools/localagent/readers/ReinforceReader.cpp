#include "ReinforceReader.h"

#include "HostFile.h"
#include "SecurityModuleReader.h"
#include "TextBuffer.h"

#include <cerrno>

namespace
{
/// What a kernel parameter should be.
struct Parameter {
    const char *key; ///< as sysctl names it
    const char *name; ///< display name
    int standard; ///< 0: exactly 0; otherwise at least this
    int lockedFrom; ///< from this value on it stays until the next boot; 0: it never locks
};

constexpr Parameter parameters[] = {
    {"kernel.randomize_va_space", "address space layout randomisation", 2, 0},
    {"kernel.kptr_restrict", "kernel addresses hidden", 1, 0},
    {"kernel.dmesg_restrict", "kernel log for the administrator alone", 1, 0},
    {"kernel.perf_event_paranoid", "performance events restricted", 2, 0},
    {"kernel.yama.ptrace_scope", "tracing of other processes restricted", 1, 3},
    {"kernel.unprivileged_bpf_disabled", "BPF for the administrator alone", 1, 1},
    {"kernel.kexec_load_disabled", "no other kernel can be started", 1, 1},
    {"kernel.modules_disabled", "no further module can be loaded", 1, 1},
    {"kernel.sysrq", "no system request keys", 0, 0},
    {"fs.protected_hardlinks", "hard links protected", 1, 0},
    {"fs.protected_symlinks", "symbolic links protected", 1, 0},
    {"fs.protected_fifos", "pipes in shared directories protected", 1, 0},
    {"fs.protected_regular", "files in shared directories protected", 1, 0},
    {"fs.suid_dumpable", "no core dumps of privileged programs", 0, 0},
    {"net.ipv4.tcp_syncookies", "SYN cookies", 1, 0},
    {"net.ipv4.conf.all.rp_filter", "reverse path filter", 1, 0},
    {"net.ipv4.conf.all.accept_redirects", "redirects not accepted", 0, 0},
    {"net.ipv4.conf.all.send_redirects", "redirects not sent", 0, 0},
    {"net.ipv4.conf.all.accept_source_route", "source routes not accepted", 0, 0},
    {"net.ipv4.icmp_echo_ignore_broadcasts", "echo to broadcasts ignored", 1, 0},
};

QByteArray modeText(SecurityModuleReader::Mode mode)
{
    return mode == SecurityModuleReader::Enforced ? "enforced"
        : mode == SecurityModuleReader::LogOnly   ? "log only"
                                                  : "off";
}

void addParameter(const QString &root, const Parameter &parameter, Tav::Reinforce::SecswitchAsr &answer,
                  ReadingNotes &notes)
{
    auto *const entry = answer.add_switches();
    entry->set_switch_id(answer.switches_size());
    entry->set_name(parameter.name);
    entry->set_key(parameter.key);
    entry->set_standard_value(std::to_string(parameter.standard));
    const QByteArray path = "/proc/sys/" + QByteArray(parameter.key).replace('.', '/');
    QByteArray content;
    const int error = HostFile::read(root, path, content);
    if (error != 0 && error != ENOENT) {
        HostFile::note(notes, path, HostFile::errorText(error));
    }
    bool ok = false;
    const int value = content.trimmed().toInt(&ok);
    entry->set_supported(ok);
    if (ok) {
        entry->set_enabled(parameter.standard == 0 ? value == 0 : value >= parameter.standard);
        entry->set_current_value(std::to_string(value));
        entry->set_locked(parameter.lockedFrom != 0 && value == parameter.lockedFrom);
    }
}

void addModule(const char *key, const char *name, SecurityModuleReader::Mode mode, bool supported,
               Tav::Reinforce::SecswitchAsr &answer)
{
    auto *const entry = answer.add_switches();
    entry->set_switch_id(answer.switches_size());
    entry->set_name(name);
    entry->set_key(key);
    entry->set_standard_value(modeText(SecurityModuleReader::Enforced).toStdString());
    entry->set_supported(supported);
    if (supported) {
        entry->set_enabled(mode == SecurityModuleReader::Enforced);
        entry->set_current_value(modeText(mode).toStdString());
    }
}
}

Tav::Reinforce::SecswitchAsr ReinforceReader::readSwitches(const QString &root, ReadingNotes &notes)
{
    Tav::Reinforce::SecswitchAsr answer;
    for (const Parameter &parameter : parameters) {
        addParameter(root, parameter, answer, notes);
    }
    const SecurityModuleReader::SecurityModules modules = SecurityModuleReader::read(root, notes);
    addModule("selinux", "SELinux", modules.selinux, HostFile::exists(root, "/sys/fs/selinux"), answer);
    addModule("apparmor", "AppArmor", modules.apparmor, HostFile::exists(root, "/sys/module/apparmor"), answer);
    return answer;
}

Tav::Reinforce::OneReforcePolicy ReinforceReader::policyOf(const Tav::Reinforce::SecswitchAsr &switches)
{
    Tav::Reinforce::OneReforcePolicy policy;
    policy.set_name("kernel parameters and security modules");
    for (const auto &entry : switches.switches()) {
        if (entry.supported()) {
            auto *const item = policy.add_items();
            item->set_item_id(entry.switch_id());
            item->set_name(entry.name());
            item->set_enabled(false);
            item->set_standard_value(entry.standard_value());
            item->set_current_value(entry.current_value());
            item->set_needs_reboot(entry.locked() && !entry.enabled());
        }
    }
    return policy;
}

QVector<STStateInfo> ReinforceReader::linesOf(const Tav::Reinforce::SecswitchAsr &switches)
{
    QVector<STStateInfo> lines;
    for (const auto &entry : switches.switches()) {
        if (entry.supported()) {
            const QString current = QString::fromStdString(entry.current_value());
            lines.append(
                {QString::fromStdString(entry.key()),
                 entry.enabled()
                     ? current
                     : QStringLiteral("%1, expected %2").arg(current, QString::fromStdString(entry.standard_value()))});
        }
    }
    return lines;
}
