#pragma once

#include "TavFields.h"

#include <QStringList>
#include <QVariant>

#include <cstring>

/// The fields of a record at run time, for whoever shows records: their names, kinds and values.
namespace TavFields
{
/// The Field of this member: `fieldOf<&STStateAsr::stateValue>().kind`.
template<auto Member>
constexpr Field<Member> fieldOf()
{
    return std::get<Field<Member>>(Table<typename Field<Member>::Record>::list);
}

/**
 * @brief The value that a field has in @p record.
 *
 * A text, from a buffer up to its NUL, is a QString in which bytes that are not UTF-8 are replaced; a list of texts a
 * QStringList, bytes a QByteArray, an enumeration and every number a number, a flag that is a bool a bool.
 */
template<auto Member>
QVariant valueOf(const Field<Member> &, const typename Field<Member>::Record &record)
{
    using Type = typename Field<Member>::Type;
    if constexpr (std::is_array_v<Type>) {
        return QString::fromUtf8(record.*Member, static_cast<int>(strnlen(record.*Member, sizeof(Type))));
    } else {
        const Type value = record.*Member; // a copy: packed records misalign their fields
        if constexpr (std::is_same_v<Type, std::string>) {
            return QByteArray::fromStdString(value);
        } else if constexpr (std::is_same_v<Type, QVector<QString>>) {
            return QStringList(value.begin(), value.end());
        } else if constexpr (std::is_enum_v<Type>) {
            return static_cast<int>(value);
        } else {
            return value;
        }
    }
}

/// @brief A field of @p Record whose member is only known at run time.
template<class Record>
struct AnyField {
    QString name; ///< the member's name
    Kind kind; ///< how it is shown
    int bufferSize; ///< bytes of a text buffer, the terminating NUL included; 0 for all other fields
    QVariant (*value)(const Record &record); ///< as valueOf() gives it
};

/// All fields of @p Record, in their order.
template<class Record>
QVector<AnyField<Record>> fieldsOf()
{
    QVector<AnyField<Record>> fields;
    forEachField<Record>([&fields](const auto &field) {
        using Field = std::decay_t<decltype(field)>;
        fields.append({QString::fromUtf8(field.name.data(), static_cast<int>(field.name.size())), field.kind,
                       Field::bufferSize, [](const Record &record) { return valueOf(Field(), record); }});
    });
    return fields;
}
}
