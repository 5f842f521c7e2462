#include "EndState.h"

#include "TavCall.h"
#include "TavPluginHost.h"
#include "TavSetValue.h"

#include <QJsonObject>

#include <google/protobuf/descriptor.h>

#include <algorithm>

namespace
{
/// @p message with the lists that it holds no element of: its own form leaves them out, and nobody would compare them.
QJsonObject withEmptyLists(QJsonObject message, const google::protobuf::Descriptor &type)
{
    for (int i = 0; i < type.field_count(); ++i) {
        const google::protobuf::FieldDescriptor &field = *type.field(i);
        const QString name = QString::fromStdString(field.name());
        const auto completed = [&field](const QJsonValue &value) {
            return field.message_type() ? withEmptyLists(value.toObject(), *field.message_type()) : value;
        };
        if (field.is_repeated()) {
            QJsonArray elements;
            const QJsonArray held = message[name].toArray();
            for (const QJsonValue &element : held) {
                elements.append(completed(element));
            }
            message.insert(name, elements);
        } else if (message.contains(name)) {
            message.insert(name, completed(message[name]));
        }
    }
    return message;
}

/// What a call has returned, @p result by its type, with every list in it.
QJsonValue withEmptyLists(const QJsonValue &returned, QString result)
{
    const google::protobuf::Descriptor *const message
        = google::protobuf::DescriptorPool::generated_pool()->FindMessageTypeByName(
            result.replace("::", ".").toStdString());
    return message ? withEmptyLists(returned.toObject(), *message) : returned;
}
}

void EndState::note(const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    const TavCall::SetValue value = TavCall::setValueOf(manager, operation, arguments);
    if (value.key.isEmpty()) {
        m_set.insert(manager + value.getter);
        return;
    }
    const bool isKnown = std::any_of(m_keyed.cbegin(), m_keyed.cend(), [&](const KeyedCall &call) {
        return call.manager == manager && call.getter == value.getter && call.key == value.key;
    });
    if (!isKnown) {
        m_keyed.append({manager, value.getter, value.key});
    }
}

void EndState::read(TavPluginHost &host, const Visitor &visit) const
{
    const auto returned = [&host](const QString &manager, const QString &getter, const QJsonArray &arguments) {
        return TavCall::call(host.managerObject(manager.toUtf8().constData()), manager, getter, arguments);
    };
    const QString objectGetter = "getObject"; // returns nothing that a call sets
    for (const TavCall::Operation &operation : TavCall::operations()) {
        const bool isDetermined
            = !operation.isIndeterminateAtFirst || m_set.contains(operation.manager + operation.name);
        if (operation.name.startsWith("get") && operation.name != objectGetter && operation.arguments.isEmpty()
            && isDetermined) {
            visit(operation.manager, operation.name, {},
                  withEmptyLists(returned(operation.manager, operation.name, {}), operation.result));
        }
    }
    for (const KeyedCall &call : m_keyed) { // none of them returns a message
        visit(call.manager, call.getter, call.key, returned(call.manager, call.getter, call.key));
    }
}
