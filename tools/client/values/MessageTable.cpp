#include "MessageTable.h"

#include "TavJson.h"

#include <functional>

namespace
{
using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using TavFields::Kind;

/// What a field means follows from its type and from how the messages name their fields.
Kind kindOf(const FieldDescriptor *field)
{
    const QString name = QString::fromStdString(field->name());
    if (field->is_repeated()) {
        return Kind::Texts;
    }
    switch (field->cpp_type()) {
    case FieldDescriptor::CPPTYPE_BOOL:
        return Kind::Flag;
    case FieldDescriptor::CPPTYPE_INT64: // in our messages always seconds since the epoch
        return Kind::Time;
    case FieldDescriptor::CPPTYPE_UINT64:
        return name == "size" || name.endsWith("bytes") ? Kind::Size : Kind::Number;
    case FieldDescriptor::CPPTYPE_STRING:
        return name.endsWith("digest") || name.endsWith("hash") ? Kind::Digest : Kind::Text;
    case FieldDescriptor::CPPTYPE_MESSAGE:
        return Kind::Text;
    default:
        return name == "progress" ? Kind::Percent : Kind::Number;
    }
}

bool isMessageList(const FieldDescriptor *field)
{
    return field->is_repeated() && field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
}

/// What @p take makes of the value of a field; @p index tells the entry of a list and is -1 for a single field.
template<class Take>
auto valueOf(const Message &message, const FieldDescriptor *field, int index, Take take)
{
    const auto &reflection = *message.GetReflection();
    const bool isEntry = index >= 0;
    switch (field->cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32:
        return take(isEntry ? reflection.GetRepeatedInt32(message, field, index) : reflection.GetInt32(message, field));
    case FieldDescriptor::CPPTYPE_INT64:
        return take(
            qint64(isEntry ? reflection.GetRepeatedInt64(message, field, index) : reflection.GetInt64(message, field)));
    case FieldDescriptor::CPPTYPE_UINT32:
        return take(isEntry ? reflection.GetRepeatedUInt32(message, field, index)
                            : reflection.GetUInt32(message, field));
    case FieldDescriptor::CPPTYPE_UINT64:
        return take(quint64(isEntry ? reflection.GetRepeatedUInt64(message, field, index)
                                    : reflection.GetUInt64(message, field)));
    case FieldDescriptor::CPPTYPE_BOOL:
        return take(isEntry ? reflection.GetRepeatedBool(message, field, index) : reflection.GetBool(message, field));
    case FieldDescriptor::CPPTYPE_STRING: {
        std::string scratch;
        return take(isEntry ? reflection.GetRepeatedStringReference(message, field, index, &scratch)
                            : reflection.GetStringReference(message, field, &scratch));
    }
    default:
        return take(
            (isEntry ? reflection.GetRepeatedMessage(message, field, index) : reflection.GetMessage(message, field))
                .ShortDebugString());
    }
}

QVariant variantOf(const Message &message, const FieldDescriptor *field, int index)
{
    return valueOf(message, field, index, [](const auto &value) -> QVariant {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string>) {
            return QString::fromStdString(value);
        } else {
            return value;
        }
    });
}

template<class Number>
void append(std::string &bytes, Number number)
{
    bytes.append(reinterpret_cast<const char *>(&number), sizeof number);
}

void appendValue(std::string &bytes, const Message &message, const FieldDescriptor *field, int index)
{
    valueOf(message, field, index, [&bytes](const auto &value) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string>) {
            append(bytes, value.size()); // so that its end is not taken for the beginning of the next
            bytes.append(value);
        } else {
            append(bytes, value);
        }
    });
}

template<class Path>
ValueColumn columnOf(const Path &path)
{
    QStringList names;
    for (const FieldDescriptor *const field : path) {
        names.append(QString::fromStdString(field->name()));
    }
    const FieldDescriptor *const last = path.back();
    ValueColumn column
        = ValueColumn::of(QString::fromStdString(last->containing_type()->full_name()), names.last(), kindOf(last));
    column.name = names.join('.');
    return column;
}

template<class Paths>
QVector<ValueColumn> columnsOf(const Paths &paths)
{
    QVector<ValueColumn> columns;
    for (const auto &path : paths) {
        columns.append(columnOf(path));
    }
    return columns;
}
}

MessageTable::MessageTable(const std::shared_ptr<const Message> &whole, const Field *list)
    : MessageTable(whole, list, pathsIn(list ? list->message_type() : whole->GetDescriptor()))
{
}

MessageTable::MessageTable(std::shared_ptr<const Message> whole, const Field *list, const std::vector<Path> &paths)
    : ValueTable(columnsOf(paths), list), m_whole(std::move(whole)), m_paths(paths)
{
    if (!list) {
        m_rows = {m_whole.get()};
        return;
    }
    const int size = m_whole->GetReflection()->FieldSize(*m_whole, list);
    m_rows.reserve(std::size_t(size));
    for (int i = 0; i < size; ++i) {
        m_rows.push_back(&m_whole->GetReflection()->GetRepeatedMessage(*m_whole, list, i));
    }
}

std::vector<const MessageTable::Field *> MessageTable::listsIn(const Message &message)
{
    std::vector<const Field *> lists;
    for (int f = 0; f < message.GetDescriptor()->field_count(); ++f) {
        if (isMessageList(message.GetDescriptor()->field(f))) {
            lists.push_back(message.GetDescriptor()->field(f));
        }
    }
    return lists;
}

std::vector<MessageTable::Path> MessageTable::pathsIn(const Descriptor *type)
{
    std::vector<Path> paths;
    for (int f = 0; f < type->field_count(); ++f) {
        const Field *const field = type->field(f);
        if (isMessageList(field)) {
            continue; // a table of its own
        }
        if (field->cpp_type() != Field::CPPTYPE_MESSAGE) {
            paths.push_back({field});
            continue;
        }
        for (const Path &below : pathsIn(field->message_type())) {
            paths.push_back({field});
            paths.back().insert(paths.back().end(), below.begin(), below.end());
        }
    }
    return paths;
}

int MessageTable::rowCount() const
{
    return static_cast<int>(m_rows.size());
}

const MessageTable::Message &MessageTable::holderOf(const Path &path, int row) const
{
    const Message *message = m_rows[std::size_t(row)];
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        message = &message->GetReflection()->GetMessage(*message, path[i]);
    }
    return *message;
}

QVariant MessageTable::cell(int row, int column) const
{
    const Path &path = m_paths[std::size_t(column)];
    const Message &message = holderOf(path, row);
    const Field *const field = path.back();
    if (!field->is_repeated()) {
        return message.GetReflection()->HasField(message, field) ? variantOf(message, field, -1) : QVariant();
    }
    QVariantList entries;
    for (int i = 0; i < message.GetReflection()->FieldSize(message, field); ++i) {
        entries.append(variantOf(message, field, i));
    }
    return entries;
}

quint64 MessageTable::fingerprint(int row) const
{
    // Not of the serialised row: protobuf complains on standard error of each text in it that is not UTF-8.
    std::string bytes;
    for (const Path &path : m_paths) {
        const Message &message = holderOf(path, row);
        const Field *const field = path.back();
        const auto &reflection = *message.GetReflection();
        if (field->is_repeated()) {
            const int size = reflection.FieldSize(message, field);
            append(bytes, size);
            for (int i = 0; i < size; ++i) {
                appendValue(bytes, message, field, i);
            }
            continue;
        }
        const bool isThere = reflection.HasField(message, field);
        append(bytes, isThere);
        if (isThere) {
            appendValue(bytes, message, field, -1);
        }
    }
    return std::hash<std::string>()(bytes);
}

QJsonObject MessageTable::argument(int row) const
{
    return TavJson::messageToJson(*m_rows[std::size_t(row)]);
}

bool MessageTable::sharesRowsWith(const ValueTable &) const
{
    return false; // messages are copied, never shared
}
