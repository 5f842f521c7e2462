#pragma once

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
QString described(const QJsonValue &value);

/// Throws unless @p json has the type; @p expected is what the error says should stand there.
QJsonArray array(const QJsonValue &json, const QString &path);
QJsonObject object(const QJsonValue &json, const QString &path);
bool flag(const QJsonValue &json, const QString &path);

/// A whole number from @p least to @p most.
qint64 wholeNumber(const QJsonValue &json, qint64 least, qint64 most, const QString &path);
qint64 signedNumber(const QJsonValue &json, const QString &path); ///< of 64 bits
quint64 unsignedNumber(const QJsonValue &json, const QString &path); ///< of 64 bits

/// UTF-8 as a text; anything else as an object with "bytes".
QJsonValue textToJson(const QByteArray &bytes);
QByteArray textFromJson(const QJsonValue &json, const QString &path);
QJsonValue qStringToJson(const QString &text);
QString qStringFromJson(const QJsonValue &json, const QString &path);

/// A buffer without NUL is an object with "bytes", as is what is not UTF-8.
QJsonValue bufferToJson(const char *buffer, int size);
/// Writes the text and fills what is left of the buffer with NUL.
void bufferFromJson(const QJsonValue &json, char *buffer, int size, const QString &path);

QJsonValue bytesToJson(const QByteArray &bytes);
QByteArray bytesFromJson(const QJsonValue &json, const QString &path);

QJsonValue enumToJson(const QMetaEnum &keys, int value);
int enumFromJson(const QMetaEnum &keys, const QJsonValue &json, const QString &path);

/// Throws when the message holds fields that this version of it does not know: they would be lost.
QJsonObject messageToJson(const google::protobuf::Message &message);
void messageFromJson(const QJsonValue &json, google::protobuf::Message &message, const QString &path);

QJsonValue pictureToJson(const std::shared_ptr<QImage> &picture);
QJsonValue objectToJson(const QObject *object);

/// Throws when @p json has a key that is not among @p known.
void refuseUnknownKeys(const QJsonObject &json, const QStringList &known, const QString &path);

template<class Type>
constexpr bool isMessage = std::is_base_of_v<google::protobuf::Message, Type>;
template<class Type>
constexpr bool isList = false;
template<class Element>
constexpr bool isList<QVector<Element>> = true;

template<class Type>
QJsonValue toJson(const Type &value);

template<class Record>
QJsonObject recordToJson(const Record &record)
{
    QJsonObject json;
    TavFields::forEachField<Record>([&](const auto &field) {
        using Field = std::decay_t<decltype(field)>;
        const QString name = QString::fromUtf8(field.name.data(), int(field.name.size()));
        if constexpr (Field::bufferSize > 0) {
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
QJsonValue toJson(const Type &value)
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
QJsonArray arrayOf(const std::tuple<Types...> &values)
{
    return std::apply([](const auto &...value) { return QJsonArray{toJson(value)...}; }, values);
}

template<class Type>
Type fromJson(const QJsonValue &json, const QString &path = QString());

template<class Record>
Record recordFromJson(const QJsonValue &json, const QString &path)
{
    const QJsonObject members = object(json, path);
    Record record{};
    QStringList names;
    TavFields::forEachField<Record>([&](const auto &field) {
        using Field = std::decay_t<decltype(field)>;
        const QString name = QString::fromUtf8(field.name.data(), int(field.name.size()));
        names.append(name);
        const auto member = members.constFind(name);
        if (member == members.constEnd()) {
            return;
        }
        if constexpr (Field::bufferSize > 0) {
            bufferFromJson(*member, record.*Field::member, Field::bufferSize, memberPath(path, name));
        } else {
            record.*Field::member = fromJson<typename Field::Type>(*member, memberPath(path, name));
        }
    });
    refuseUnknownKeys(members, names, path);
    return record;
}

/// The value that @p json stands for. Throws TavCallError; @p path is where @p json stands in what is read.
template<class Type>
Type fromJson(const QJsonValue &json, const QString &path)
{
    if constexpr (std::is_same_v<Type, bool>) {
        return flag(json, path);
    } else if constexpr (std::is_same_v<Type, QString>) {
        return qStringFromJson(json, path);
    } else if constexpr (std::is_enum_v<Type>) {
        return static_cast<Type>(enumFromJson(QMetaEnum::fromType<Type>(), json, path));
    } else if constexpr (std::is_same_v<Type, qint64>) {
        return signedNumber(json, path);
    } else if constexpr (std::is_same_v<Type, quint64>) {
        return unsignedNumber(json, path);
    } else if constexpr (std::is_integral_v<Type>) {
        static_assert(sizeof(Type) < sizeof(qint64));
        using Limits = std::numeric_limits<Type>;
        return static_cast<Type>(wholeNumber(json, Limits::min(), Limits::max(), path));
    } else if constexpr (std::is_same_v<Type, std::string>) {
        return bytesFromJson(json, path).toStdString();
    } else if constexpr (isMessage<Type>) {
        Type message;
        messageFromJson(json, message, path);
        return message;
    } else if constexpr (isList<Type>) {
        const QJsonArray elements = array(json, path);
        Type list;
        list.reserve(elements.size());
        for (const QJsonValue &element : elements) {
            list.append(fromJson<typename Type::value_type>(element, elementPath(path, list.size())));
        }
        return list;
    } else {
        return recordFromJson<Type>(json, path);
    }
}
}
