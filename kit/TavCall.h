#pragma once

#include "TavCallError.h"

#include <QJsonValue>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <functional>

/**
 * @brief The operations of all managers at run time: what there is, and calling one by its name with JSON.
 *
 * What JSON stands for which type is told in TavJson.h. Every function may be called on any thread; an operation on
 * those threads that its interface allows, which is all of them but for ITavPicResourceMgr.
 */
namespace TavCall
{
/// @brief One argument of an operation.
struct Argument {
    QString name; ///< as an object of arguments names it
    QString type; ///< without const and reference, such as "QVector<STPriDetailAsr>"
    bool isObject; ///< its JSON is an object: a record or a message
};

/// @brief One operation.
struct Operation {
    QString manager; ///< name of the interface
    QString name; ///< shared by overloads
    QVector<Argument> arguments; ///< in their order
    QString result; ///< its type; "void" for none
    bool isIndeterminateAtFirst; ///< returns whatever the memory held until its setter has been called once

    /// Name and arguments, such as "getUserDetail(int key)".
    [[nodiscard]] QString signature() const;
};

/// All operations: the interfaces in the order of registration, of each the operations in its order.
[[nodiscard]] const QVector<Operation> &operations();

/// @brief A value that a manager holds, with the operations that set and return it as a whole.
struct HeldValue {
    QString manager; ///< name of the interface
    QString setter; ///< name of the operation that sets it
    QString getter; ///< name of the operation that returns it
    bool isIndeterminateAtFirst; ///< the getter returns whatever the memory held until the setter has been called once
};

/// All held values: the interfaces in the order of registration, of each the setters in its order.
[[nodiscard]] const QVector<HeldValue> &heldValues();

/// The names of all interfaces, in the order of registration.
[[nodiscard]] QStringList managers();

/// The operations of the interface with this name. Throws TavCallError when there is none.
[[nodiscard]] QVector<Operation> operationsOf(const QString &manager);

/// A call with its arguments, to be made on the manager as often as one likes, by one thread at a time. Returns the
/// result, null where there is none; throws TavCallError when the object is not that manager, or when the message
/// library refuses the call.
using Call = std::function<QJsonValue(QObject *manager)>;

/**
 * @brief Reads the arguments of a call without making it.
 *
 * @p arguments is an array by position or an object by name. Of operations that share their name, the one that takes
 * the arguments is meant. Throws TavCallError when there is no such manager or operation, or when the arguments do not
 * fit, or fit more than one: then the names in an object tell.
 */
[[nodiscard]] Call prepared(const QString &manager, const QString &operation, const QJsonValue &arguments);

/// @brief A call, and what it is a call of.
struct Prepared {
    Call call; ///< the call
    const Operation *operation; ///< a row of operations(); never null

    /// What the operation returns when @p json, found at @p path, names it: in the form that the call returns it, and
    /// of records and messages only those fields that @p json names. Throws TavCallError when it cannot return that.
    QJsonValue (*expected)(const QJsonValue &json, const QString &path);
};

/// As prepared(), with the operation that was meant. @p path is where @p arguments stand in what is read.
[[nodiscard]] Prepared preparedCall(const QString &manager, const QString &operation, const QJsonValue &arguments,
                                    const QString &path);

/// Calls the operation of this name on @p object, the manager behind the interface @p manager. Throws TavCallError.
QJsonValue call(QObject *object, const QString &manager, const QString &operation, const QJsonValue &arguments);
}
