#include "AccessCheck.h"

#include "InstallationPaths.h"
#include "RootedPath.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <initializer_list>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
bool isStatusOf(const QString &file, struct stat &status)
{
    return stat(QFile::encodeName(file).constData(), &status) == 0;
}

/// What a file or directory is there for.
enum class Use {
    Read, ///< what is in it counts: what somebody puts into such a directory is taken
    PassedThrough, ///< one known name is looked up in it
};

/// Whether the group is the one that is made for the owner alone: it has his number or his name.
bool isGroupOfOwner(const QString &file, const struct stat &status)
{
    const QFileInfo info(file);
    return status.st_gid == status.st_uid || (!info.owner().isEmpty() && info.owner() == info.group());
}

/// Who may write it besides its owner; empty for nobody.
QString otherWriters(const QString &file, const struct stat &status, Use use)
{
    if (use == Use::PassedThrough && status.st_mode & S_ISVTX) {
        return {}; // in such a directory each may change but his own
    }
    if (status.st_mode & S_IWOTH) {
        return "everybody";
    }
    return status.st_mode & S_IWGRP && !isGroupOfOwner(file, status) ? QString("the group %1").arg(status.st_gid)
                                                                     : QString();
}

/// What is found at @p file, whose owner has to be the administrator or one of @p owners.
Findings findingsOn(const QString &file, Use use, std::initializer_list<uid_t> owners)
{
    struct stat status = {};
    if (!isStatusOf(file, status)) {
        return {};
    }
    Findings findings;
    const QString writers = otherWriters(file, status, use);
    if (!writers.isEmpty()) {
        findings.append(Finding::ofFile(FindingCode::WritableByOthers, file, writers + " may write it",
                                        "others than its owner decide what the client shows and the agent runs",
                                        R"(take the right away with "chmod go-w")"));
    }
    if (status.st_uid != 0 && std::find(owners.begin(), owners.end(), status.st_uid) == owners.end()) {
        findings.append(Finding::ofFile(FindingCode::OwnedByStranger, file,
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
    isStatusOf(RootedPath().file(), root);
    Findings findings;
    QSet<QString> checked;
    const auto check = [&](const QString &path, Use use) {
        if (!checked.contains(path)) {
            checked.insert(path);
            findings += findingsOn(RootedPath{path}.file(), use, {root.st_uid});
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

Findings checkFileAccess(const QString &file)
{
    const QString root = InstallationPaths::rootOf(file);
    struct stat around = {};
    if (!root.isEmpty()) {
        isStatusOf(root, around);
        return findingsOn(file, Use::Read, {around.st_uid});
    }
    isStatusOf(QFileInfo(QFileInfo(file).canonicalFilePath()).path(), around);
    return findingsOn(file, Use::Read, {around.st_uid, getuid()});
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
