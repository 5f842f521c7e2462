#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

/// @brief One edit made through a manager, with what it changed before and after.
struct Edit {
    QString kind; ///< how the row was found, or what was changed
    QString operation; ///< the interface's operation
    QString field; ///< what was changed
    QString target = {}; ///< whose field; empty when the list held nothing to edit
    QVariant before = {}; ///< a flag or a number; not valid when the list held nothing to edit
    QVariant after = {};
};

/// Makes one edit of each kind, as a page would: reads the list, calls the operation, reads it back.
QVector<Edit> makeEdits();
