#pragma once

/// @file
/// The fields of rows that are packed to one byte: STAccessSetUIData, STObjectAddUIData, STPriAddUIData,
/// STSystemProUIData. They stand misaligned, so that no reference to one may be made, not even for the moment of a
/// copy, and no compiler says so. These functions make none. They may be called on any thread.

#include <QTypeInfo>

#include <cstring>
#include <type_traits>

/// A copy of a row's field: `tavField(row, &STPriAddUIData::userName)`.
template<class Row, class Field>
[[nodiscard]] Field tavField(const Row &row, Field Row::*field)
{
    static_assert(!QTypeInfo<Field>::isStatic, "its bytes are taken to where they stand aligned");
    union Aligned {
        Aligned()
        {
        }
        ~Aligned() // ends nothing: what the bytes refer to is the row's
        {
        }
        Field field;
    } aligned;
    std::memcpy(static_cast<void *>(&aligned.field), static_cast<const void *>(&(row.*field)), sizeof(Field));
    return aligned.field;
}

/// Sets a row's field: `tavSetField(row, &STPriAddUIData::userName, name)`.
template<class Row, class Field>
void tavSetField(Row &row, Field Row::*field, std::common_type_t<Field> value)
{
    static_assert(!QTypeInfo<Field>::isStatic, "its bytes are exchanged with those of an aligned one");
    void *const place = &(row.*field);
    char before[sizeof(Field)];
    std::memcpy(before, place, sizeof(Field));
    std::memcpy(place, &value, sizeof(Field));
    std::memcpy(static_cast<void *>(&value), before, sizeof(Field)); // what the field held ends with the argument
}
