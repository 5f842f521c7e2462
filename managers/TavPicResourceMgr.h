#pragma once

#include "ITavPicResourceMgr.h"

#include <QObject>

#include <map>

// The two names with leading underscores are the client's own and are kept; nothing in the standard headers has them.

/// @brief Key of the picture cache, ordered by directory and then by picture. Both texts are upper-cased.
struct _IndexStrStr { // NOLINT(bugprone-reserved-identifier)
    QString dirName; ///< name of the picture's parent directory
    QString imageName; ///< the file's name before its first dot
};

inline bool operator<(const _IndexStrStr &a, const _IndexStrStr &b)
{
    return a.dirName == b.dirName ? a.imageName < b.imageName : a.dirName < b.dirName;
}

/// @brief The pages' pictures, loaded when their directory is appended. The one manager without a mutex: its callers
/// keep to one thread.
class TavPicResourceMgr : public QObject, public ITavPicResourceMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavPicResourceMgr)
public:
    explicit TavPicResourceMgr(QObject *parent);

    QObject *getObject() override;
    std::shared_ptr<QImage> getImageRef(const QString &dirName, const QString &imageName) override;
    void appendPicResourcePath(const QString &path) override;

private:
    std::map<_IndexStrStr, std::shared_ptr<QImage>> images;
};
