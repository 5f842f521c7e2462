#include "RootedPath.h"

#include "TavGlobalInfoMgr.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

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
    return root.isEmpty() || root == "/" ? path : root + path;
}

RootedPath followInRoot(const QString &path)
{
    if (path.contains(QChar::Null)) {
        return {path, ENOENT}; // no file has a name with a NUL
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
        const RootedPath next{at.path + '/' + name};
        const QByteArray file = QFile::encodeName(next.file());
        struct stat status = {};
        if (lstat(file.constData(), &status) != 0) {
            return {next.path, errno};
        }
        if (S_ISLNK(status.st_mode)) {
            if (++links > mostLinks) {
                return {next.path, ELOOP};
            }
            const QString target = targetOf(file);
            if (target.startsWith('/')) {
                at.path.clear();
            }
            left = target.split('/') + left;
        } else if (!left.isEmpty() && !S_ISDIR(status.st_mode)) {
            return {next.path, ENOTDIR};
        } else {
            at = next;
        }
    }
    return at;
}

QString followedInRoot(const QString &file)
{
    const QString root = QDir(RootedPath{"/"}.file()).absolutePath();
    const QString path = QFileInfo(file).absoluteFilePath();
    return root != "/" && path.startsWith(root + '/') ? followInRoot(path.mid(root.size())).file() : file;
}
