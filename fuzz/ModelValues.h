#pragma once

#include <QString>
#include <QVector>

#include <string>
#include <type_traits>
#include <vector>

// What the reference models hold in the place of a record: texts as texts, plain records and messages as their bytes.
// A fuzzer adds overloads for the rows of its pages, which values() finds as these.

inline std::u16string value(const QString &text)
{
    return text.toStdU16String();
}

template<class Message>
auto value(const Message &message) -> decltype(message.SerializePartialAsString())
{
    return message.SerializePartialAsString();
}

template<class Record, std::enable_if_t<std::is_trivially_copyable_v<Record>, int> = 0>
std::string value(const Record &record)
{
    return std::string(reinterpret_cast<const char *>(&record), sizeof(record));
}

/// The values of a list's elements, by the overload of value() for them.
template<class Element>
auto values(const QVector<Element> &list)
{
    std::vector<decltype(value(std::declval<const Element &>()))> values;
    for (const Element &element : list) {
        values.push_back(value(element));
    }
    return values;
}
