#include "AccessCheck.h"

#include "RootedPath.h"

#include <QFile>
#include <QSet>

#include <sys/stat.h>

namespace
{
bool isStatusOf(const RootedPath &path, struct stat &status)
{
    return stat(QFile::encodeName(path.file().isEmpty() ? "/" : path.file()).constData(), &status) == 0;
}

/// Who may write it besides its owner; empty for nobody.
QString otherWriters(const struct stat &status)
{
    if (S_ISDIR(status.st_mode) && status.st_mode & S_ISVTX) {
        return {}; // in such a directory each may change but his own
    }
    if (status.st_mode & S_IWOTH) {
        return "everybody";
    }
    // A group with the number of the owner is the one that is made for him alone.
    const bool isSharedGroup = status.st_mode & S_IWGRP && status.st_gid != status.st_uid;
    return isSharedGroup ? QString("the group %1").arg(status.st_gid) : QString();
}

Findings findingsOn(const RootedPath &path, uid_t rootOwner)
{
    struct stat status = {};
    if (!isStatusOf(path, status)) {
        return {};
    }
    Findings findings;
    const QString writers = otherWriters(status);
    if (!writers.isEmpty()) {
        findings.append(Finding::ofFile(FindingCode::WritableByOthers, path.file(), writers + " may write it",
                                        "others than its owner decide what the client shows and the agent runs",
                                        R"(take the right away with "chmod go-w")"));
    }
    if (status.st_uid != 0 && status.st_uid != rootOwner) {
        findings.append(Finding::ofFile(FindingCode::OwnedByStranger, path.file(),
                                        QString("belongs to the user %1").arg(status.st_uid),
                                        "this user decides what the client shows and the agent runs",
                                        R"(give it to the administrator with "chown root")"));
    }
    return findings;
}
}

Findings checkAccess(const QStringList &paths)
{
    struct stat root = {};
    isStatusOf(RootedPath(), root);
    Findings findings;
    QSet<QString> checked;
    for (const QString &path : paths) {
        RootedPath at = followInRoot(path);
        bool isNew = at.error == 0;
        while (isNew && !at.path.isEmpty()) {
            isNew = !checked.contains(at.path);
            if (isNew) {
                checked.insert(at.path);
                findings += findingsOn(at, root.st_uid);
            }
            at.path.truncate(at.path.lastIndexOf('/'));
        }
    }
    return findings;
}

Findings checkProcessFiles()
{
    return QFile::exists("/proc/self/stat")
        ? Findings()
        : Findings{Finding::ofFile(FindingCode::NoProcessFiles, "/proc", "is not mounted",
                                   "nothing is known of processes, memory and devices, which is not to say that there "
                                   "are none",
                                   R"(mount it with "mount -t proc proc /proc")")};
}
