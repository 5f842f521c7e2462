#pragma once

#include <QJsonArray>
#include <QString>

namespace TavCall
{
/// @brief A value that a call sets as a whole: the getter that returns it, and the arguments by which it does.
struct SetValue {
    QString getter; ///< empty when the call sets nothing as a whole
    QJsonArray key; ///< by position; empty for a getter without arguments
};

/// What a call of @p operation sets as a whole, such as what getObjectCount(flag, key) returns for
/// setObjectCount(count, flag, key). @p arguments, an array by position or an object by name, fit the operation.
/// May be called on any thread.
[[nodiscard]] SetValue setValueOf(const QString &manager, const QString &operation, const QJsonValue &arguments);
}
