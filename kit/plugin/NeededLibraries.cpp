#include "NeededLibraries.h"

#include "ElfFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <dlfcn.h>

namespace
{
/// @brief Follows the needs of a library.
class Search
{
public:
    void follow(const QString &path)
    {
        if (m_followed.contains(path)) {
            return;
        }
        m_followed.insert(path);
        const ElfFile file(path);
        QStringList directories;
        const QStringList searchPaths = file.dynamicTexts(DT_RPATH) + file.dynamicTexts(DT_RUNPATH);
        for (const QString &searchPath : searchPaths) {
            directories += searchPath.split(':');
        }
        directories.replaceInStrings("${ORIGIN}", "$ORIGIN");
        directories.replaceInStrings("$ORIGIN", QFileInfo(path).absolutePath());
        const QStringList needed = file.dynamicTexts(DT_NEEDED);
        for (const QString &name : needed) {
            findOne(name, directories);
        }
    }

    QStringList missing() const
    {
        return m_missing;
    }

private:
    void findOne(const QString &name, const QStringList &directories)
    {
        for (const QString &directory : directories) {
            if (QDir(directory).exists(name)) {
                follow(QDir(directory).filePath(name));
                return;
            }
        }
        // The linker knows the other places. It is one that the plugin's loading would initialise as well.
        if (void *const library = dlopen(QFile::encodeName(name).constData(), RTLD_LAZY)) {
            dlclose(library);
            return;
        }
        // The one that is missing may be one that this one needs. No other thread loads anything.
        const QString reason = QString::fromLocal8Bit(dlerror()); // NOLINT(concurrency-mt-unsafe)
        const QString lacking = reason.section(':', 0, 0);
        if (!m_missing.contains(lacking)) {
            m_missing.append(lacking);
        }
    }

    QSet<QString> m_followed;
    QStringList m_missing;
};
}

QStringList missingLibraries(const QString &file)
{
    Search search;
    search.follow(file);
    return search.missing();
}
