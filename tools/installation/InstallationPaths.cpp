#include "InstallationPaths.h"

#include "RootedPath.h"
#include "TavGlobalInfoMgr.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <sys/stat.h>

namespace
{
const QLatin1String pluginInLibraries("/tavsec/plugins/libTavDataPlugin.so");
}

QString InstallationPaths::catalogue()
{
    return TavGlobalInfoMgr::getInstance()->getAppPath().configPath + "/funcTypeConfig.json";
}

QString InstallationPaths::baseline()
{
    return "/etc/tavsec.d/baselineConfig/baseline.json";
}

QString InstallationPaths::scripts()
{
    return "/opt/tavsec/script/baselineScript";
}

QString InstallationPaths::pictures()
{
    return "/opt/tavsec/pictures";
}

QString InstallationPaths::plugins()
{
    return TavGlobalInfoMgr::getInstance()->getAppPath().pluginPath;
}

QString InstallationPaths::plugin()
{
    // First the client's own directory. Then, as packages have it, where this build would install it, and below the
    // other names that the directory of libraries has.
    QStringList files{plugins() + "/libTavDataPlugin.so"};
    for (const char *const prefix : {"/usr", "/usr/local"}) {
        files.append(QDir::cleanPath(prefix + QString("/bin/" TAV_PLUGIN_FROM_PROGRAM)));
        for (const char *const libraries : {"/lib", "/lib64"}) {
            const QString directory = QString(prefix) + libraries;
            files.append(directory + pluginInLibraries);
            const QStringList machines
                = QDir(followInRoot(directory).file()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
            for (const QString &machine : machines) {
                files.append(directory + '/' + machine + pluginInLibraries);
            }
        }
    }
    // What has the name is the plugin of the installation, be it a link to nothing: no other takes its place.
    const auto installed = std::find_if(files.begin(), files.end(), [](const QString &file) {
        const RootedPath directory = followInRoot(QFileInfo(file).path());
        struct stat status = {};
        return directory.error == 0
            && lstat(QFile::encodeName(directory.file() + '/' + QFileInfo(file).fileName()).constData(), &status) == 0;
    });
    return installed == files.end() ? QString() : *installed;
}

QString InstallationPaths::rootOf(const QString &file)
{
    const QString path = QFileInfo(file).canonicalFilePath();
    for (const QString &installed : {catalogue(), baseline()}) {
        if (path.endsWith(installed)) {
            return path == installed ? "/" : path.chopped(installed.size());
        }
    }
    return {};
}

QString InstallationPaths::pluginBesideProgram()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/" TAV_PLUGIN_FROM_PROGRAM);
}
