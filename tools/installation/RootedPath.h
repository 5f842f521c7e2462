#pragma once

#include <QString>
#include <QStringList>

/// @brief Where a path of an installation leads when its system runs.
struct RootedPath {
    QString path; ///< within the system root, without links and ".."; up to what is missing when there is an error
    int error = 0; ///< the errno that the system would give, such as ENOENT or EACCES; 0 when the path leads somewhere
    QStringList directories
        = {}; ///< those that it goes through, links included: each name is looked up in the next of them

    QString file() const; ///< the same outside of the root
};

/// Follows @p path, which is absolute: an absolute link goes on from the system root, and ".." does not leave it. A
/// slash at the end wants a directory.
RootedPath followInRoot(const QString &path);

/// The path within the system root of @p file, which is named as outside of it; empty when it lies elsewhere.
QString pathWithinRoot(const QString &file);
