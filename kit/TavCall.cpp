// All calls of all operations are compiled here, and nowhere else: it takes a while.
#include "TavCall.h"

#include "TavJson.h"
#include "TavNearestText.h"
#include "TavOperations.h"
#include "TavTypeName.h"

namespace
{
using Prepare = TavCall::Call (*)(const QJsonArray &arguments, const QStringList &paths);
using Expected = QJsonValue (*)(const QJsonValue &json, const QString &path);

/// The rows of operations(), and beside each what makes a call of it.
struct CallTable {
    QVector<TavCall::Operation> operations;
    QVector<Prepare> prepare;
    QVector<Expected> expected;
};

QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), static_cast<int>(view.size()));
}

template<class Values, std::size_t... i>
Values valuesFromJson([[maybe_unused]] const QJsonArray &json, [[maybe_unused]] const QStringList &paths,
                      std::index_sequence<i...>)
{
    return Values{TavJson::fromJson<std::tuple_element_t<i, Values>>(json[int(i)], paths[int(i)])...};
}

template<class Operation>
TavCall::Call prepare(const QJsonArray &arguments, const QStringList &paths)
{
    using Interface = typename Operation::Interface;
    using Values = typename Operation::Values;
    constexpr auto indexes = std::make_index_sequence<Operation::argumentCount>();
    return [values = valuesFromJson<Values>(arguments, paths, indexes)](QObject *object) mutable -> QJsonValue {
        auto *const manager = qobject_cast<Interface *>(object);
        if (!manager) {
            throw TavCallError({},
                               QString("%1 is not the manager %2")
                                   .arg(object ? object->metaObject()->className() : "no object",
                                        qobject_interface_iid<Interface *>()));
        }
        return std::apply(
            [&](auto &...passed) -> QJsonValue {
                if constexpr (std::is_void_v<typename Operation::Result>) {
                    (manager->*Operation::member)(passed...);
                    return {}; // null
                } else {
                    return TavJson::toJson((manager->*Operation::member)(passed...));
                }
            },
            values);
    };
}

/// Of @p whole what @p named names: the same values, in the form that the managers' values are written in.
QJsonValue namedPart(const QJsonValue &whole, const QJsonValue &named)
{
    if (whole.isObject() && named.isObject()) {
        const QJsonObject all = whole.toObject();
        const QStringList keys = named.toObject().keys();
        QJsonObject part;
        for (const QString &key : keys) {
            // The form of a message leaves out the lists without elements.
            part.insert(key, all.contains(key) ? namedPart(all[key], named[key]) : named[key]);
        }
        return part;
    }
    if (whole.isArray()) {
        QJsonArray part;
        const QJsonArray all = whole.toArray();
        for (int i = 0; i < all.size(); ++i) {
            part.append(namedPart(all[i], named[i]));
        }
        return part;
    }
    return whole;
}

QJsonValue expectedPicture(const QJsonObject &json)
{
    TavJson::refuseUnknownKeys(json, {"width", "height", "format"});
    QJsonObject picture;
    for (const QString &side : {QStringLiteral("width"), QStringLiteral("height")}) {
        if (json.contains(side)) {
            picture.insert(side, TavJson::fromJson<int>(json[side], TavJson::memberPath({}, side)));
        }
    }
    if (json.contains("format")) {
        using Format = QImage::Format;
        picture.insert("format", TavJson::toJson(TavJson::fromJson<Format>(json["format"], "/format")));
    }
    return picture;
}

template<class Result>
QJsonValue expected(const QJsonValue &json, const QString &path)
{
    if constexpr (std::is_void_v<Result>) {
        if (!json.isNull()) {
            throw TavCallError(path, "the operation returns nothing, which is null");
        }
        return {};
    } else if constexpr (std::is_pointer_v<Result>) {
        if (!json.isString() && !json.isNull()) {
            throw TavCallError(path, "expected the name of a class or null, not " + TavJson::described(json));
        }
        return json;
    } else if constexpr (std::is_same_v<Result, std::shared_ptr<QImage>>) {
        return json.isNull() ? json : TavJson::at(path, [&] { return expectedPicture(TavJson::object(json)); });
    } else {
        return namedPart(TavJson::toJson(TavJson::fromJson<Result>(json, path)), json);
    }
}

template<class Type>
constexpr bool isObject = std::is_class_v<Type> && !TavJson::isList<Type> && !std::is_same_v<Type, QString>;

template<class Values, std::size_t... i>
QVector<TavCall::Argument> argumentsOf([[maybe_unused]] const std::array<std::string_view, sizeof...(i)> &names,
                                       std::index_sequence<i...>)
{
    return {{text(names[i]), tavTypeName(typeid(std::tuple_element_t<i, Values>)),
             isObject<std::tuple_element_t<i, Values>>}...};
}

const CallTable &table()
{
    static const CallTable all = [] {
        CallTable table;
        TavOperations::forEachOperation([&table](const auto &operation) {
            using Operation = std::decay_t<decltype(operation)>;
            constexpr auto indexes = std::make_index_sequence<Operation::argumentCount>();
            table.operations.append({qobject_interface_iid<typename Operation::Interface *>(), text(operation.name),
                                     argumentsOf<typename Operation::Values>(operation.argumentNames, indexes),
                                     tavTypeName(typeid(typename Operation::Result)),
                                     operation.isIndeterminateAtFirst});
            table.prepare.append(prepare<Operation>);
            table.expected.append(expected<typename Operation::Result>);
        });
        return table;
    }();
    return all;
}

QStringList namesOf(const TavCall::Operation &operation)
{
    QStringList names;
    for (const TavCall::Argument &argument : operation.arguments) {
        names.append(argument.name);
    }
    return names;
}

/// The call of the operation at @p place in the table with @p arguments, an array or an object that stands at @p path.
TavCall::Call preparedAt(int place, const QJsonValue &arguments, const QString &path)
{
    const QStringList names = namesOf(table().operations[place]);
    QJsonArray values;
    QStringList paths;
    if (arguments.isObject()) {
        const QJsonObject members = arguments.toObject();
        TavJson::at(path, [&] { TavJson::refuseUnknownKeys(members, names); });
        for (const QString &name : names) {
            if (!members.contains(name)) {
                throw TavCallError(path, QString("the argument \"%1\" is missing").arg(name));
            }
            values.append(members[name]);
            paths.append(TavJson::memberPath(path, name));
        }
    } else {
        values = TavJson::at(path, [&] { return TavJson::array(arguments); });
        if (values.size() != names.size()) {
            throw TavCallError(path,
                               QString("%1 takes %2 arguments, not %3")
                                   .arg(table().operations[place].signature(), QString::number(names.size()))
                                   .arg(values.size()));
        }
        for (int i = 0; i < values.size(); ++i) {
            paths.append(TavJson::elementPath(path, i));
        }
    }
    return table().prepare[place](values, paths);
}

using google::protobuf::LogHandler;
using google::protobuf::LogLevel;

thread_local bool isGuarded = false; ///< what the message library refuses on this thread becomes an error that says so

void logUnlessGuarded(LogLevel level, const char *file, int line, const std::string &message);

/// The one before ours, which takes its place before there is a second thread: the library guards neither.
LogHandler *const otherLog = google::protobuf::SetLogHandler(logUnlessGuarded);

void logUnlessGuarded(LogLevel level, const char *file, int line, const std::string &message)
{
    if (otherLog && !(isGuarded && level == google::protobuf::LOGLEVEL_FATAL)) {
        otherLog(level, file, line, message);
    }
}

/// @brief As long as it lives, the message library does not print what it throws on this thread.
class QuietRefusal
{
public:
    QuietRefusal()
    {
        isGuarded = true;
    }

    ~QuietRefusal()
    {
        isGuarded = false;
    }

    Q_DISABLE_COPY(QuietRefusal)
};

/// Makes of what the message library throws, at a position that a list does not have, the error of a call.
TavCall::Call guarded(const TavCall::Call &call, const TavCall::Operation &operation)
{
    return [call, &operation](QObject *manager) {
        const QuietRefusal quiet;
        try {
            return call(manager);
        } catch (const google::protobuf::FatalException &fatal) {
            throw TavCallError({},
                               QString("%1: the message library refused the call (%2); a position must be one of the "
                                       "list's")
                                   .arg(operation.signature(), fatal.what()));
        }
    };
}
}

QString TavCall::Operation::signature() const
{
    QStringList declared;
    for (const Argument &argument : arguments) {
        declared.append(argument.type + ' ' + argument.name);
    }
    return name + '(' + declared.join(", ") + ')';
}

const QVector<TavCall::Operation> &TavCall::operations()
{
    return table().operations;
}

const QVector<TavCall::HeldValue> &TavCall::heldValues()
{
    static const QVector<HeldValue> all = [] {
        QVector<HeldValue> values;
        TavOperations::forEachPair([&values](const auto &setter, const auto &getter) {
            values.append({qobject_interface_iid<typename std::decay_t<decltype(setter)>::Interface *>(),
                           text(setter.name), text(getter.name), getter.isIndeterminateAtFirst});
        });
        return values;
    }();
    return all;
}

QStringList TavCall::managers()
{
    const std::vector<const char *> names = TavOperations::interfaceNames();
    return {names.begin(), names.end()};
}

QVector<TavCall::Operation> TavCall::operationsOf(const QString &manager)
{
    QVector<Operation> own;
    for (const Operation &operation : operations()) {
        if (operation.manager == manager) {
            own.append(operation);
        }
    }
    if (own.isEmpty()) {
        throw TavCallError({},
                           QString("there is no manager \"%1\" (%2)").arg(manager, nearestOrAll(manager, managers())));
    }
    return own;
}

TavCall::Call TavCall::prepared(const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    return preparedCall(manager, operation, arguments, {}).call;
}

TavCall::Prepared TavCall::preparedCall(const QString &manager, const QString &operation, const QJsonValue &arguments,
                                        const QString &path)
{
    QStringList names; // of the manager's operations
    QVector<Prepared> fitting;
    QStringList problems; // why the others do not fit
    TavCallError last({}, {});
    for (int place = 0; place < operations().size(); ++place) {
        const Operation &candidate = operations()[place];
        if (candidate.manager != manager) {
            continue;
        }
        names.append(candidate.name);
        if (candidate.name != operation) {
            continue;
        }
        try {
            const Call call = preparedAt(place, arguments, path);
            fitting.append({guarded(call, candidate), &candidate, table().expected[place]});
        } catch (const TavCallError &error) {
            problems.append(candidate.signature() + ": " + QString::fromUtf8(error.what()));
            last = error;
        }
    }
    if (fitting.size() == 1) {
        return fitting.first();
    }
    if (!fitting.isEmpty()) {
        throw TavCallError(path,
                           QString("%1 and %2 both fit: give the arguments as an object by their names")
                               .arg(fitting[0].operation->signature(), fitting[1].operation->signature()));
    }
    if (problems.size() == 1) {
        throw last;
    }
    if (!problems.isEmpty()) {
        throw TavCallError(path, "none of the operations fits: " + problems.join("; "));
    }
    static_cast<void>(operationsOf(manager)); // throws when there is no such manager
    throw TavCallError(
        {}, QString("%1 has no operation \"%2\" (%3)").arg(manager, operation, nearestOrAll(operation, names)));
}

QJsonValue TavCall::call(QObject *object, const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    return prepared(manager, operation, arguments)(object);
}
