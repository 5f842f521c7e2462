#include "RootedPath.h"

#include "TavGlobalInfoMgr.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <climits>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr int mostLinks = 40; // as many as the system follows

QString targetOf(const QByteArray &link)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t length = readlink(link.constData(), target.data(), target.size());
    return QFile::decodeName(QByteArray(target.data(), int(qMax(ssize_t(0), length))));
}
}

QString RootedPath::file() const
{
    const QString root = TavGlobalInfoMgr::getInstance()->systemRoot();
    if (root.isEmpty() || root == "/") {
        return path.isEmpty() ? "/" : path;
    }
    return root + path;
}

RootedPath followInRoot(const QString &path)
{
    if (path.contains(QChar::Null)) {
        return {path, ENOENT, {QString()}}; // no file has a name with a NUL
    }
    RootedPath at;
    int links = 0;
    QStringList left = path.split('/');
    while (!left.isEmpty()) {
        const QString name = left.takeFirst();
        if (name.isEmpty() || name == ".") {
            continue;
        }
        if (name == "..") {
            at.path.truncate(qMax(0, at.path.lastIndexOf('/')));
            continue;
        }
        at.directories.append(at.path);
        const RootedPath next{at.path + '/' + name};
        const QByteArray file = QFile::encodeName(next.file());
        struct stat status = {};
        if (lstat(file.constData(), &status) != 0) {
            return {next.path, errno, at.directories};
        }
        if (S_ISLNK(status.st_mode)) {
            if (++links > mostLinks) {
                return {next.path, ELOOP, at.directories};
            }
            const QString target = targetOf(file);
            if (target.startsWith('/')) {
                at.path.clear();
            }
            left = target.split('/') + left;
        } else if (!left.isEmpty() && !S_ISDIR(status.st_mode)) {
            return {next.path, ENOTDIR, at.directories};
        } else {
            at.path = next.path;
        }
    }
    return at;
}

QString pathWithinRoot(const QString &file)
{
    const auto absolute = [](const QString &name) { return QDir::cleanPath(QFileInfo(name).absoluteFilePath()); };
    const QString root = TavGlobalInfoMgr::getInstance()->systemRoot();
    const QString inside = root.isEmpty() || root == "/" ? QString() : absolute(root);
    return absolute(file).startsWith(inside + '/') ? absolute(file).mid(inside.size()) : QString();
}
