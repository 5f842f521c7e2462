#include "RecordType.h"

#include "TavJson.h"
#include "TavOperations.h"
#include "TavTypeName.h"

#include <QHash>

namespace
{
template<class Type, class = void>
constexpr bool isRecord = false;
template<class Type>
constexpr bool isRecord<Type, std::void_t<decltype(TavFields::Table<Type>::list)>> = true;

template<class Record>
RecordType typeOf()
{
    RecordType type{{}, [](const QJsonValue &record) { static_cast<void>(TavJson::recordFromJson<Record>(record)); }};
    const QJsonObject initial = TavJson::recordToJson(Record{});
    TavFields::forEachField<Record>([&](const auto &field) {
        const QString name = QString::fromUtf8(field.name.data(), static_cast<int>(field.name.size()));
        type.fields.append({name, field.kind, std::decay_t<decltype(field)>::bufferSize, initial[name]});
    });
    return type;
}

template<class... Arguments>
void addRecords(QHash<QString, RecordType> &types, const std::tuple<Arguments...> *)
{
    const auto add = [&types](auto tag) {
        using Type = typename decltype(tag)::type;
        if constexpr (isRecord<Type>) {
            types.insert(tavTypeName(typeid(Type)), typeOf<Type>());
        }
    };
    TavTypeList<Arguments...>::forEach(add);
}
}

const RecordType *recordTypeOf(const QString &name)
{
    static const QHash<QString, RecordType> all = [] {
        QHash<QString, RecordType> types;
        TavOperations::forEachOperation([&types](const auto &operation) {
            using Operation = std::decay_t<decltype(operation)>;
            addRecords(types, static_cast<const typename Operation::Values *>(nullptr));
        });
        return types;
    }();
    const auto found = all.constFind(name);
    return found == all.constEnd() ? nullptr : &*found;
}
