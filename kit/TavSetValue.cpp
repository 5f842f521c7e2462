#include "TavSetValue.h"

#include "TavCall.h"
#include "TavOperations.h"

#include <QHash>
#include <QJsonObject>

#include <optional>

namespace
{
/// @brief An operation that sets what a getter returns.
struct Setter {
    const TavCall::Operation *operation;
    const TavCall::Operation *getter;
    QVector<int> keys; ///< places of the getter's arguments among the setter's
    int value; ///< place of the argument that remains
};

/// @p setter as the one of @p getter: it takes the getter's arguments and, beside them, what that returns.
std::optional<Setter> setterOf(const TavCall::Operation &getter, const TavCall::Operation &setter)
{
    if (setter.manager != getter.manager || setter.arguments.size() != getter.arguments.size() + 1) {
        return {};
    }
    Setter found{&setter, &getter, {}, {}};
    for (const TavCall::Argument &key : getter.arguments) {
        for (int place = 0; place < setter.arguments.size(); ++place) {
            if (setter.arguments[place].name == key.name && setter.arguments[place].type == key.type) {
                found.keys.append(place);
            }
        }
    }
    for (int place = 0; place < setter.arguments.size(); ++place) {
        if (!found.keys.contains(place)) {
            found.value = place;
        }
    }
    const bool isSetter
        = found.keys.size() == getter.arguments.size() && setter.arguments[found.value].type == getter.result;
    return isSetter ? std::optional(found) : std::nullopt;
}

/// Name of the getter of what @p operation sets, if it is a setter.
QString getterNameOf(const TavCall::Operation &operation)
{
    const std::string name = operation.name.toStdString();
    return "get" + QString::fromStdString(std::string(TavOperations::valueSetBy(name)));
}

const QMultiHash<QString, Setter> &settersByName()
{
    static const QMultiHash<QString, Setter> all = [] {
        QMultiHash<QString, Setter> setters;
        for (const TavCall::Operation &setter : TavCall::operations()) {
            for (const TavCall::Operation &getter : TavCall::operations()) {
                if (getter.name != getterNameOf(setter) || setter.result != "void") {
                    continue;
                }
                if (const std::optional<Setter> found = setterOf(getter, setter)) {
                    setters.insert(setter.manager + setter.name, *found);
                }
            }
        }
        return setters;
    }();
    return all;
}

/// The argument at @p place of a call; undefined when there is none.
QJsonValue argumentAt(int place, const Setter &setter, const QJsonValue &arguments)
{
    return arguments.isObject() ? arguments[setter.operation->arguments[place].name] : arguments[place];
}
}

TavCall::SetValue TavCall::setValueOf(const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    const QList<Setter> setters = settersByName().values(manager + operation);
    for (const Setter &setter : setters) {
        // An operation of the same name may overwrite a single row of the list.
        const bool isList = setter.getter->result.startsWith("QVector<");
        if (argumentAt(setter.value, setter, arguments).isArray() != isList) {
            continue;
        }
        SetValue value{setter.getter->name, {}};
        for (const int place : setter.keys) {
            value.key.append(argumentAt(place, setter, arguments));
        }
        return value;
    }
    return {};
}
