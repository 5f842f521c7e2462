#pragma once

#include "Finding.h"

#include <QFileInfo>
#include <QStringList>
#include <QVector>

/// @brief A PNG file of a picture directory.
struct PictureFile {
    QString directory; ///< first half of its key: the directory's name, upper-cased
    QString name; ///< second half: the file's name before its first dot, upper-cased
    QString file; ///< as it is named
    QString target; ///< what that leads to, links followed as in the system root

    QString key() const
    {
        return directory + QLatin1Char('/') + name;
    }
};

/// @brief A file or directory that the plugin passes over, and why.
struct PassedOver {
    FindingCode code;
    QString file; ///< as it is named
    QFileInfo itself; ///< the same, reached as in the system root
};

/// @brief What the plugin takes from picture directories, and what it passes over.
struct PictureFiles {
    QVector<PictureFile> files; ///< in the order in which the plugin loads them
    QVector<PassedOver> passedOver;
};

/// The picture directories in the directory @p path.
QStringList pictureDirectoriesIn(const QString &path);

/// Lists directories that are appended in this order. Links are followed as in the system root.
PictureFiles listPictures(const QStringList &directories);

/// Whether the plugin leaves it to chance which of two files in one directory it loads first: it sorts without case.
bool differInCaseAlone(const QString &one, const QString &other);

Findings checkPictures(const PictureFiles &pictures);

/// What lies in @p path itself, beside the picture directories in it, and is meant for pictures.
Findings checkStrayPictures(const QString &path);
