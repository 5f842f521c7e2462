#include "SecurityModuleReader.h"

#include "HostFile.h"

#include <QList>

SecurityModuleReader::SecurityModules SecurityModuleReader::read(const QString &root, ReadingNotes &notes)
{
    SecurityModules modules;
    if (const auto list = HostFile::readOrNote(root, "/sys/kernel/security/lsm", notes)) {
        const QList<QByteArray> names = list->trimmed().split(',');
        for (const QByteArray &name : names) {
            modules.active.append(name);
        }
    }
    if (const auto enforce = HostFile::number(root, "/sys/fs/selinux/enforce")) {
        modules.selinux = *enforce == 1 ? Enforced : LogOnly;
    }
    if (HostFile::attribute(root, "/sys/module/apparmor/parameters/enabled") == "Y") {
        // The mode is for the administrator to read. Where it cannot be read it is taken for the usual one.
        modules.apparmor
            = HostFile::attribute(root, "/sys/module/apparmor/parameters/mode") == "complain" ? LogOnly : Enforced;
    }
    return modules;
}
