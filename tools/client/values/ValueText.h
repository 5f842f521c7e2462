#pragma once

#include <QJsonValue>

/// One JSON value as a person writes and reads it: a document holds arrays and objects only.
namespace ValueText
{
/// The value that @p text is. Throws std::runtime_error, which says what is wrong and where.
QJsonValue read(const QByteArray &text);

/// @p value on several lines; without a line's end.
QByteArray write(const QJsonValue &value);
}
