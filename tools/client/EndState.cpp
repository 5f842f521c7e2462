#include "EndState.h"

#include "TavCall.h"
#include "TavPluginHost.h"
#include "TavSetValue.h"

#include <algorithm>

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
    const auto visitCall = [&](const QString &manager, const QString &getter, const QJsonArray &arguments) {
        QObject *const object = host.managerObject(manager.toUtf8().constData());
        visit(manager, getter, arguments, TavCall::call(object, manager, getter, arguments));
    };
    const QString objectGetter = "getObject"; // returns nothing that a call sets
    for (const TavCall::Operation &operation : TavCall::operations()) {
        const bool isDetermined
            = !operation.isIndeterminateAtFirst || m_set.contains(operation.manager + operation.name);
        if (operation.name.startsWith("get") && operation.name != objectGetter && operation.arguments.isEmpty()
            && isDetermined) {
            visitCall(operation.manager, operation.name, {});
        }
    }
    for (const KeyedCall &call : m_keyed) {
        visitCall(call.manager, call.getter, call.key);
    }
}
