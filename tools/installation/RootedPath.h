#pragma once

#include <QString>

/// @brief Where a path of an installation leads when its system runs.
struct RootedPath {
    QString path; ///< within the system root, without links and ".."; up to what is missing when there is an error
    int error = 0; ///< the errno that the system would give, such as ENOENT or EACCES; 0 when the path leads somewhere

    QString file() const; ///< the same outside of the root
};

/// Follows @p path, which is absolute: an absolute link goes on from the system root, and ".." does not leave it. A
/// slash at the end wants a directory.
RootedPath followInRoot(const QString &path);

/// Where @p file leads when its links are followed so, for a file below the system root that is named from outside of
/// it; unchanged for any other file.
QString followedInRoot(const QString &file);
