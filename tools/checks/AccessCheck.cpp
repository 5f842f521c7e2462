#include "AccessCheck.h"

#include "RootedPath.h"

#include <QFile>
#include <QSet>

#include <sys/stat.h>

namespace
{
bool isStatusOf(const RootedPath &path, struct stat &status)
{
    return stat(QFile::encodeName(path.file()).constData(), &status) == 0;
}

/// What a file or directory is there for.
enum class Use {
    Read, ///< what is in it counts: what somebody puts into such a directory is taken
    PassedThrough, ///< one known name is looked up in it
};

/// Who may write it besides its owner; empty for nobody.
QString otherWriters(const struct stat &status, Use use)
{
    if (use == Use::PassedThrough && status.st_mode & S_ISVTX) {
        return {}; // in such a directory each may change but his own
    }
    if (status.st_mode & S_IWOTH) {
        return "everybody";
    }
    // A group with the number of the owner is the one that is made for him alone.
    const bool isSharedGroup = status.st_mode & S_IWGRP && status.st_gid != status.st_uid;
    return isSharedGroup ? QString("the group %1").arg(status.st_gid) : QString();
}

Findings findingsOn(const RootedPath &path, Use use, uid_t rootOwner)
{
    struct stat status = {};
    if (!isStatusOf(path, status)) {
        return {};
    }
    Findings findings;
    const QString writers = otherWriters(status, use);
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
    const auto check = [&](const QString &path, Use use) {
        if (!checked.contains(path)) {
            checked.insert(path);
            findings += findingsOn(RootedPath{path}, use, root.st_uid);
        }
    };
    QStringList passedThrough;
    for (const QString &path : paths) {
        const RootedPath at = followInRoot(path);
        if (at.error == 0) {
            check(at.path, Use::Read);
        }
        passedThrough += at.directories;
    }
    for (const QString &directory : qAsConst(passedThrough)) {
        check(directory, Use::PassedThrough);
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
