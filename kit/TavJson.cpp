#include "TavJson.h"

#include "TavCallError.h"
#include "TavNearestText.h"

#include <QJsonDocument>

#include <optional>

namespace
{
using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using google::protobuf::Reflection;

constexpr qint64 exactInDouble = Q_INT64_C(1) << 53; ///< every whole number up to it is one in other JSON readers, too

[[noreturn]] void refuse(const char *expected, const QJsonValue &json)
{
    throw TavCallError({}, QString("expected %1, not %2").arg(expected, TavJson::described(json)));
}

/// The whole number of 64 bits that @p json is, exact beyond 2^53, too.
std::optional<qint64> wholeOf(const QJsonValue &json)
{
    const QVariant value = json.toVariant();
    return value.userType() == QMetaType::LongLong ? std::optional<qint64>(value.toLongLong()) : std::nullopt;
}

/// The number of 64 bits that @p json is in one of its two forms; refused as not @p expected otherwise.
template<class Number>
Number longOf(const QJsonValue &json, Number (QString::*fromText)(bool *, int) const, const char *expected)
{
    if (json.isString()) {
        const Number number = (json.toString().*fromText)(nullptr, 10);
        if (QString::number(number) == json.toString()) { // no sign, zero or space too many
            return number;
        }
    }
    const std::optional<qint64> whole = wholeOf(json);
    if (whole && *whole <= exactInDouble && *whole >= -exactInDouble && (*whole >= 0 || std::is_signed_v<Number>)) {
        return static_cast<Number>(*whole);
    }
    refuse(expected, json);
}

QString nameOf(const FieldDescriptor *field)
{
    return QString::fromStdString(field->name());
}

[[noreturn]] void refuseKind(const FieldDescriptor *field)
{
    throw TavCallError({},
                       QString("%1: no JSON is known for fields of type %2")
                           .arg(QString::fromStdString(field->full_name()), field->type_name()));
}

/// The value of a field, or of entry @p index of a list; -1: it is no list.
QJsonValue fieldToJson(const Message &message, const FieldDescriptor *field, int index)
{
    const Reflection &reflection = *message.GetReflection();
    const bool isEntry = index >= 0;
    std::string text;
    switch (field->cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32:
        return isEntry ? reflection.GetRepeatedInt32(message, field, index) : reflection.GetInt32(message, field);
    case FieldDescriptor::CPPTYPE_UINT32:
        return static_cast<qint64>(isEntry ? reflection.GetRepeatedUInt32(message, field, index)
                                           : reflection.GetUInt32(message, field));
    case FieldDescriptor::CPPTYPE_INT64:
        return QString::number(isEntry ? reflection.GetRepeatedInt64(message, field, index)
                                       : reflection.GetInt64(message, field));
    case FieldDescriptor::CPPTYPE_UINT64:
        return QString::number(isEntry ? reflection.GetRepeatedUInt64(message, field, index)
                                       : reflection.GetUInt64(message, field));
    case FieldDescriptor::CPPTYPE_BOOL:
        return isEntry ? reflection.GetRepeatedBool(message, field, index) : reflection.GetBool(message, field);
    case FieldDescriptor::CPPTYPE_STRING:
        text = isEntry ? reflection.GetRepeatedString(message, field, index) : reflection.GetString(message, field);
        return field->type() == FieldDescriptor::TYPE_BYTES ? TavJson::bytesToJson(QByteArray::fromStdString(text))
                                                            : TavJson::textToJson(QByteArray::fromStdString(text));
    case FieldDescriptor::CPPTYPE_MESSAGE:
        return TavJson::messageToJson(isEntry ? reflection.GetRepeatedMessage(message, field, index)
                                              : reflection.GetMessage(message, field));
    default:
        refuseKind(field);
    }
}

/// Sets a field, or appends to a list.
void fieldFromJson(const QJsonValue &json, Message &message, const FieldDescriptor *field)
{
    const Reflection &reflection = *message.GetReflection();
    const auto put = [&](auto add, auto set, auto value) {
        field->is_repeated() ? (reflection.*add)(&message, field, value) : (reflection.*set)(&message, field, value);
    };
    switch (field->cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32:
        return put(&Reflection::AddInt32, &Reflection::SetInt32, TavJson::valueFromJson<qint32>(json));
    case FieldDescriptor::CPPTYPE_UINT32:
        return put(&Reflection::AddUInt32, &Reflection::SetUInt32, TavJson::valueFromJson<quint32>(json));
    case FieldDescriptor::CPPTYPE_INT64:
        return put(&Reflection::AddInt64, &Reflection::SetInt64, TavJson::signedNumber(json));
    case FieldDescriptor::CPPTYPE_UINT64:
        return put(&Reflection::AddUInt64, &Reflection::SetUInt64, TavJson::unsignedNumber(json));
    case FieldDescriptor::CPPTYPE_BOOL:
        return put(&Reflection::AddBool, &Reflection::SetBool, TavJson::flag(json));
    case FieldDescriptor::CPPTYPE_STRING:
        return put(
            &Reflection::AddString, &Reflection::SetString,
            (field->type() == FieldDescriptor::TYPE_BYTES ? TavJson::bytesFromJson(json) : TavJson::textFromJson(json))
                .toStdString());
    case FieldDescriptor::CPPTYPE_MESSAGE:
        return TavJson::messageFromJson(json,
                                        field->is_repeated() ? *reflection.AddMessage(&message, field)
                                                             : *reflection.MutableMessage(&message, field));
    default:
        refuseKind(field);
    }
}
}

QString TavJson::described(const QJsonValue &value)
{
    constexpr int mostLetters = 40;
    switch (value.type()) {
    case QJsonValue::Null:
        return "null";
    case QJsonValue::Bool:
        return value.toBool() ? "true" : "false";
    case QJsonValue::Double:
        return "the number " + value.toVariant().toString();
    case QJsonValue::String:
        return "the text \"" + value.toString().left(mostLetters)
            + (value.toString().size() > mostLetters ? "…\"" : "\"");
    case QJsonValue::Array:
        return "an array";
    case QJsonValue::Object:
        return "an object";
    default:
        return "nothing";
    }
}

QJsonArray TavJson::array(const QJsonValue &json)
{
    if (!json.isArray()) {
        refuse("an array", json);
    }
    return json.toArray();
}

QJsonObject TavJson::object(const QJsonValue &json)
{
    if (!json.isObject()) {
        refuse("an object", json);
    }
    return json.toObject();
}

bool TavJson::flag(const QJsonValue &json)
{
    if (!json.isBool()) {
        refuse("true or false", json);
    }
    return json.toBool();
}

qint64 TavJson::wholeNumber(const QJsonValue &json, qint64 least, qint64 most)
{
    const std::optional<qint64> number = wholeOf(json);
    if (!number || *number < least || *number > most) {
        refuse(qPrintable(QString("a whole number from %1 to %2").arg(least).arg(most)), json);
    }
    return *number;
}

qint64 TavJson::signedNumber(const QJsonValue &json)
{
    return longOf<qlonglong>(json, &QString::toLongLong, "a whole number of 64 bits, as text beyond 2^53");
}

quint64 TavJson::unsignedNumber(const QJsonValue &json)
{
    return longOf<qulonglong>(json, &QString::toULongLong,
                              "a whole number of 64 bits that is not negative, as text beyond 2^53");
}

QJsonValue TavJson::textToJson(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    return text.toUtf8() == bytes ? QJsonValue(text) : QJsonObject{{"bytes", bytesToJson(bytes)}};
}

QByteArray TavJson::textFromJson(const QJsonValue &json)
{
    if (json.isObject()) {
        const QJsonObject members = json.toObject();
        refuseUnknownKeys(members, {"bytes"});
        return at(QLatin1String("bytes"), [&] { return bytesFromJson(members["bytes"]); });
    }
    if (!json.isString()) {
        refuse(R"(a text, or {"bytes": "<Base64>"} for one that is not UTF-8)", json);
    }
    if (!json.toString().isValidUtf16()) {
        throw TavCallError({}, "the text holds half a character, a \\ud800 to \\udfff without its other half");
    }
    return json.toString().toUtf8();
}

QJsonValue TavJson::qStringToJson(const QString &text)
{
    if (!text.startsWith(QChar(QChar::ByteOrderMark))) {
        return text;
    }
    if (!text.isValidUtf16()) {
        throw TavCallError({}, "a text begins with a byte order mark and holds half a character: no JSON tells it");
    }
    return QJsonObject{{"bytes", bytesToJson(text.toUtf8())}};
}

QString TavJson::qStringFromJson(const QJsonValue &json)
{
    if (json.isString()) {
        return json.toString();
    }
    const QByteArray bytes = textFromJson(json);
    QString text = QString::fromUtf8('x' + bytes).mid(1); // a byte order mark is only kept behind another letter
    if (text.toUtf8() != bytes) {
        throw TavCallError(memberPath({}, "bytes"), "the bytes are not UTF-8, and this text is made of characters");
    }
    return text;
}

QJsonValue TavJson::bufferToJson(const char *buffer, int size)
{
    const int length = static_cast<int>(strnlen(buffer, static_cast<std::size_t>(size)));
    const QByteArray bytes(buffer, length);
    return length < size ? textToJson(bytes) : QJsonObject{{"bytes", bytesToJson(bytes)}};
}

void TavJson::bufferFromJson(const QJsonValue &json, char *buffer, int size)
{
    const QByteArray bytes = textFromJson(json);
    if (bytes.contains('\0')) {
        throw TavCallError({}, "the text holds a NUL, where the buffer's text would end");
    }
    // Bytes may fill the buffer to its last, as a buffer without NUL is written.
    const int most = json.isObject() ? size : size - 1;
    if (bytes.size() > most) {
        throw TavCallError({},
                           QString("the text is %1 bytes long, and its buffer takes %2").arg(bytes.size()).arg(most));
    }
    std::memset(buffer, 0, static_cast<std::size_t>(size));
    std::memcpy(buffer, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

QJsonValue TavJson::bytesToJson(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QByteArray TavJson::bytesFromJson(const QJsonValue &json)
{
    const QByteArray text = json.toString().toUtf8();
    QByteArray bytes = QByteArray::fromBase64(text);
    if (!json.isString() || bytes.toBase64() != text) {
        refuse("bytes in Base64, padded with = to a multiple of four", json);
    }
    return bytes;
}

QJsonValue TavJson::enumToJson(const QMetaEnum &keys, int value)
{
    const char *const key = keys.valueToKey(value);
    return key ? QJsonValue(QLatin1String(key)) : QJsonValue(value);
}

int TavJson::enumFromJson(const QMetaEnum &keys, const QJsonValue &json)
{
    if (!json.isString()) {
        const std::optional<qint64> number = wholeOf(json);
        if (!number || *number != static_cast<int>(*number)) {
            refuse(qPrintable(QString("a key of %1 or its number").arg(keys.name())), json);
        }
        return static_cast<int>(*number);
    }
    QStringList known;
    for (int i = 0; i < keys.keyCount(); ++i) {
        known.append(keys.key(i));
        if (known.last() == json.toString()) {
            return keys.value(i);
        }
    }
    throw TavCallError(
        {},
        QString("%1 has no key \"%2\" (%3)").arg(keys.name(), json.toString(), nearestOrAll(json.toString(), known)));
}

QJsonObject TavJson::messageToJson(const Message &message)
{
    const Reflection &reflection = *message.GetReflection();
    if (!reflection.GetUnknownFields(message).empty()) {
        throw TavCallError({},
                           QString("the message %1 holds field %2, which its definition here does not know")
                               .arg(QString::fromStdString(message.GetTypeName()))
                               .arg(reflection.GetUnknownFields(message).field(0).number()));
    }
    std::vector<const FieldDescriptor *> present;
    reflection.ListFields(message, &present);
    QJsonObject json;
    for (const FieldDescriptor *const field : present) {
        if (!field->is_repeated()) {
            json.insert(nameOf(field), fieldToJson(message, field, -1));
            continue;
        }
        QJsonArray entries;
        for (int i = 0; i < reflection.FieldSize(message, field); ++i) {
            entries.append(fieldToJson(message, field, i));
        }
        json.insert(nameOf(field), entries);
    }
    return json;
}

void TavJson::messageFromJson(const QJsonValue &json, Message &message)
{
    const QJsonObject members = object(json);
    const google::protobuf::Descriptor &type = *message.GetDescriptor();
    int found = 0;
    for (int i = 0; i < type.field_count(); ++i) {
        const FieldDescriptor *const field = type.field(i);
        const QLatin1String name(field->name().data(), int(field->name().size()));
        const auto member = members.constFind(name);
        if (member == members.constEnd()) {
            continue;
        }
        ++found;
        at(name, [&] {
            if (!field->is_repeated()) {
                fieldFromJson(*member, message, field);
                return;
            }
            const QJsonArray entries = array(*member);
            for (int entry = 0; entry < entries.size(); ++entry) {
                at(entry, [&] { fieldFromJson(entries[entry], message, field); });
            }
        });
    }
    if (found < members.size()) {
        QStringList names;
        for (int i = 0; i < type.field_count(); ++i) {
            names.append(nameOf(type.field(i)));
        }
        refuseUnknownKeys(members, names);
    }
}

QJsonValue TavJson::pictureToJson(const std::shared_ptr<QImage> &picture)
{
    if (!picture) {
        return QJsonValue::Null;
    }
    QJsonObject json;
    json.insert("width", picture->width());
    json.insert("height", picture->height());
    json.insert("format", enumToJson(QMetaEnum::fromType<QImage::Format>(), picture->format()));
    return json;
}

QJsonValue TavJson::objectToJson(const QObject *object)
{
    return object ? QJsonValue(QLatin1String(object->metaObject()->className())) : QJsonValue::Null;
}

void TavJson::refuseUnknownKeys(const QJsonObject &json, const QStringList &known)
{
    const QStringList keys = json.keys();
    for (const QString &key : keys) {
        if (!known.contains(key)) {
            throw TavCallError(memberPath({}, key), QString("unknown key (%1)").arg(nearestOrAll(key, known)));
        }
    }
}
