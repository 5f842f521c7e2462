#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

/// @brief One picture of a function's icon, as a page would ask for it.
struct IconPicture {
    QString directory; ///< name of the resource directory
    QString name; ///< icon name of the catalogue, with a variant's ending
    QSize size; ///< in pixels; empty when there is no such picture
};

/// The picture directories of the installation, as paths.
QStringList pictureDirectories();

/// Appends every picture directory of the installation to the picture cache and looks up the icons of the catalogue in
/// each, plain and with the endings "Hover" and "Pressed".
QVector<IconPicture> loadIconPictures();
