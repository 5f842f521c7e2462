#pragma once

#include "TavFieldValues.h"
#include "TavJson.h"
#include "TavTypeName.h"
#include "ValueTable.h"

#include <cstring>
#include <functional>
#include <string>

/// @brief A record, or a list of records, by the descriptions of its fields.
template<class Record>
class RecordTable : public ValueTable
{
public:
    explicit RecordTable(const Record &record) : ValueTable(columnsOf(), false), m_rows{record}
    {
    }

    explicit RecordTable(const QVector<Record> &rows) : ValueTable(columnsOf(), true), m_rows(rows)
    {
    }

    int rowCount() const override
    {
        return m_rows.size();
    }

    QVariant cell(int row, int column) const override
    {
        return fields()[column].value(m_rows[row]);
    }

    quint64 fingerprint(int row) const override
    {
        std::string bytes;
        TavFields::forEachField<Record>([&](const auto &field) {
            using Field = std::decay_t<decltype(field)>;
            if constexpr (Field::bufferSize > 0) {
                const char *const buffer = m_rows[row].*Field::member;
                append(bytes, buffer, strnlen(buffer, Field::bufferSize));
            } else {
                const typename Field::Type value = m_rows[row].*Field::member; // a copy: packed records misalign it
                append(bytes, value);
            }
        });
        return std::hash<std::string>()(bytes);
    }

    QJsonObject argument(int row) const override
    {
        return TavJson::recordToJson(m_rows[row]);
    }

    bool sharesRowsWith(const ValueTable &other) const override
    {
        const auto *const same = dynamic_cast<const RecordTable *>(&other);
        return same && same->m_rows.constData() == m_rows.constData();
    }

private:
    static const QVector<TavFields::AnyField<Record>> &fields()
    {
        static const QVector<TavFields::AnyField<Record>> all = TavFields::fieldsOf<Record>();
        return all;
    }

    static const QVector<ValueColumn> &columnsOf()
    {
        static const QVector<ValueColumn> all = [] {
            QVector<ValueColumn> columns;
            for (const auto &field : fields()) {
                columns.append(ValueColumn::of(tavTypeName(typeid(Record)), field.name, field.kind));
            }
            return columns;
        }();
        return all;
    }

    /// Behind its length, so that the end of one text is not taken for the beginning of the next.
    static void append(std::string &bytes, const char *data, std::size_t size)
    {
        bytes.append(reinterpret_cast<const char *>(&size), sizeof size).append(data, size);
    }

    template<class Value>
    static void append(std::string &bytes, const Value &value)
    {
        if constexpr (std::is_same_v<Value, QString>) {
            append(bytes, reinterpret_cast<const char *>(value.constData()), sizeof(QChar) * std::size_t(value.size()));
        } else if constexpr (std::is_same_v<Value, std::string>) {
            append(bytes, value.data(), value.size());
        } else if constexpr (TavJson::isList<Value>) {
            append(bytes, value.size());
            for (const auto &element : value) {
                append(bytes, element);
            }
        } else {
            bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
        }
    }

    const QVector<Record> m_rows;
};
