#pragma once

#include <QString>
#include <QVector>

/// @brief One edit made through a manager, with what it was to change before and after.
struct Edit {
    QString kind; ///< how the row was found, or what was changed
    QString operation; ///< the interface's operation
    QString before; ///< empty when the list held nothing to edit
    QString after;
};

/// Makes one edit of each kind, as a page would: reads the list, calls the operation, reads it back.
QVector<Edit> makeEdits();
