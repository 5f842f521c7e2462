// Prints the page "What each manager holds" of the API reference, made from the tables and from a freshly loaded
// plugin.

#include "TavFields.h"
#include "TavJson.h"
#include "TavObjectMgr.h"
#include "TavOperations.h"
#include "TavPluginHost.h"
#include "TavTypeName.h"

#include <QJsonDocument>
#include <QTextStream>

namespace
{
QTextStream &out()
{
    static QTextStream stream(stdout);
    stream.setCodec("UTF-8");
    return stream;
}

QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), static_cast<int>(view.size()));
}

QString code(const QString &text)
{
    return '`' + text + '`';
}

template<class Getter>
QString initialValue(const Getter &getter)
{
    if (getter.isIndeterminateAtFirst) {
        return "indeterminate";
    }
    auto *const manager = tavObject<typename Getter::Interface>();
    const typename Getter::Result value = (manager->*Getter::member)();
    const QJsonArray json{TavJson::toJson(value)};
    return code(QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact)).chopped(1).mid(1));
}

/// The operation that overwrites a row of the list that @p getter returns, and how it finds the row; empty for none.
template<class Interface>
QString rowEdit(std::string_view getter)
{
    QString edit;
    TavOperations::forEachOperation<Interface>([&](const auto &operation) {
        if (operation.editedList == getter) {
            edit = code(text(operation.name)) + " by " + text(operation.foundBy);
        }
    });
    return edit;
}

template<class Interface>
void printManager()
{
    const QString name = qobject_interface_iid<Interface *>();
    bool holdsAny = false;
    TavOperations::forEachPair<Interface>([&](const auto &setter, const auto &getter) {
        using Getter = std::decay_t<decltype(getter)>;
        if (!holdsAny) {
            out() << "\n## " << name << "\n\n| value | set by | type | before the first set | a row is overwritten |\n"
                  << "|---|---|---|---|---|\n";
        }
        holdsAny = true;
        out() << "| " << code(text(getter.name)) << " | " << code(text(setter.name)) << " | "
              << tavTypeName(typeid(typename Getter::Result)) << " | " << initialValue(getter) << " | "
              << rowEdit<Interface>(getter.name) << " |\n";
    });
}

template<class Record>
void printRecord()
{
    out() << "\n## " << tavTypeName(typeid(Record)) << "\n\n| field | type | unit |\n|---|---|---|\n";
    TavFields::forEachField<Record>([](const auto &field) {
        using Field = std::decay_t<decltype(field)>;
        const QString type = Field::bufferSize > 0 ? QString("text of at most %1 bytes").arg(Field::bufferSize - 1)
                                                   : tavTypeName(typeid(typename Field::Type));
        out() << "| " << code(text(field.name)) << " | " << type << " | " << TavFields::unitOf(field.kind) << " |\n";
    });
}
}

int main()
{
    const TavPluginHost host(TAV_PLUGIN_FILE);
    out() << "# What each manager holds {#held-values}\n\nEvery held value: the operations that return and replace it, "
             "and its JSON in a freshly loaded plugin.\n";
    TavOperations::Interfaces::forEach([](auto tag) { printManager<typename decltype(tag)::type>(); });
    out() << "\n# The records' fields {#record-fields}\n\nThe messages are described in their .proto files.\n";
    TavFields::Records::forEach([](auto tag) { printRecord<typename decltype(tag)::type>(); });
    return 0;
}
