#pragma once

#include "CTavSubFuncTypeHeader.h"
#include "TavObjectMgr.h"
#include "ValueTable.h"

#include <QJsonArray>

/// @brief A table that belongs to a value.
struct PartTable {
    QString part; ///< the list in a message that it shows, as the message calls it; empty for the value itself
    ValueTablePointer table;
};

/// @brief A value of a page: what one getter returns, and which operations edit it.
struct PageValue {
    const char *title; ///< in English, of the translation context "PageValues"
    QString manager; ///< name of the interface
    QString getter;
    QVector<PartTable> (*readFrom)(ITavObjectMgr &registry); ///< calls the getter; nothing where its manager is missing

    QString rowEdit = {}; ///< overwrites one row of the list
    bool isByPosition = false; ///< it finds the row by its position, which it takes as the row's `index`
    bool isExclusive = false; ///< one row at most is checked: who checks one unchecks the others
    QString checkAll = {}; ///< sets the check mark of every row to its argument
    QString uncheckAll = {}; ///< takes off the check mark of every row
    QString toggleRow = {}; ///< toggles the entry at a position, of the list in the message
    QString toggleAll = {}; ///< toggles every entry

    QStringList keyNames = {}; ///< what the keys of a keyed table consist of; none for other values
    /// Calls the getter for one key, which must be one that was set: the manager would insert any other.
    QVector<PartTable> (*readKeyFrom)(ITavObjectMgr &registry, const QJsonArray &key) = nullptr;

    /// Calls the getter for each of these keys, which must have been set, in place of readFrom: of a manager that can
    /// be asked for one key only.
    QVector<PartTable> (*readKeysFrom)(ITavObjectMgr &registry, const QVector<QJsonArray> &keys) = nullptr;

    /// From the client's current registry.
    QVector<PartTable> read() const
    {
        return readFrom(*TavGlobalInfoMgr::getObjectMgr());
    }

    PageValue byPosition() const;
    PageValue exclusive() const;
    PageValue checkedBy(const char *operation) const;
    PageValue uncheckedBy(const char *operation) const;
    PageValue toggledBy(const char *row, const char *all) const;
};

/// The values of a page, in the order in which they are shown; empty for a page that has none.
const QVector<PageValue> &valuesOf(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);

/// Sets each value that would return whatever the memory held before its first set, to a record of zeros. To be called
/// when the plugin is loaded, by whoever shows values before they are fed.
void determineHeldValues();
