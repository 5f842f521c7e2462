#pragma once

#include "TavJson.h"

#include <google/protobuf/util/message_differencer.h>

#include <limits>
#include <string>

/**
 * @brief Values of every type that operations take, at the limits of their types: make() one for each seed, compare two
 * of them with areEqual(), neither by way of JSON.
 */
namespace ExtremeValue
{
constexpr int seedCount = 12; ///< as many seeds give different values

template<class Number>
Number number(int seed)
{
    using Limits = std::numeric_limits<Number>;
    constexpr qint64 beyondDouble = (Q_INT64_C(1) << 53) + 1;
    const Number values[] = {0,
                             Limits::max(),
                             Limits::min(),
                             static_cast<Number>(-1),
                             std::numeric_limits<qint32>::max(),
                             static_cast<Number>(beyondDouble),
                             1};
    return values[seed % (sizeof(values) / sizeof(*values))];
}

/// At most @p most bytes, of which none is NUL.
inline QByteArray bytes(int seed, int most)
{
    const QByteArray values[] = {"",
                                 QByteArray(most, 'x'),
                                 "中文 «текст» 🛡",
                                 "\xff\xfe not UTF-8 \xc3",
                                 "quotes \" \\ / <b> & \n\t\x01",
                                 "\xef\xbb\xbf with a byte order mark",
                                 "\xed\xa0\x80 half a character"};
    return values[seed % (sizeof(values) / sizeof(*values))].left(most);
}

inline QString text(int seed)
{
    const QString values[] = {QString(),
                              QString(5000, QChar(0x4e2d)),
                              "中文 «текст» 🛡",
                              QString(QChar(0xd83d)),
                              QString("a NUL ") + QChar(0) + " inside",
                              QString(QChar(0xfeff)) + " with a byte order mark",
                              "quotes \" \\ / <b> & \n\t\x01"};
    return values[seed % (sizeof(values) / sizeof(*values))];
}

/// Sets most fields, lists with up to two entries; which ones are left out depends on the seed.
inline void fill(google::protobuf::Message &message, int seed)
{
    using Field = google::protobuf::FieldDescriptor;
    const google::protobuf::Reflection &reflection = *message.GetReflection();
    for (int i = 0; i < message.GetDescriptor()->field_count(); ++i) {
        const Field *const field = message.GetDescriptor()->field(i);
        const int own = seed + i;
        const int entries = field->is_repeated() ? own % 3 : own % 4 != 3;
        for (int entry = 0; entry < entries; ++entry) {
            const auto put = [&](auto add, auto set, auto value) {
                field->is_repeated() ? (reflection.*add)(&message, field, value)
                                     : (reflection.*set)(&message, field, value);
            };
            using Reflection = google::protobuf::Reflection;
            switch (field->cpp_type()) {
            case Field::CPPTYPE_INT32:
                put(&Reflection::AddInt32, &Reflection::SetInt32, number<qint32>(own + entry));
                break;
            case Field::CPPTYPE_UINT32:
                put(&Reflection::AddUInt32, &Reflection::SetUInt32, number<quint32>(own + entry));
                break;
            case Field::CPPTYPE_INT64:
                put(&Reflection::AddInt64, &Reflection::SetInt64, number<qint64>(own + entry));
                break;
            case Field::CPPTYPE_UINT64:
                put(&Reflection::AddUInt64, &Reflection::SetUInt64, number<quint64>(own + entry));
                break;
            case Field::CPPTYPE_BOOL:
                put(&Reflection::AddBool, &Reflection::SetBool, own % 2 == 0);
                break;
            case Field::CPPTYPE_STRING:
                put(&Reflection::AddString, &Reflection::SetString, bytes(own + entry, 9000).toStdString());
                break;
            case Field::CPPTYPE_MESSAGE:
                fill(field->is_repeated() ? *reflection.AddMessage(&message, field)
                                          : *reflection.MutableMessage(&message, field),
                     own + entry);
                break;
            default:
                qFatal("no extreme value for %s", field->full_name().c_str());
            }
        }
    }
}

template<class Type>
Type make(int seed)
{
    Type value{};
    if constexpr (std::is_same_v<Type, bool>) {
        value = seed % 2 == 0;
    } else if constexpr (std::is_enum_v<Type>) {
        value = static_cast<Type>(seed % 4 == 3 ? -1 : seed % 4);
    } else if constexpr (std::is_integral_v<Type>) {
        value = number<Type>(seed);
    } else if constexpr (std::is_same_v<Type, QString>) {
        value = text(seed);
    } else if constexpr (std::is_same_v<Type, std::string>) {
        value = (bytes(seed, 9000) + QByteArray(seed, '\0')).toStdString();
    } else if constexpr (TavJson::isMessage<Type>) {
        fill(value, seed);
    } else if constexpr (TavJson::isList<Type>) {
        for (int i = 0; i < seed % 4; ++i) {
            value.append(make<typename Type::value_type>(seed + i));
        }
    } else {
        int own = seed;
        TavFields::forEachField<Type>([&](const auto &field) {
            using Field = std::decay_t<decltype(field)>;
            if constexpr (Field::bufferSize > 0) {
                const bool isFull = own % 11 == 10; // to the last byte, without NUL
                const QByteArray content
                    = isFull ? QByteArray(Field::bufferSize, 'y') : bytes(own, Field::bufferSize - 1);
                std::memcpy(value.*Field::member, content.constData(), std::size_t(content.size()));
            } else {
                value.*Field::member = make<typename Field::Type>(own);
            }
            ++own;
        });
    }
    return value;
}

template<class Type>
bool areEqual(const Type &a, const Type &b)
{
    if constexpr (TavJson::isMessage<Type>) {
        return google::protobuf::util::MessageDifferencer::Equals(a, b);
    } else if constexpr (TavJson::isList<Type>) {
        bool equal = a.size() == b.size();
        for (int i = 0; equal && i < a.size(); ++i) {
            equal = areEqual(a[i], b[i]);
        }
        return equal;
    } else if constexpr (std::is_class_v<
                             Type> && !std::is_same_v<Type, QString> && !std::is_same_v<Type, std::string>) {
        bool equal = true;
        TavFields::forEachField<Type>([&](const auto &field) {
            using Field = std::decay_t<decltype(field)>;
            if constexpr (Field::bufferSize > 0) {
                equal = equal && std::memcmp(a.*Field::member, b.*Field::member, Field::bufferSize) == 0;
            } else {
                const typename Field::Type ofA = a.*Field::member;
                const typename Field::Type ofB = b.*Field::member;
                equal = equal && areEqual(ofA, ofB);
            }
        });
        return equal;
    } else {
        return a == b;
    }
}
}
