#pragma once

#include "TavCallError.h"
#include "TavFields.h"
#include "TavJsonPath.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QMetaEnum>

#include <google/protobuf/message.h>

#include <cstring>
#include <limits>
#include <memory>
#include <tuple>

/**
 * @brief JSON of every type that an operation takes or returns, both ways.
 *
 * | type | JSON |
 * |---|---|
 * | flag | boolean |
 * | number of up to 32 bits | whole number |
 * | number of 64 bits | its decimal text; a whole number within 2^53 is read, too |
 * | enumeration | the key's text; the number of a value without a key |
 * | QString | text; `{"bytes": "<Base64>"}` when it begins with a byte order mark, which Qt's reader would take off |
 * | text buffer, string field of a message | text; `{"bytes": "<Base64>"}` when it is not UTF-8 or lacks its NUL |
 * | byte string | text in Base64 |
 * | record, message | object by the names of the fields; of a message, those that are present |
 * | list | array |
 * | picture | null, or an object with width, height and format; written only |
 * | object | the name of its class; written only |
 *
 * Nothing is lost or replaced on the way out. Reading is strict: an unknown key, a wrong type, a number out of range or
 * a text longer than its buffer throws TavCallError with the JSON pointer of the place. Fields that are not given have
 * their initial value, zero or empty where the record gives none. All functions may be called on any thread.
 */
namespace TavJson
{
/// @p value in the words of an error, such as: the text "7".
[[nodiscard]] QString described(const QJsonValue &value);

/// Throws unless @p json has the type.
[[nodiscard]] QJsonArray array(const QJsonValue &json);
[[nodiscard]] QJsonObject object(const QJsonValue &json); ///< likewise
[[nodiscard]] bool flag(const QJsonValue &json); ///< likewise

/// A whole number from @p least to @p most.
[[nodiscard]] qint64 wholeNumber(const QJsonValue &json, qint64 least, qint64 most);
[[nodiscard]] qint64 signedNumber(const QJsonValue &json); ///< of 64 bits
[[nodiscard]] quint64 unsignedNumber(const QJsonValue &json); ///< of 64 bits

/// UTF-8 as a text; anything else as an object with "bytes".
[[nodiscard]] QJsonValue textToJson(const QByteArray &bytes);
[[nodiscard]] QByteArray textFromJson(const QJsonValue &json); ///< the reverse
[[nodiscard]] QJsonValue qStringToJson(
    const QString &text); ///< a text; with a byte order mark first, an object with "bytes"
[[nodiscard]] QString qStringFromJson(const QJsonValue &json); ///< the reverse

/// A buffer without NUL is an object with "bytes", as is what is not UTF-8.
[[nodiscard]] QJsonValue bufferToJson(const char *buffer, int size);
/// Writes the text and fills what is left of the buffer with NUL.
void bufferFromJson(const QJsonValue &json, char *buffer, int size);

[[nodiscard]] QJsonValue bytesToJson(const QByteArray &bytes); ///< in Base64
[[nodiscard]] QByteArray bytesFromJson(const QJsonValue &json); ///< the reverse

[[nodiscard]] QJsonValue enumToJson(const QMetaEnum &keys, int value); ///< the key; the number where there is none
[[nodiscard]] int enumFromJson(const QMetaEnum &keys, const QJsonValue &json); ///< the reverse

/// Throws when the message holds fields that this version of it does not know: they would be lost.
[[nodiscard]] QJsonObject messageToJson(const google::protobuf::Message &message);
void messageFromJson(const QJsonValue &json, google::protobuf::Message &message); ///< the reverse

[[nodiscard]] QJsonValue pictureToJson(
    const std::shared_ptr<QImage> &picture); ///< width, height, format; null for none
[[nodiscard]] QJsonValue objectToJson(const QObject *object); ///< the name of its class; null for none

/// Throws when @p json has a key that is not among @p known.
void refuseUnknownKeys(const QJsonObject &json, const QStringList &known);

/// Whether the type is a message of the backend.
template<class Type>
constexpr bool isMessage = std::is_base_of_v<google::protobuf::Message, Type>;
/// Whether the type is a list.
template<class Type>
constexpr bool isList = false;
/// A list.
template<class Element>
constexpr bool isList<QVector<Element>> = true;

template<class Type>
[[nodiscard]] QJsonValue toJson(const Type &value);

/// All fields of @p record by their names.
template<class Record>
[[nodiscard]] QJsonObject recordToJson(const Record &record)
{
    QJsonObject json;
    TavFields::forEachField<Record>([&](const auto &field) {
        using Field = std::decay_t<decltype(field)>;
        const QString name = QString::fromUtf8(field.name.data(), int(field.name.size()));
        if constexpr (Field::bufferSize != 0) {
            json.insert(name, bufferToJson(record.*Field::member, Field::bufferSize));
        } else {
            const typename Field::Type value = record.*Field::member; // a copy: packed records misalign their fields
            json.insert(name, toJson(value));
        }
    });
    return json;
}

/// @p value as JSON.
template<class Type>
[[nodiscard]] QJsonValue toJson(const Type &value)
{
    if constexpr (std::is_same_v<Type, bool>) {
        return value;
    } else if constexpr (std::is_same_v<Type, QString>) {
        return qStringToJson(value);
    } else if constexpr (std::is_enum_v<Type>) {
        return enumToJson(QMetaEnum::fromType<Type>(), value);
    } else if constexpr (std::is_same_v<Type, qint64> || std::is_same_v<Type, quint64>) {
        return QString::number(value);
    } else if constexpr (std::is_integral_v<Type>) {
        return static_cast<qint64>(value);
    } else if constexpr (std::is_same_v<Type, std::string>) {
        return bytesToJson(QByteArray::fromStdString(value));
    } else if constexpr (isMessage<Type>) {
        return messageToJson(value);
    } else if constexpr (isList<Type>) {
        QJsonArray json;
        for (const auto &element : value) {
            json.append(toJson(element));
        }
        return json;
    } else if constexpr (std::is_same_v<Type, std::shared_ptr<QImage>>) {
        return pictureToJson(value);
    } else if constexpr (std::is_pointer_v<Type>) {
        return objectToJson(value);
    } else {
        return recordToJson(value);
    }
}

/// @p values as an array, as the arguments of a call by position are written.
template<class... Types>
[[nodiscard]] QJsonArray arrayOf(const std::tuple<Types...> &values)
{
    return std::apply([](const auto &...value) { return QJsonArray{toJson(value)...}; }, values);
}

/// Of a place in JSON, as a path.
[[nodiscard]] inline QString pathOf(QLatin1String key)
{
    return memberPath({}, key);
}

/// The same of an element of a list.
[[nodiscard]] inline QString pathOf(int index)
{
    return elementPath({}, index);
}

/// The same of a path.
[[nodiscard]] inline QString pathOf(const QString &path)
{
    return path;
}

/// What @p read returns, which reads what stands at @p place: a key, an index or a path. The path of an error is put
/// together on the way out: making it for every value that is read takes several times as long as reading it.
template<class Place, class Read>
auto at(const Place &place, const Read &read)
{
    try {
        return read();
    } catch (const TavCallError &error) {
        throw TavCallError(pathOf(place) + error.path(), error.problem());
    }
}

/// As fromJson(), without a path.
template<class Type>
[[nodiscard]] Type valueFromJson(const QJsonValue &json);

/// The names of all fields of @p Record.
template<class Record>
[[nodiscard]] QStringList fieldNames()
{
    QStringList names;
    TavFields::forEachField<Record>(
        [&](const auto &field) { names.append(QString::fromUtf8(field.name.data(), int(field.name.size()))); });
    return names;
}

/// The reverse of recordToJson().
template<class Record>
[[nodiscard]] Record recordFromJson(const QJsonValue &json)
{
    const QJsonObject members = object(json);
    Record record{};
    int found = 0;
    TavFields::forEachField<Record>([&](const auto &field) {
        using Field = std::decay_t<decltype(field)>;
        const QLatin1String name(field.name.data(), int(field.name.size()));
        const auto member = members.constFind(name);
        if (member == members.constEnd()) {
            return;
        }
        ++found;
        at(name, [&] {
            if constexpr (Field::bufferSize != 0) {
                bufferFromJson(*member, record.*Field::member, Field::bufferSize);
            } else {
                record.*Field::member = valueFromJson<typename Field::Type>(*member);
            }
        });
    });
    if (found < members.size()) {
        refuseUnknownKeys(members, fieldNames<Record>());
    }
    return record;
}

template<class Type>
[[nodiscard]] Type valueFromJson(const QJsonValue &json)
{
    if constexpr (std::is_same_v<Type, bool>) {
        return flag(json);
    } else if constexpr (std::is_same_v<Type, QString>) {
        return qStringFromJson(json);
    } else if constexpr (std::is_enum_v<Type>) {
        return static_cast<Type>(enumFromJson(QMetaEnum::fromType<Type>(), json));
    } else if constexpr (std::is_same_v<Type, qint64>) {
        return signedNumber(json);
    } else if constexpr (std::is_same_v<Type, quint64>) {
        return unsignedNumber(json);
    } else if constexpr (std::is_integral_v<Type>) {
        static_assert(sizeof(Type) < sizeof(qint64));
        using Limits = std::numeric_limits<Type>;
        return static_cast<Type>(wholeNumber(json, Limits::min(), Limits::max()));
    } else if constexpr (std::is_same_v<Type, std::string>) {
        return bytesFromJson(json).toStdString();
    } else if constexpr (isMessage<Type>) {
        Type message;
        messageFromJson(json, message);
        return message;
    } else if constexpr (isList<Type>) {
        const QJsonArray elements = array(json);
        Type list;
        for (const QJsonValue &element : elements) {
            list.append(at(list.size(), [&] { return valueFromJson<typename Type::value_type>(element); }));
        }
        return list;
    } else {
        return recordFromJson<Type>(json);
    }
}

/// The value that @p json stands for. Throws TavCallError; @p path is where @p json stands in what is read.
template<class Type>
[[nodiscard]] Type fromJson(const QJsonValue &json, const QString &path = QString())
{
    return at(path, [&] { return valueFromJson<Type>(json); });
}
}
