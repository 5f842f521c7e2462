#include "PageSections.h"

namespace
{
using google::protobuf::FieldDescriptor;
using google::protobuf::Message;

/// The text of a field of plain type; @p index tells the entry of a list and is -1 for a single field.
QString fieldText(const Message &message, const FieldDescriptor *field, int index)
{
    const auto &reflection = *message.GetReflection();
    const bool isList = index >= 0;
    switch (field->cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32:
        return QString::number(isList ? reflection.GetRepeatedInt32(message, field, index)
                                      : reflection.GetInt32(message, field));
    case FieldDescriptor::CPPTYPE_INT64: // in our messages always seconds since the epoch
        return CellText::timeText(isList ? reflection.GetRepeatedInt64(message, field, index)
                                         : reflection.GetInt64(message, field));
    case FieldDescriptor::CPPTYPE_UINT32:
        return QString::number(isList ? reflection.GetRepeatedUInt32(message, field, index)
                                      : reflection.GetUInt32(message, field));
    case FieldDescriptor::CPPTYPE_UINT64:
        return QString::number(isList ? reflection.GetRepeatedUInt64(message, field, index)
                                      : reflection.GetUInt64(message, field));
    case FieldDescriptor::CPPTYPE_BOOL:
        return (isList ? reflection.GetRepeatedBool(message, field, index) : reflection.GetBool(message, field)) ? "yes"
                                                                                                                 : "no";
    case FieldDescriptor::CPPTYPE_STRING:
        return QString::fromStdString(isList ? reflection.GetRepeatedString(message, field, index)
                                             : reflection.GetString(message, field));
    default:
        return QString::fromStdString(isList ? reflection.GetRepeatedMessage(message, field, index).ShortDebugString()
                                             : reflection.GetMessage(message, field).ShortDebugString());
    }
}

/// The text of a field, a list's entries joined; empty when it is absent.
QString cellText(const Message &message, const FieldDescriptor *field)
{
    if (!field->is_repeated()) {
        return message.GetReflection()->HasField(message, field) ? fieldText(message, field, -1) : QString();
    }
    QStringList texts;
    for (int i = 0; i < message.GetReflection()->FieldSize(message, field); ++i) {
        texts.append(fieldText(message, field, i));
    }
    return texts.join(", ");
}

QString titleOf(const FieldDescriptor *field)
{
    return QString::fromStdString(field->name()).replace('_', ' ');
}

bool isNumber(const FieldDescriptor *field)
{
    return !field->is_repeated() && field->cpp_type() <= FieldDescriptor::CPPTYPE_UINT64;
}

/// A table of the messages in the list @p field. Columns that no entry fills are left out.
PageSection listSection(const QString &title, const Message &message, const FieldDescriptor *field)
{
    const auto &reflection = *message.GetReflection();
    const int size = reflection.FieldSize(message, field);
    PageSection section{title, {}, QVector<QStringList>(size)};
    for (int f = 0; f < field->message_type()->field_count(); ++f) {
        const FieldDescriptor *const column = field->message_type()->field(f);
        QStringList cells;
        for (int i = 0; i < size; ++i) {
            cells.append(cellText(reflection.GetRepeatedMessage(message, field, i), column));
        }
        if (!cells.join(QString()).isEmpty()) {
            section.columns.append({titleOf(column), isNumber(column) ? CellKind::Number : CellKind::Text, 40});
            for (int i = 0; i < size; ++i) {
                section.rows[i].append(cells[i]);
            }
        }
    }
    return section;
}
}

PageSection factsOf(const QString &title, const QVector<QPair<QString, QString>> &facts)
{
    PageSection section{title, {{"name"}, {"value", CellKind::Text, 90}}, {}, false};
    for (const auto &[name, value] : facts) {
        section.rows.append({name, value});
    }
    return section;
}

QVector<PageSection> messageSections(const QString &title, const Message &message)
{
    QVector<QPair<QString, QString>> facts;
    QVector<PageSection> lists;
    for (int f = 0; f < message.GetDescriptor()->field_count(); ++f) {
        const FieldDescriptor *const field = message.GetDescriptor()->field(f);
        if (field->is_repeated() && field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
            lists.append(listSection(title + ": " + titleOf(field), message, field));
        } else if (const QString text = cellText(message, field); !text.isEmpty()) {
            facts.append({titleOf(field), text});
        }
    }
    QVector<PageSection> sections;
    if (!facts.isEmpty() || lists.isEmpty()) {
        sections.append(factsOf(title, facts));
    }
    return sections + lists;
}

PageSection rowsSection(const QString &title, const QVector<STProtoDataContainer> &rows)
{
    return tableOf<>(
        title, rows,
        {column<&STProtoDataContainer::isChecked>(""),
         column<&STProtoDataContainer::index>("index"),
         {"payload bytes", [](const auto &row) { return QString::number(row.protoData.size()); }, CellKind::Number}});
}
