#pragma once

#include <QImage>
#include <QObject>
#include <QString>

#include <memory>

/**
 * @brief The pages' PNG images, by directory name and image name instead of by path.
 *
 * Call it from one thread only, the one that draws: this manager alone has no lock. The images it has handed out may
 * be released on any thread.
 */
class ITavPicResourceMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /**
     * @brief The image of this name from the directory of this name; case plays no part in either.
     *
     * A directory is named without its path, an image up to its first dot: "ok" finds ok.png and OK.hover.png. An
     * empty pointer when there is none; a null image when the file could not be decoded. Never reads the disk. The
     * pixels are shared with every other holder: do not write to them.
     */
    [[nodiscard]] virtual std::shared_ptr<QImage> getImageRef(const QString &dirName, const QString &imageName) = 0;
    /**
     * @brief Loads every PNG file of a directory at once.
     *
     * A further call reloads and replaces; whoever holds an older image keeps it. Of two files with the same directory
     * and image name, the one loaded last is found. Subdirectories are skipped unless their own name ends in ".png",
     * and that is kept. A directory that does not exist adds nothing.
     */
    virtual void appendPicResourcePath(const QString &dirPath) = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavPicResourceMgr() = default;
};

Q_DECLARE_INTERFACE(ITavPicResourceMgr, "ITavPicResourceMgr")
