#pragma once

#include <QString>

/// Places in JSON, as JSON pointers: "" for the whole, "/0/userName" for a member of its first element.
namespace TavJson
{
/// Path of the member @p key of the value at @p path.
[[nodiscard]] QString memberPath(const QString &path, const QString &key);
/// Path of the element at @p index of the value at @p path.
[[nodiscard]] QString elementPath(const QString &path, int index);
}
