#include "EndState.h"
#include "ExtremeValue.h"
#include "PrintQString.h"
#include "TavCall.h"
#include "TavGlobalInfoMgr.h"
#include "TavOperations.h"
#include "TavPluginHost.h"
#include "TextFile.h"

#include <QFile>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace
{
constexpr int callsPerOperation = 2;

/// @brief Makes calls on a plugin of its own and writes them down with what they have returned.
class LimitsScenario
{
public:
    LimitsScenario()
    {
        m_text = R"({"tavScenario":1,"title":"everything at its limits",)"
                 R"("reason":"the longest texts, the extreme numbers and bytes that are no text, for every operation"})"
                 "\n";
    }

    /// Calls an operation with the first values of its types that it takes and that JSON can tell.
    template<class Operation>
    void call(const Operation &operation)
    {
        const QString manager = qobject_interface_iid<typename Operation::Interface *>();
        const QString name = QString::fromUtf8(operation.name.data(), int(operation.name.size()));
        const int most = Operation::argumentCount > 0 ? callsPerOperation : 1;
        int made = 0;
        for (int seed = 1; made < most && seed <= ExtremeValue::seedCount; ++seed) {
            QJsonObject arguments; // by name, which tells overloads apart
            addArguments(arguments, operation, seed, std::make_index_sequence<Operation::argumentCount>());
            made += write(manager, name, arguments) ? 1 : 0;
        }
        EXPECT_EQ(made, most) << name.toStdString();
    }

    QByteArray wholeText()
    {
        m_end.read(m_host,
                   [this](const QString &manager, const QString &getter, const QJsonArray &arguments,
                          const QJsonValue &returned) { writeLine(manager, getter, arguments, returned); });
        return m_text;
    }

private:
    template<class Operation, std::size_t... i>
    static void addArguments([[maybe_unused]] QJsonObject &json, [[maybe_unused]] const Operation &operation,
                             [[maybe_unused]] int seed, std::index_sequence<i...>)
    {
        using Values = typename Operation::Values;
        (json.insert(QString::fromUtf8(operation.argumentNames[i].data(), int(operation.argumentNames[i].size())),
                     toldJson(ExtremeValue::make<std::tuple_element_t<i, Values>>(seed))),
         ...);
    }

    /// Undefined where JSON does not tell the value.
    template<class Type>
    static QJsonValue toldJson(const Type &value)
    {
        try {
            const QJsonValue json = TavJson::toJson(value);
            const QByteArray text = QJsonDocument(QJsonArray{QJsonValue(json)}).toJson();
            const QJsonArray read = QJsonDocument::fromJson(text).array();
            return ExtremeValue::areEqual(TavJson::fromJson<Type>(read.first()), value) ? json : QJsonValue::Undefined;
        } catch (const TavCallError &) {
            return QJsonValue::Undefined;
        }
    }

    bool write(const QString &manager, const QString &operation, const QJsonObject &arguments)
    {
        QObject *const object = m_host.managerObject(manager.toUtf8().constData());
        try {
            const QJsonValue returned = TavCall::call(object, manager, operation, arguments);
            writeLine(manager, operation, arguments, operation == "getObject" ? QJsonValue() : returned);
            m_end.note(manager, operation, arguments);
            return true;
        } catch (const TavCallError &) {
            return false; // a value is missing, or a position is none of the list's
        }
    }

    void writeLine(const QString &manager, const QString &operation, const QJsonValue &arguments,
                   const QJsonValue &returned)
    {
        QJsonObject line{{"manager", manager}, {"operation", operation}, {"arguments", arguments}};
        if (manager == "ITavPicResourceMgr") {
            line.insert("thread", "gui");
        }
        if (!returned.isNull()) {
            line.insert("returns", returned);
        }
        m_text += QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
    }

    TavPluginHost m_host{TAV_PLUGIN_FILE};
    EndState m_end;
    QByteArray m_text;
};
}

TEST(LimitsScenario, HoldsEveryOperationOfTheTable)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(TAV_SOURCE_DIR "/share/demo");
    LimitsScenario scenario;
    TavOperations::forEachOperation([&scenario](const auto &operation) { scenario.call(operation); });
    const QByteArray made = scenario.wholeText();
    QFile shipped(TAV_SOURCE_DIR "/share/scenarios/limits.jsonl");
    const QByteArray held = shipped.open(QIODevice::ReadOnly) ? shipped.readAll() : QByteArray();
    const QString file = TAV_BUILD_DIR "/limits.jsonl";
    writeFile(file, made);
    EXPECT_TRUE(made == held) << "the table gives another scenario now, " << file.toStdString()
                              << ": look at the difference, and take it over when it is meant";
}
