#pragma once

#include "TavFields.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

/// @brief A field of a record, for whoever fills one in.
struct RecordField {
    QString name;
    TavFields::Kind kind;
    int bufferSize; ///< bytes of a text buffer, the terminating NUL included; 0 for all other fields
    QJsonValue initial; ///< zero or empty, in the JSON of TavJson.h: its type is the field's
};

/// @brief A record that an operation takes, at run time.
struct RecordType {
    QVector<RecordField> fields; ///< in their order

    /// Throws TavCallError, with the field as its path, unless @p record is JSON of such a record. Fields may be left
    /// out.
    void (*check)(const QJsonValue &record);
};

/// The record that is called so in C++, such as "STStateAsr"; null when no operation takes one of this name. Any
/// thread.
const RecordType *recordTypeOf(const QString &name);
