#pragma once

#include "ValueTable.h"

#include <QJsonArray>

/// Values as JSON for programs to read, by what the columns say they are. It is not the JSON of calls, which TavJson.h
/// tells.
namespace ValueJson
{
/**
 * @brief A cell's value.
 *
 * Numbers are numbers, beyond 2^53 their decimal text; a flag is a boolean, an unknown one null; a time is ISO 8601
 * with its zone, null where it is not known; a list an array, bytes Base64, an absent field null.
 */
QJsonValue ofCell(TavFields::Kind kind, const QVariant &value);

/// The columns, each with name, kind and, where it has them, unit and meanings of its codes.
QJsonArray columns(const ValueTable &table);

/// An object by the names of the columns for each row.
QJsonArray rows(const ValueTable &table);

/// What a column's "kind" says for @p kind.
QString nameOf(TavFields::Kind kind);
}
