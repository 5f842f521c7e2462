#pragma once

#include "TavFields.h"

#include <QString>
#include <QVector>

#include <google/protobuf/message.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <type_traits>

/**
 * @brief Values of every type that the managers hold, made and told apart without knowing their fields.
 *
 * fill() overwrites the whole of a value in place, lists included; two seeds give values that differ throughout.
 * content() is equal for two values exactly when the values are, and readable for the rows of the pages' lists.
 */
namespace SampleValue
{
template<class T>
constexpr bool isMessage = std::is_base_of_v<google::protobuf::Message, T>;

inline QString text(int seed)
{
    return QStringLiteral("text %1").arg(seed);
}

/// Sets every field of @p message, each repeated one to two entries.
inline void fillMessage(google::protobuf::Message &message, int seed)
{
    using Field = google::protobuf::FieldDescriptor;
    const google::protobuf::Reflection &reflection = *message.GetReflection();
    message.Clear();
    for (int i = 0; i < message.GetDescriptor()->field_count(); ++i) {
        const Field *const field = message.GetDescriptor()->field(i);
        const int value = 100 * seed + field->number();
        if (field->is_repeated()) {
            for (int entry : {value, value + 1}) {
                switch (field->cpp_type()) {
                case Field::CPPTYPE_UINT32:
                    reflection.AddUInt32(&message, field, entry);
                    break;
                case Field::CPPTYPE_STRING:
                    reflection.AddString(&message, field, std::to_string(entry));
                    break;
                case Field::CPPTYPE_MESSAGE:
                    fillMessage(*reflection.AddMessage(&message, field), entry);
                    break;
                default:
                    ADD_FAILURE() << "no sample for a list of " << field->cpp_type_name();
                }
            }
            continue;
        }
        switch (field->cpp_type()) {
        case Field::CPPTYPE_INT32:
            reflection.SetInt32(&message, field, value);
            break;
        case Field::CPPTYPE_INT64:
            reflection.SetInt64(&message, field, value);
            break;
        case Field::CPPTYPE_UINT32:
            reflection.SetUInt32(&message, field, value);
            break;
        case Field::CPPTYPE_UINT64:
            reflection.SetUInt64(&message, field, value);
            break;
        case Field::CPPTYPE_BOOL:
            reflection.SetBool(&message, field, seed % 2 != 0);
            break;
        case Field::CPPTYPE_STRING:
            reflection.SetString(&message, field, std::to_string(value));
            break;
        case Field::CPPTYPE_MESSAGE:
            fillMessage(*reflection.MutableMessage(&message, field), value);
            break;
        default:
            ADD_FAILURE() << "no sample for " << field->cpp_type_name();
        }
    }
}

inline void fill(bool &flag, int seed)
{
    flag = seed % 2 != 0;
}

inline void fill(QString &value, int seed)
{
    value = text(seed);
}

inline void fill(std::string &bytes, int seed)
{
    bytes = std::string(40, '\0') + std::to_string(seed);
}

template<class T>
void fill(QVector<T> &list, int seed);

/// Messages, records, numbers and enumerations.
template<class T>
void fill(T &value, int seed)
{
    if constexpr (isMessage<T>) {
        fillMessage(value, seed);
    } else if constexpr (std::is_integral_v<T>) {
        value = seed;
    } else if constexpr (std::is_trivially_copyable_v<T>) {
        std::array<char, sizeof(T)> bytes;
        int next = 37 * seed;
        for (char &byte : bytes) {
            byte = static_cast<char>(next++);
        }
        std::memcpy(&value, bytes.data(), sizeof(T));
    } else {
        int own = seed;
        TavFields::forEachField<T>([&](const auto &field) {
            typename std::decay_t<decltype(field)>::Type content{};
            fill(content, own);
            value.*field.member = content;
            own += 1001; // odd, so that of two flags one is set
        });
    }
}

template<class T>
void fill(QVector<T> &list, int seed)
{
    list.resize(2 + seed % 3);
    for (T &element : list) {
        fill(element, seed++);
    }
}

template<class T>
T sample(int seed)
{
    T value{};
    fill(value, seed);
    return value;
}

inline std::string content(bool flag)
{
    return flag ? "[x] " : "[ ] ";
}

inline std::string content(const std::string &bytes)
{
    return std::to_string(bytes.size()) + ":\"" + bytes + "\" ";
}

inline std::string content(const QString &text)
{
    return content(text.toStdString());
}

template<class T>
std::string content(const QVector<T> &list);

/// Messages, records, numbers and enumerations.
template<class T>
std::string content(const T &value)
{
    if constexpr (isMessage<T>) {
        return value.SerializeAsString();
    } else if constexpr (std::is_integral_v<T>) {
        return std::to_string(value) + ' ';
    } else if constexpr (std::is_trivially_copyable_v<T>) {
        return std::string(reinterpret_cast<const char *>(&value), sizeof(T));
    } else {
        std::string all;
        TavFields::forEachField<T>([&](const auto &field) {
            const auto copy = value.*field.member; // packed records misalign their fields
            all += content(copy);
        });
        return all;
    }
}

template<class T>
std::string content(const QVector<T> &list)
{
    std::string all = std::to_string(list.size()) + " { ";
    for (const T &element : list) {
        all += content(element) + "| ";
    }
    return all + "} ";
}
}
